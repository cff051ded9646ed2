#include "body_terms.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string_view>

#include "failure.h"

namespace zenithor::karvo {

namespace {

constexpr std::string_view kHeadings = "coordinate,power,amplitude,phase,frequency";
constexpr std::string_view kCoordinates = "LBR";
constexpr std::size_t kFieldCount = 5;

// Where a line stands, for messages.
struct Place {
  const std::string& path;
  int line;
};

std::vector<std::string_view> Fields(std::string_view line) {
  std::vector<std::string_view> fields;
  for (std::size_t begin = 0;;) {
    const std::size_t comma = line.find(',', begin);
    fields.push_back(line.substr(begin, comma - begin));
    if (comma == std::string_view::npos) {
      return fields;
    }
    begin = comma + 1;
  }
}

template <class Number>
Number Parse(std::string_view text, const char* what, const Place& at) {
  Number value{};
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::result_out_of_range && stopped == end) {
    throw Failure("{}:{}: {} is out of range: \"{}\"", at.path, at.line, what, text);
  }
  if (error != std::errc() || stopped != end) {
    throw Failure("{}:{}: {} is not a number: \"{}\"", at.path, at.line, what, text);
  }
  return value;
}

double ParseFinite(std::string_view text, const char* what, const Place& at) {
  const double value = Parse<double>(text, what, at);
  if (!std::isfinite(value)) {
    throw Failure("{}:{}: {} is not finite: \"{}\"", at.path, at.line, what, text);
  }
  return value;
}

void AddTerm(std::string_view line, const Place& at, BodyTerms& body) {
  const std::vector<std::string_view> field = Fields(line);
  if (field.size() != kFieldCount) {
    throw Failure("{}:{}: {} fields where {} belong ({})", at.path, at.line, field.size(),
                  kFieldCount, kHeadings);
  }
  const std::size_t coordinate =
      field[0].size() == 1 ? kCoordinates.find(field[0][0]) : std::string_view::npos;
  if (coordinate == std::string_view::npos) {
    throw Failure("{}:{}: coordinate is none of L, B, R: \"{}\"", at.path, at.line, field[0]);
  }
  const int power = Parse<int>(field[1], "power", at);
  if (power < 0 || power >= kPowerCount) {
    throw Failure("{}:{}: power is {}; the format holds powers 0 to {}", at.path, at.line, power,
                  kPowerCount - 1);
  }
  body.series[coordinate * kPowerCount + static_cast<std::size_t>(power)].push_back(
      {ParseFinite(field[2], "amplitude", at), ParseFinite(field[3], "phase", at),
       ParseFinite(field[4], "frequency", at)});
}

}  // namespace

std::string SeriesName(int series) {
  return fmt::format("{}{}", kCoordinates[static_cast<std::size_t>(series / kPowerCount)],
                     series % kPowerCount);
}

std::size_t TermCount(const BodyTerms& body) {
  std::size_t count = 0;
  for (const auto& series : body.series) {
    count += series.size();
  }
  return count;
}

BodyTerms ReadBodyTerms(const std::string& path) {
  std::ifstream file(path);
  if (!file) {
    throw Failure(
        "{}: cannot be read; the coefficients are looked for in the folder that --source "
        "names",
        path);
  }
  BodyTerms body;
  body.source = path;
  bool headings_seen = false;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    if (line.empty() || line[0] == '#') {
      continue;
    }
    if (!headings_seen) {
      if (line != kHeadings) {
        throw Failure("{}:{}: the headings are not \"{}\"", path, number, kHeadings);
      }
      headings_seen = true;
      continue;
    }
    AddTerm(line, {path, number}, body);
  }
  if (!headings_seen) {
    throw Failure("{}: is empty", path);
  }
  return body;
}

std::vector<BodyTerms> ReadAllBodies(const std::string& folder) {
  std::vector<BodyTerms> bodies;
  bodies.reserve(std::size(kSourceNames));
  for (const char* name : kSourceNames) {
    bodies.push_back(ReadBodyTerms(folder + "/" + name + ".csv"));
  }
  return bodies;
}

}  // namespace zenithor::karvo
