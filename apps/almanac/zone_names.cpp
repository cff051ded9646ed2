#include "zone_names.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "console.h"
#include "failure.h"
#include "files.h"
#include "words.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace zenithor::almanac {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ZoneFolders() {
  std::vector<fs::path> folders;
  const std::string named = EnvironmentOf("TZDIR");
  if (!named.empty()) {
    folders.push_back(PathOf(named));
  }
#ifndef _WIN32
  folders.emplace_back("/usr/share/zoneinfo");
#endif
  return folders;
}

// Names consist of letters, digits and few signs; no name leads out of the folder.
bool MayBeName(const std::string& name) {
  return !name.empty() && name.size() < 60 && name.find("..") == std::string::npos &&
         name.front() != '/' &&
         name.find_first_not_of(
             "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
             "0123456789/_+-") == std::string::npos;
}

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().lexically_relative(folder).generic_u8string();
    if (entry->is_directory(error)) {
      if (name == "posix" || name == "right") {
        entry.disable_recursion_pending();
      }
    } else if (MayBeName(name) && name.find('/') != std::string::npos) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<NamedZone> ZoneOfFile(const fs::path& path, const std::string& name) {
  const std::optional<std::string> bytes = BytesOf(path);
  NamedZone zone{name, {}};
  if (!bytes || !ParseZoneFile(*bytes, zone.rules)) {
    return std::nullopt;
  }
  return zone;
}

#ifdef _WIN32

// Years by Windows' own rules of this computer's zone.
NamedZone LocalZone() {
  NamedZone zone{"local", {}};
  TIME_ZONE_INFORMATION information;
  const auto offset_with = [&information](LONG bias) {
    return static_cast<int>(-(information.Bias + bias) * 60);
  };
  const auto day_of = [](const SYSTEMTIME& time) {
    YearDay day;
    day.kind = YearDay::Kind::kWeekday;
    day.month = time.wMonth;
    day.week = time.wDay;
    day.day = time.wDayOfWeek;
    day.seconds = time.wHour * 3600 + time.wMinute * 60 + time.wSecond;
    return day;
  };
  if (GetTimeZoneInformation(&information) == TIME_ZONE_ID_INVALID) {
    throw Failure("--zone local: Windows does not tell this computer's zone; write --zone +1");
  }
  RecurringRule& rule = zone.rules.later;
  rule.known = true;
  rule.standard_offset = offset_with(information.StandardBias);
  rule.has_summer = information.DaylightDate.wMonth != 0 && information.DaylightDate.wYear == 0;
  if (rule.has_summer) {
    rule.summer_offset = offset_with(information.DaylightBias);
    rule.summer_begins = day_of(information.DaylightDate);
    rule.summer_ends = day_of(information.StandardDate);
  }
  return zone;
}

#else

NamedZone LocalZone() {
  std::string name = EnvironmentOf("TZ");
  if (!name.empty() && name.front() == ':') {
    name.erase(0, 1);
  }
  if (!name.empty() && Plain(name) != "local") {
    NamedZone zone{"local", {}};
    if (ParseRecurringRule(name, zone.rules.later)) {
      return zone;
    }
    return ZoneOfName(name);
  }
  if (const auto zone = ZoneOfFile("/etc/localtime", "local")) {
    return *zone;
  }
  throw Failure("--zone local: neither TZ nor /etc/localtime tells it; write --zone +1");
}

#endif

}  // namespace

NamedZone ZoneOfName(const std::string& name) {
  if (Plain(name) == "local") {
    return LocalZone();
  }
  std::vector<std::string> known;
  for (const fs::path& folder : ZoneFolders()) {
    if (MayBeName(name)) {
      if (const auto zone = ZoneOfFile(folder / PathOf(name), name)) {
        return *zone;
      }
    }
    known = known.empty() ? NamesIn(folder) : known;
    for (const std::string& candidate : known) {
      if (Plain(candidate) == Plain(name)) {
        if (const auto zone = ZoneOfFile(folder / PathOf(candidate), candidate)) {
          return *zone;
        }
      }
    }
  }
  if (known.empty()) {
    throw Failure(
        "--zone \"{}\": this system has no zone files; write --zone +1 or --zone local, "
        "or name a folder of such files by TZDIR",
        name);
  }
  const std::string nearest = NearestOf(name, known);
  throw Failure("--zone \"{}\": {}", name,
                nearest.empty() ? "unknown; write +1, -03:30, UTC, local or a name such as "
                                  "Europe/Berlin"
                                : "did you mean " + nearest + "?");
}

}  // namespace zenithor::almanac
