#include "zone_rules.h"

#include <algorithm>
#include <cstdlib>

#include "zenithor/values.h"

namespace zenithor::almanac {

namespace {

constexpr int kSecondsPerDay = 86400;
constexpr double kUnixEpoch = 2440587.5;
constexpr std::size_t kHeaderBytes = 44;

std::int64_t BigEndian(const std::string& bytes, std::size_t place, std::size_t count) {
  std::uint64_t value = (static_cast<unsigned char>(bytes[place]) & 0x80U) != 0 ? ~0ULL : 0;
  for (std::size_t k = 0; k < count; ++k) {
    value = value << 8U | static_cast<unsigned char>(bytes[place + k]);
  }
  return static_cast<std::int64_t>(value);
}

struct Header {
  std::size_t utc_marks, standard_marks, leaps, changes, types, letters;

  std::size_t Bytes(std::size_t time_bytes) const {
    return changes * (time_bytes + 1) + types * 6 + letters + leaps * (time_bytes + 4) +
           standard_marks + utc_marks;
  }
};

bool ReadHeader(const std::string& bytes, std::size_t place, Header& header) {
  if (bytes.size() < place + kHeaderBytes || bytes.compare(place, 4, "TZif") != 0) {
    return false;
  }
  std::size_t* const counts[] = {&header.utc_marks, &header.standard_marks, &header.leaps,
                                 &header.changes,   &header.types,          &header.letters};
  for (std::size_t k = 0; k < 6; ++k) {
    const std::int64_t count = BigEndian(bytes, place + 20 + 4 * k, 4);
    if (count < 0 || count > 1000000) {
      return false;
    }
    *counts[k] = static_cast<std::size_t>(count);
  }
  return header.types > 0;
}

bool ReadNumber(const std::string& text, std::size_t& place, int& number) {
  const std::size_t begin = place;
  number = 0;
  while (place < text.size() && text[place] >= '0' && text[place] <= '9' && place < begin + 4) {
    number = 10 * number + (text[place++] - '0');
  }
  return place > begin;
}

bool Take(const std::string& text, std::size_t& place, char wanted) {
  if (place < text.size() && text[place] == wanted) {
    ++place;
    return true;
  }
  return false;
}

bool ReadName(const std::string& text, std::size_t& place) {
  const std::size_t begin = place;
  if (Take(text, place, '<')) {
    place = text.find('>', place);
    return place != std::string::npos && ++place > begin + 2;
  }
  while (place < text.size() && std::isalpha(static_cast<unsigned char>(text[place])) != 0) {
    ++place;
  }
  return place >= begin + 3;
}

// [+-]hh[:mm[:ss]] in seconds.
bool ReadTime(const std::string& text, std::size_t& place, int& seconds) {
  const int sign = Take(text, place, '-') ? -1 : 1;
  if (sign > 0) {
    Take(text, place, '+');
  }
  int part = 0;
  if (!ReadNumber(text, place, part)) {
    return false;
  }
  seconds = part * 3600;
  for (const int unit : {60, 1}) {
    if (!Take(text, place, ':')) {
      break;
    }
    if (!ReadNumber(text, place, part)) {
      return false;
    }
    seconds += part * unit;
  }
  seconds *= sign;
  return true;
}

bool ReadYearDay(const std::string& text, std::size_t& place, YearDay& day) {
  if (!Take(text, place, ',')) {
    return false;
  }
  bool read = false;
  if (Take(text, place, 'M')) {
    day.kind = YearDay::Kind::kWeekday;
    read = ReadNumber(text, place, day.month) && Take(text, place, '.') &&
           ReadNumber(text, place, day.week) && Take(text, place, '.') &&
           ReadNumber(text, place, day.day);
  } else {
    day.kind = Take(text, place, 'J') ? YearDay::Kind::kWithoutLeapDay : YearDay::Kind::kFromZero;
    read = ReadNumber(text, place, day.day);
  }
  return read && (!Take(text, place, '/') || ReadTime(text, place, day.seconds));
}

// Days from 1970 January 1 to a date of the Gregorian calendar.
std::int64_t DayOf(std::int64_t year, int month, int day) {
  const double julian_day = ZenithorJulianDay(static_cast<int>(year), month, day, 0, 0, 0.0);
  return static_cast<std::int64_t>(julian_day - kUnixEpoch);
}

bool IsLeap(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

// The local time of a change in a year, in seconds.
std::int64_t LocalTimeOf(const YearDay& rule, std::int64_t year) {
  const std::int64_t first = DayOf(year, 1, 1);
  std::int64_t day = first + rule.day;
  if (rule.kind == YearDay::Kind::kWithoutLeapDay) {
    day = first + rule.day - 1 + (IsLeap(year) && rule.day >= 60 ? 1 : 0);
  } else if (rule.kind == YearDay::Kind::kWeekday) {
    const std::int64_t month_begins = DayOf(year, rule.month, 1);
    const std::int64_t next =
        rule.month == 12 ? DayOf(year + 1, 1, 1) : DayOf(year, rule.month + 1, 1);
    // 1970 January 1 was a Thursday.
    const std::int64_t weekday = ((month_begins + 4) % 7 + 7) % 7;
    day = month_begins + (rule.day - weekday + 7) % 7 + 7 * (rule.week - 1);
    while (day >= next) {
      day -= 7;
    }
  }
  return day * kSecondsPerDay + rule.seconds;
}

int OffsetByRule(const RecurringRule& rule, std::int64_t time) {
  if (!rule.has_summer) {
    return rule.standard_offset;
  }
  std::int32_t date[5];
  const double day = kUnixEpoch + static_cast<double>(time + rule.standard_offset) / kSecondsPerDay;
  if (ZenithorCalendar(day, 0.0, date, nullptr) != 0) {
    return rule.standard_offset;
  }
  const std::int64_t begins = LocalTimeOf(rule.summer_begins, date[0]) - rule.standard_offset;
  const std::int64_t ends = LocalTimeOf(rule.summer_ends, date[0]) - rule.summer_offset;
  const bool summer = begins < ends ? time >= begins && time < ends : time >= begins || time < ends;
  return summer ? rule.summer_offset : rule.standard_offset;
}

}  // namespace

bool ParseRecurringRule(const std::string& text, RecurringRule& rule) {
  std::size_t place = 0;
  int west = 0;
  if (!ReadName(text, place) || !ReadTime(text, place, west)) {
    return false;
  }
  rule.standard_offset = -west;
  rule.known = true;
  if (place == text.size()) {
    return true;
  }
  rule.has_summer = true;
  rule.summer_offset = rule.standard_offset + 3600;
  if (!ReadName(text, place)) {
    return false;
  }
  if (place < text.size() && text[place] != ',') {
    if (!ReadTime(text, place, west)) {
      return false;
    }
    rule.summer_offset = -west;
  }
  return ReadYearDay(text, place, rule.summer_begins) &&
         ReadYearDay(text, place, rule.summer_ends) && place == text.size();
}

bool ParseZoneFile(const std::string& bytes, ZoneRules& rules) {
  Header header{};
  if (!ReadHeader(bytes, 0, header)) {
    return false;
  }
  std::size_t place = kHeaderBytes;
  std::size_t time_bytes = 4;
  if (bytes[4] != '\0') {  // the second part has the same in 64 bits
    place += header.Bytes(4);
    if (!ReadHeader(bytes, place, header)) {
      return false;
    }
    place += kHeaderBytes;
    time_bytes = 8;
  }
  if (bytes.size() < place + header.Bytes(time_bytes)) {
    return false;
  }
  const std::size_t kinds = place + header.changes * time_bytes;
  const std::size_t types = kinds + header.changes;
  const auto offset_of = [&](std::size_t type) {
    return static_cast<int>(BigEndian(bytes, types + 6 * type, 4));
  };
  rules = {};
  rules.first_offset = offset_of(0);
  for (std::size_t k = 0; k < header.changes; ++k) {
    const std::size_t type = static_cast<unsigned char>(bytes[kinds + k]);
    if (type >= header.types) {
      return false;
    }
    rules.changes.push_back(BigEndian(bytes, place + k * time_bytes, time_bytes));
    rules.offsets.push_back(offset_of(type));
  }
  if (time_bytes == 8) {
    const std::size_t footer = place + header.Bytes(8);
    const std::size_t end = bytes.find('\n', footer + 1);
    if (footer < bytes.size() && end != std::string::npos && end > footer + 1) {
      return ParseRecurringRule(bytes.substr(footer + 1, end - footer - 1), rules.later);
    }
  }
  return true;
}

int OffsetAt(const ZoneRules& rules, std::int64_t time) {
  const auto after = std::upper_bound(rules.changes.begin(), rules.changes.end(), time);
  if (after == rules.changes.end() && rules.later.known) {
    return OffsetByRule(rules.later, time);
  }
  return after == rules.changes.begin()
             ? rules.first_offset
             : rules.offsets[static_cast<std::size_t>(after - rules.changes.begin()) - 1];
}

bool OffsetOfLocal(const ZoneRules& rules, std::int64_t local, int& offset) {
  // No zone is further from universal time than that. The greater offset gives the earlier moment.
  const int before = OffsetAt(rules, local - kSecondsPerDay);
  const int behind = OffsetAt(rules, local + kSecondsPerDay);
  for (const int candidate : {std::max(before, behind), std::min(before, behind)}) {
    if (OffsetAt(rules, local - candidate) == candidate) {
      offset = candidate;
      return true;
    }
  }
  offset = before;
  return false;
}

}  // namespace zenithor::almanac
