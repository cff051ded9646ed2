#include "golden/check.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "golden/untouched.h"

namespace zenithor::golden {

namespace {

std::string Text(double value) {
  char text[40];
  static_cast<void>(std::snprintf(text, sizeof text, "%.17g", value));
  return text;
}

// A block as its bytes: a zero of either sign counts as another.
std::array<unsigned char, sizeof(EventTimeBlock)> BytesOf(const EventTimeBlock& block) {
  std::array<unsigned char, sizeof(EventTimeBlock)> bytes{};
  std::memcpy(bytes.data(), &block, sizeof block);
  return bytes;
}

// What is wrong with one answer, "; " between the parts.
class Faults {
 public:
  void Number(const ExpectedNumber& expected, double actual) {
    if (expected.untouched) {
      if (actual != kUntouchedDouble) {
        Add(expected.name + " was touched: " + Text(actual));
      }
    } else if (!(std::fabs(actual - expected.value) <= expected.allowed)) {
      Add(expected.name + " is " + Text(actual) + ", not " + Text(expected.value));
    }
  }

  void Date(const ExpectedDate& expected, const DateFields& actual) {
    DateFields fields = expected.fields;
    if (expected.untouched) {
      fields.fill(kUntouchedInteger);
    }
    if (actual != fields) {
      Add(expected.name + (expected.untouched
                               ? " was touched: " + TextOf(actual)
                               : " is " + TextOf(actual) + ", not " + TextOf(fields)));
    }
  }

  void Add(const std::string& fault) { text_ += (text_.empty() ? "" : "; ") + fault; }

  const std::string& WhatIsWrong() const { return text_; }

 private:
  std::string text_;
};

void CheckBlock(const ExpectedBlock& expected, const EventTimeBlock& block, std::size_t number,
                Faults& faults) {
  switch (expected.state) {
    case BlockState::kUntouched:
      if (BytesOf(block) != BytesOf(UntouchedBlock())) {
        faults.Add("block " + std::to_string(number) + " was touched");
      }
      break;
    case BlockState::kZeroed:
      if (BytesOf(block) != BytesOf(EventTimeBlock{})) {
        faults.Add("block " + std::to_string(number) + " is not zeroed");
      }
      break;
    case BlockState::kFilled:
      faults.Number(expected.julian_day, block.JulianDay);
      faults.Date(expected.date,
                  {block.Year, block.Month, block.Day, block.Hour, block.Minute, block.Second});
      break;
  }
}

Faults FaultsOf(const PositionCase& golden, const Functions& functions) {
  BodyPositionRecord record = UntouchedRecord();
  Faults faults;
  faults.Number(golden.result, functions.position(golden.call, &record));
  std::array<double, kPositionDoubles> doubles{};
  static_assert(offsetof(BodyPositionRecord, Year) == sizeof doubles, "the doubles come first");
  std::memcpy(doubles.data(), &record, sizeof doubles);
  for (std::size_t k = 0; k < doubles.size(); ++k) {
    faults.Number(golden.doubles[k], doubles[k]);
  }
  faults.Date(golden.date,
              {record.Year, record.Month, record.Day, record.Hour, record.Minute, record.Second});
  return faults;
}

Faults FaultsOf(const EventCase& golden, const Functions& functions) {
  EventRecord record = UntouchedEvents();
  Faults faults;
  faults.Number(golden.result, functions.event(golden.call, &record));
  for (std::size_t k = 0; k < golden.blocks.size(); ++k) {
    CheckBlock(golden.blocks[k], record.Blocks[k], k, faults);
  }
  return faults;
}

Faults FaultsOf(const RisingCase& golden, const Functions& functions) {
  Faults faults;
  faults.Number(golden.result, functions.rising(golden.call));
  return faults;
}

template <class Case>
void CheckCases(const std::string& path, const std::vector<Case>& cases, const Functions& functions,
                Summary& summary) {
  for (const Case& golden : cases) {
    const std::string faults = FaultsOf(golden, functions).WhatIsWrong();
    ++summary.cases;
    if (faults.empty()) {
      continue;
    }
    if (++summary.failures == 1) {
      summary.first_failure = path + ":" + std::to_string(golden.line) + ": " + golden.words;
      summary.first_failure += ": " + faults;
    }
  }
}

}  // namespace

Summary Check(const GoldenFile& file, const Functions& functions) {
  Summary summary;
  CheckCases(file.path, file.positions, functions, summary);
  CheckCases(file.path, file.events, functions, summary);
  CheckCases(file.path, file.risings, functions, summary);
  return summary;
}

}  // namespace zenithor::golden
