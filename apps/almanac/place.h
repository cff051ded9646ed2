#pragma once

#include <string>

namespace CLI {
class App;
}

namespace zenithor::almanac {

// Where an observer is.
struct Place {
  std::string name;             // empty without one
  double latitude = 0.0;        // [deg] north positive
  double east_longitude = 0.0;  // [deg]
  std::string zone;             // as --zone takes it; empty: none given
};

// The words of --lat, --lon, --place and --places; empty where they are not given.
struct PlaceWords {
  std::string latitude;
  std::string longitude;
  std::string place;
  std::string file;
};

// "latitude +59.3300, longitude +18.0700 (east is +)".
std::string CoordinatesText(const Place& place);

void AddPlaceOptions(CLI::App& command, PlaceWords& words);

// The place that the words name. A file of places has a line for each, such as
// "Stockholm, 59.33, 18.07, Europe/Stockholm": name, latitude, longitude (east positive), and the
// zone where one is wanted; # begins a comment. Throws Failure or Trouble.
Place PlaceOf(const PlaceWords& words);

}  // namespace zenithor::almanac
