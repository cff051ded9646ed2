#pragma once

#include <optional>
#include <string>

#include "clock.h"

namespace CLI {
class App;
}

namespace zenithor::almanac {

// A span of time: it holds `from` and not `to`, Julian days of dynamical time.
struct Span {
  double from;
  double to;
};

// The words of --from, --to and --year; empty where they are not given.
struct SpanWords {
  std::string from;
  std::string to;
  std::string year;
};

// How far apart the moments of a table are.
struct Step {
  enum class Unit { kSeconds, kDays, kMonths } unit = Unit::kDays;
  double count = 1.0;
};

// Gives `command` the options --from, --to and --year. `otherwise` says what holds without them.
void AddSpanOptions(CLI::App& command, SpanWords& words, const std::string& otherwise);

// The span that the words name; this year without any. --from alone: a year from there; --to alone:
// from now. Throws Failure for an empty span.
Span SpanOf(const SpanWords& words, const Clock& clock);

// The same for searches: throws Failure outside the years that they answer. A year at either end of
// them may begin or end up to a day outside by the clock and is cut there.
Span SearchedSpanOf(const SpanWords& words, const Clock& clock);

// "15min", "6h", "2d", "1w", "3mo", "1y"; throws Failure.
Step StepOf(const std::string& option, const std::string& word);

// The moment `k` steps behind `from`. Minutes and hours are those of UTC, or of dynamical time;
// days, months and years are the clock's, so that the time of day stays; a day that a month has not
// is its last.
double Stepped(const Clock& clock, double from, const Step& step, double k);

// "from 2026-01-01 00:00:00 until 2027-01-01 00:00:00, UTC".
std::string SpanText(const Span& span, const Clock& clock);

}  // namespace zenithor::almanac
