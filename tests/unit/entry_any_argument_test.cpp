#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "support/extreme_values.h"
#include "support/linked_exports.h"

namespace zenithor {
namespace {

using testing::FillProcessStore;
using testing::LinkedExport;

// Exactly the record on the heap: an address sanitizer sees the first byte beside it.
std::vector<unsigned char> Record(const ExportRow& row) {
  return std::vector<unsigned char>(RecordSizeOf(&row), 0xA5);
}

double Seconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

struct Answer {
  double result;
  std::vector<unsigned char> record;
};

Answer Call(int which, const ExportArguments& arguments) {
  const ExportRow& row = kExports[which];
  Answer answer{0.0, Record(row)};
  answer.result = CallExport(&row, LinkedExport(which), &arguments, answer.record.data());
  return answer;
}

class AnyArgument : public ::testing::TestWithParam<int> {
 protected:
  static void SetUpTestSuite() { FillProcessStore(); }

  // Every call ends; the processor time is that of a sanitized build on a slow machine.
  void ExpectAnEnd(int which, const ExportArguments& arguments) {
    const double start = Seconds();
    const Answer answer = Call(which, arguments);
    EXPECT_LT(Seconds() - start, 30.0)
        << kExports[which].name << " " << arguments.doubles[0] << " " << arguments.doubles[1] << " "
        << arguments.doubles[2] << " " << arguments.doubles[3] << " " << arguments.doubles[4] << " "
        << arguments.integers[0] << " " << arguments.integers[1];
  }
};

TEST_P(AnyArgument, EndsForEveryExtremeDouble) {
  const int which = GetParam();
  const ExportRow& row = kExports[which];
  const int bodies = row.shape == kShapePosition || row.shape == kShapeRising ? 11 : 1;
  for (int argument = 0; argument < DoubleCountOf(&row); ++argument) {
    for (const double extreme : kExtremeDoubles) {
      for (int body = 0; body < bodies; ++body) {
        ExportArguments arguments = OrdinaryArguments(&row, 7);
        arguments.integers[0] = body;
        arguments.doubles[argument] = extreme;
        ExpectAnEnd(which, arguments);
      }
    }
  }
}

TEST_P(AnyArgument, EndsForEveryExtremeInteger) {
  const int which = GetParam();
  const ExportRow& row = kExports[which];
  for (int argument = 0; argument < IntegerCountOf(&row); ++argument) {
    for (const std::int32_t extreme : kExtremeIntegers) {
      ExportArguments arguments = OrdinaryArguments(&row, 7);
      arguments.integers[argument] = extreme;
      ExpectAnEnd(which, arguments);
    }
  }
}

TEST_P(AnyArgument, EndsForExtremesInAllArgumentsAtOnce) {
  std::uint64_t random = 2024;
  for (int k = 0; k < 60; ++k) {
    ExpectAnEnd(GetParam(), ExtremeArguments(&random));
  }
}

INSTANTIATE_TEST_SUITE_P(EveryExport, AnyArgument, ::testing::Range(0, int{kExportCount}),
                         [](const auto& parameter) {
                           return std::string(kExports[parameter.param].name);
                         });

// An event call writes the blocks of its family and nothing else of the record.
TEST(EventRecord, KeepsTheBlocksOfOtherFamilies) {
  FillProcessStore();
  int events = 0;
  for (int which = 0; which < kExportCount; ++which) {
    const ExportRow& row = kExports[which];
    if (RecordSizeOf(&row) != kEventRecordSize) {
      continue;
    }
    ++events;
    const Answer answer = Call(which, OrdinaryArguments(&row, 7));
    const std::size_t first = static_cast<std::size_t>(row.first_block) * kBlockSize;
    const std::size_t last = first + static_cast<std::size_t>(row.block_count) * kBlockSize;
    for (std::size_t byte = 0; byte < answer.record.size(); ++byte) {
      if (byte < first || byte >= last) {
        ASSERT_EQ(answer.record[byte], 0xA5) << row.name << " byte " << byte;
      }
    }
    double own = 0.0;
    std::memcpy(&own, &answer.record[static_cast<std::size_t>(row.block) * kBlockSize], sizeof own);
    EXPECT_EQ(own, answer.result) << row.name;
  }
  EXPECT_EQ(events, 19);
}

struct Fields {
  std::int32_t year, month, day, hour, minute, second;
};

Fields CalendarFieldsOf(double julian_day) {
  BodyPositionRecord record{};
  EXPECT_EQ(ZENITHOR(julian_day, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_EARTH, &record), ZENITHOR_DONE);
  return {record.Year, record.Month, record.Day, record.Hour, record.Minute, record.Second};
}

void ExpectFields(double julian_day, const Fields& expected) {
  const Fields actual = CalendarFieldsOf(julian_day);
  EXPECT_EQ(actual.year, expected.year) << julian_day;
  EXPECT_EQ(actual.month, expected.month) << julian_day;
  EXPECT_EQ(actual.day, expected.day) << julian_day;
  EXPECT_EQ(actual.hour, expected.hour) << julian_day;
  EXPECT_EQ(actual.minute, expected.minute) << julian_day;
  EXPECT_EQ(actual.second, expected.second) << julian_day;
}

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

// Days are counted in 32 bits. Beyond the last one that can be counted, year and month stay, day
// and hour take what is left over and saturate, and less than an hour is left of nothing.
TEST(CalendarFields, SaturateWhereAJulianDayHasNoCalendarDate) {
  FillProcessStore();
  ExpectFields(2147483646.75, {5874898, 6, 3, 6, 0, 0});  // the last day that can be counted
  ExpectFields(2147483647.5, {5874898, 6, 4, 24, 0, 0});
  ExpectFields(1e10, {5874898, 6, kMost, kMost, 0, 0});
  ExpectFields(1e300, {5874898, 6, kMost, kMost, 0, 0});
  ExpectFields(HUGE_VAL, {5874898, 6, kMost, kMost, 0, 0});
  ExpectFields(-2147483648.5, {-5884200, -8, -13, 0, 0, 0});  // the first
  ExpectFields(-2147483649.5, {-5884200, -8, -14, -24, 0, 0});
  ExpectFields(-1e300, {-5884200, -8, kLeast, kLeast, 0, 0});
  ExpectFields(-HUGE_VAL, {-5884200, -8, kLeast, kLeast, 0, 0});
}

TEST(CalendarFields, OfNotANumberAreThoseOfDayZeroWithoutADay) {
  FillProcessStore();
  ExpectFields(std::nan(""), {-4712, 1, 0, 0, 0, 0});
}

}  // namespace
}  // namespace zenithor
