#include "span.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <regex>

#include "failure.h"
#include "moment.h"
#include "words.h"
#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

struct StepUnit {
  const char* names;  // with blanks around each
  Step::Unit unit;
  double factor;
};

constexpr StepUnit kUnits[] = {
    {" min mins minute minutes ", Step::Unit::kSeconds, 60.0},
    {" h hour hours ", Step::Unit::kSeconds, 3600.0},
    {" d day days ", Step::Unit::kDays, 1.0},
    {" w week weeks ", Step::Unit::kDays, 7.0},
    {" mo month months ", Step::Unit::kMonths, 1.0},
    {" y year years ", Step::Unit::kMonths, 12.0},
};

double MonthsLater(double shown_day, double months) {
  std::int32_t date[5] = {};
  double second = 0.0;
  static_cast<void>(ZenithorCalendar(shown_day, 0.0, date, &second));
  const double month = date[0] * 12.0 + (date[1] - 1) + months;
  const int year = static_cast<int>(std::floor(month / 12.0));
  const int of_year = static_cast<int>(month - year * 12.0) + 1;
  const double time_of_day = shown_day + 0.5 - std::floor(shown_day + 0.5);
  // October 1582 has days that are none; the 15th follows the 4th.
  for (int day = date[2]; day > 0; --day) {
    const double found = ZenithorJulianDay(year, of_year, day, 0, 0, 0.0);
    if (!std::isnan(found)) {
      return found + time_of_day;
    }
  }
  return shown_day;
}

// --to "+30d": so much later.
std::optional<double> Later(const std::string& text, double from, const Clock& clock) {
  const std::string word = Plain(text);
  if (word.size() < 3 || word.front() != '+' ||
      std::isalpha(static_cast<unsigned char>(word.back())) == 0 ||
      word.find(':') != std::string::npos || word.back() == 'z') {
    return std::nullopt;
  }
  return Stepped(clock, from, StepOf("--to", word.substr(1)), 1.0);
}

}  // namespace

void AddSpanOptions(CLI::App& command, SpanWords& words, const std::string& otherwise) {
  command.add_option("--from", words.from, "Where the span begins; else " + otherwise)
      ->type_name("DATE")
      ->group("Time");
  command.add_option("--to", words.to, "Where it ends, itself not included: a moment, or +30d")
      ->type_name("DATE")
      ->group("Time");
  command.add_option("--year", words.year, "A whole year of the clock; 0 is 1 BC")
      ->type_name("YEAR")
      ->group("Time");
}

Span SpanOf(const SpanWords& words, const Clock& clock) {
  Span span{};
  if (!words.year.empty() || (words.from.empty() && words.to.empty())) {
    const int year = words.year.empty() ? YearAt(clock, Now()) : YearOf("--year", words.year);
    span = {YearStart(clock, year), YearStart(clock, year + 1)};
    span.from = words.from.empty() ? span.from : MomentOf("--from", words.from, clock);
  } else {
    span.from = words.from.empty() ? Now() : MomentOf("--from", words.from, clock);
    span.to = Stepped(clock, span.from, {Step::Unit::kMonths, 12.0}, 1.0);
  }
  if (!words.to.empty()) {
    const std::optional<double> later = Later(words.to, span.from, clock);
    span.to = later ? *later : MomentOf("--to", words.to, clock);
  }
  if (!(span.from < span.to)) {
    throw Failure("the span is empty: it would begin on {} and end on {}; write --from before --to",
                  MomentText(clock, span.from), MomentText(clock, span.to));
  }
  return span;
}

Span SearchedSpanOf(const SpanWords& words, const Clock& clock) {
  Span span = SpanOf(words, clock);
  if (span.from > ZENITHOR_FIRST_DAY - 1.5) {
    span.from = std::max(span.from, ZENITHOR_FIRST_DAY);
  }
  if (span.to < ZENITHOR_LAST_DAY + 1.5) {
    span.to = std::min(span.to, ZENITHOR_LAST_DAY);
  }
  const std::string year = words.year.empty() ? "" : fmt::format("--year {}", words.year);
  CheckSearched(words.from.empty() ? (year.empty() ? "--to " + words.to : year)
                                   : fmt::format("--from \"{}\"", words.from),
                span.from);
  CheckSearched(words.to.empty() ? (year.empty() ? fmt::format("--from \"{}\"", words.from) : year)
                                 : fmt::format("--to \"{}\"", words.to),
                span.to);
  return span;
}

Step StepOf(const std::string& option, const std::string& word) {
  static const std::regex form(R"(([0-9]{1,7}(?:\.[0-9]{1,6})?)\s*([a-z]+))");
  constexpr std::size_t kLongestWord = 30;
  const std::string plain = Plain(word);
  std::smatch match;
  constexpr char kWrite[] = "write 15min, 6h, 1d, 1w, 1mo or 1y";
  if (plain.size() > kLongestWord || !std::regex_match(plain, match, form)) {
    throw Failure("{} \"{}\": not a step; {}", option, word, kWrite);
  }
  const double count = std::strtod(match[1].str().c_str(), nullptr);
  if (match[2] == "m") {
    throw Failure("{} \"{}\": minutes or months? Write {}min or {}mo", option, word, match[1].str(),
                  match[1].str());
  }
  for (const StepUnit& unit : kUnits) {
    if (std::string(unit.names).find(" " + match[2].str() + " ") == std::string::npos) {
      continue;
    }
    const Step step{unit.unit, count * unit.factor};
    if (!(step.count > 0.0)) {
      throw Failure("{} \"{}\": a step is more than 0; {}", option, word, kWrite);
    }
    if (unit.unit == Step::Unit::kMonths && step.count != std::floor(step.count)) {
      throw Failure("{} \"{}\": months and years come whole; write 18mo for one and a half years",
                    option, word);
    }
    return step;
  }
  throw Failure("{} \"{}\": \"{}\" is no unit of time; {}", option, word, match[2].str(), kWrite);
}

double Stepped(const Clock& clock, double from, const Step& step, double k) {
  const double count = step.count * k;
  if (step.unit == Step::Unit::kSeconds) {
    if (clock.kind == Clock::Kind::kDynamical) {
      return from + count / 86400.0;
    }
    return ZenithorClockToDynamical(ZenithorDynamicalToClock(from) + count / 86400.0);
  }
  const double shown = ShownOf(clock, from);
  return NearestDynamicalOf(
      clock, step.unit == Step::Unit::kDays ? shown + count : MonthsLater(shown, count));
}

std::string SpanText(const Span& span, const Clock& clock) {
  return fmt::format("from {} until {}, {}", MomentText(clock, span.from),
                     MomentText(clock, span.to), clock.name);
}

}  // namespace zenithor::almanac
