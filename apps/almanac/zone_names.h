#pragma once

#include <string>

#include "zone_rules.h"

namespace zenithor::almanac {

struct NamedZone {
  std::string name;  // as the system writes it
  ZoneRules rules;
};

// A zone by its IANA name, in capitals or small letters, from the system's zone files: the folder
// $TZDIR, else /usr/share/zoneinfo. "local" is that of this computer. Throws Failure, with the
// nearest name, where there is no such zone.
NamedZone ZoneOfName(const std::string& name);

}  // namespace zenithor::almanac
