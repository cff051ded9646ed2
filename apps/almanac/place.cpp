#include "place.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <sstream>
#include <vector>

#include "console.h"
#include "files.h"
#include "options.h"
#include "trouble.h"
#include "words.h"

namespace zenithor::almanac {

namespace {

constexpr double kMostLatitude = 90.0;
constexpr double kMostLongitude = 360.0;

std::filesystem::path UsualFile() {
#ifdef _WIN32
  return PathOf(EnvironmentOf("APPDATA")) / "almanac" / "places.csv";
#else
  const std::string config = EnvironmentOf("XDG_CONFIG_HOME");
  return (config.empty() ? PathOf(EnvironmentOf("HOME")) / ".config" : PathOf(config)) / "almanac" /
         "places.csv";
#endif
}

std::vector<std::string> FieldsOfLine(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream text(line.substr(0, line.find('#')));
  for (std::string field; std::getline(text, field, ',');) {
    CLI::detail::trim(field);
    if (field.size() > 1 && field.front() == '"' && field.back() == '"') {
      field = field.substr(1, field.size() - 2);
    }
    fields.push_back(field);
  }
  return fields;
}

double Coordinate(const std::string& where, const std::string& word, double most) {
  try {
    return NumberOf(where, word, -most, most);
  } catch (const Failure& failure) {
    throw Trouble("{}", failure.what());
  }
}

std::vector<Place> ReadPlaces(const std::filesystem::path& path) {
  const std::optional<std::string> bytes = BytesOf(path);
  if (!bytes) {
    throw Trouble(
        "{}: no such file of places; it holds lines such as \"Stockholm, 59.33, 18.07, "
        "Europe/Stockholm\"",
        path.u8string());
  }
  std::vector<Place> places;
  constexpr char kByteOrderMark[] = "\xef\xbb\xbf";
  std::istringstream text(bytes->rfind(kByteOrderMark, 0) == 0 ? bytes->substr(3) : *bytes);
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    ++number;
    const std::vector<std::string> fields = FieldsOfLine(line);
    if (fields.empty() || (fields.size() == 1 && fields[0].empty()) ||
        (fields.size() > 1 && Plain(fields[1]) == "latitude")) {
      continue;
    }
    const std::string where = fmt::format("{}:{}", path.u8string(), number);
    if (fields.size() < 3 || fields.size() > 4) {
      throw Trouble("{}: needs three or four fields, not {}: name, latitude, longitude, zone",
                    where, fields.size());
    }
    places.push_back({fields[0], Coordinate(where + ": latitude", fields[1], kMostLatitude),
                      Coordinate(where + ": longitude", fields[2], kMostLongitude),
                      fields.size() > 3 ? fields[3] : ""});
  }
  return places;
}

}  // namespace

void AddPlaceOptions(CLI::App& command, PlaceWords& words) {
  command.add_option("--lat", words.latitude, "Latitude, north positive, -90 to 90")
      ->type_name("DEGREES");
  command.add_option("--lon", words.longitude, "Longitude, EAST positive, -360 to 360")
      ->type_name("DEGREES");
  command.add_option("--place", words.place, "A place of the file of places, in place of both")
      ->type_name("NAME");
  command
      .add_option("--places", words.file,
                  "The file, lines \"name, latitude, longitude, zone\"; else almanac/places.csv in "
                  "~/.config, on Windows in %APPDATA%")
      ->type_name("FILE");
}

std::string CoordinatesText(const Place& place) {
  return fmt::format("latitude {:+.4f}, longitude {:+.4f} (east is +)", place.latitude,
                     place.east_longitude);
}

Place PlaceOf(const PlaceWords& words) {
  const bool coordinates = !words.latitude.empty() || !words.longitude.empty();
  if (words.place.empty() && !coordinates && words.file.empty()) {
    throw Failure("where? Write --lat 59.33 --lon 18.07, or --place NAME of a file of places");
  }
  if (words.place.empty() || coordinates) {
    if (!words.place.empty()) {
      throw Failure("--place {} has a latitude and a longitude; leave out --lat and --lon",
                    words.place);
    }
    if (words.latitude.empty() || words.longitude.empty()) {
      throw Failure("--lat and --lon go together; write --lat 59.33 --lon 18.07");
    }
    return {"", NumberOf("--lat", words.latitude, -kMostLatitude, kMostLatitude),
            NumberOf("--lon", words.longitude, -kMostLongitude, kMostLongitude), ""};
  }
  const std::filesystem::path path = words.file.empty() ? UsualFile() : PathOf(words.file);
  std::vector<std::string> names;
  for (const Place& place : ReadPlaces(path)) {
    if (Plain(place.name) == Plain(words.place)) {
      return place;
    }
    names.push_back(place.name);
  }
  if (names.empty()) {
    throw Trouble("{}: holds no place", path.u8string());
  }
  throw Failure("--place \"{}\"{}", words.place, Guess(words.place, names));
}

}  // namespace zenithor::almanac
