#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zenithor::almanac {

// When the clocks of a zone changed and will change: what the system's zone file says. Times are
// seconds of universal time from 1970 January 1, 0h.

// What a rule such as M3.5.0 says: a day of the year.
struct YearDay {
  enum class Kind { kWeekday, kWithoutLeapDay, kFromZero } kind = Kind::kFromZero;
  int month = 0;
  int week = 0;  // 1 to 5, 5 is the last
  int day = 0;   // of the week, 0 is Sunday; or of the year
  int seconds = 7200;
};

// For the years behind the last change of the file.
struct RecurringRule {
  bool known = false;
  int standard_offset = 0;  // [s] ahead of universal time
  bool has_summer = false;
  int summer_offset = 0;
  YearDay summer_begins;
  YearDay summer_ends;
};

struct ZoneRules {
  std::vector<std::int64_t> changes;  // in the order of time
  std::vector<int> offsets;           // [s] behind each change
  int first_offset = 0;               // before the first change
  RecurringRule later;
};

// Reads the bytes of a zone file: RFC 8536, "The Time Zone Information Format (TZif)", 2019.
// Returns false for bytes that are none.
bool ParseZoneFile(const std::string& bytes, ZoneRules& rules);

// The text that a zone file ends with, such as CET-1CEST,M3.5.0,M10.5.0/3: POSIX, "Environment
// Variables", TZ. Returns false for a text that is none.
bool ParseRecurringRule(const std::string& text, RecurringRule& rule);

// [s] what the zone's clocks are ahead of universal time.
int OffsetAt(const ZoneRules& rules, std::int64_t time);

// The offset where the zone's clocks show `local`, in seconds as if they were universal time. Where
// they show it twice the first time counts; false where they leave it out.
bool OffsetOfLocal(const ZoneRules& rules, std::int64_t local, int& offset);

}  // namespace zenithor::almanac
