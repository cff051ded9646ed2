#pragma once

#include <string>
#include <vector>

#include "zone_rules.h"

namespace CLI {
class App;
}

namespace zenithor::almanac {

// The clock that moments are read from and shown in: UTC, that of a zone, or dynamical time (TT).
// UTC is what values.h calls the clock's time: universal time before 1972.
struct Clock {
  enum class Kind { kUniversal, kOffset, kZone, kDynamical } kind = Kind::kUniversal;
  int offset = 0;            // [s] ahead of UTC
  std::string name = "UTC";  // "UTC+01:00", "Europe/Berlin", "dynamical time (TT)"
  std::string unit = "UTC";  // the same for a table's head: "UTC+1", "Europe/Berlin", "TT"
  ZoneRules rules;           // of a zone
};

// The words of --zone and --time; empty without them.
struct ClockWords {
  std::string zone;
  std::string time;
};

// Gives `command` the options --zone and --time.
void AddClockOptions(CLI::App& command, ClockWords& words);

// Throws Failure for a zone that is not known, and for a zone together with dynamical time.
Clock ClockOf(const ClockWords& words);

// [s] of "+1", "-03:30", "+0530", "5.5", "Z", "UTC"; false for other words.
bool OffsetOfWord(const std::string& word, int& offset);

// Dynamical time of what the clock shows, both as Julian days. Throws Failure, saying `where`, for
// a time that the zone's clocks leave out.
double DynamicalOf(const Clock& clock, double shown_day, const std::string& where);

// The same; a time that is left out is taken by the clocks before the change.
double NearestDynamicalOf(const Clock& clock, double shown_day);

// What the clock shows at a moment of dynamical time.
double ShownOf(const Clock& clock, double dynamical_day);

// [s] what the clock is ahead of UTC at that moment; 0 for dynamical time.
int OffsetAt(const Clock& clock, double dynamical_day);

// "2026-11-21 06:30:15"; rounded to so many seconds, 60 without the seconds.
std::string MomentText(const Clock& clock, double dynamical_day, int round_to = 1);

// The head of a table of places: moment, clock and Julian day.
std::string PlacesHead(const Clock& clock, double dynamical_day);

// "2026-11-21T06:30:15Z", "...+01:00"; without either for dynamical time.
std::string IsoText(const Clock& clock, double dynamical_day);

// "2026-11-21", of the clock's day that the moment lies in.
std::string DateText(const Clock& clock, double dynamical_day);

// "06:30", to the minute.
std::string TimeOfDayText(const Clock& clock, double dynamical_day);

// "2026-11-21" of a Julian day in the clock's own time.
std::string DateText(double shown_day);

// Now, from the computer's clock, in dynamical time.
double Now();

}  // namespace zenithor::almanac
