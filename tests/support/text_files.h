#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

// Reading the repository's text files: published values, hashes. Tests name them from
// the root of the repository, wherever they run; other programs give a path.

#ifndef ZENITHOR_SOURCE_DIR
#define ZENITHOR_SOURCE_DIR "."
#endif

namespace zenithor::testing {

inline std::vector<std::string> Split(const std::string& line, char separator) {
  std::vector<std::string> parts;
  std::string part;
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == separator && !quoted) {
      parts.push_back(part);
      part.clear();
    } else if (c != '\r') {
      part += c;
    }
  }
  parts.push_back(part);
  return parts;
}

// The lines of a file, without empty lines and comments.
inline std::vector<std::string> LinesAt(const std::string& path) {
  std::ifstream file(path);
  if (!file) {
    throw std::runtime_error(path + ": cannot be read");
  }
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line[0] != '#') {
      lines.push_back(line);
    }
  }
  return lines;
}

// The same for a file of the repository.
inline std::vector<std::string> LinesOf(const std::string& name) {
  return LinesAt(std::string(ZENITHOR_SOURCE_DIR) + "/" + name);
}

// A value of tests/published/worked-examples.csv: what the book prints, and how far this library
// may be from it, in the unit that the file states.
struct PublishedValue {
  double value;
  double allowed;
};

inline PublishedValue Published(const std::string& example, const std::string& quantity) {
  for (const std::string& line : LinesOf("tests/published/worked-examples.csv")) {
    const std::vector<std::string> field = Split(line, ',');
    if (field.size() >= 7 && field[0] == example && field[3] == quantity) {
      return {std::stod(field[4]), std::stod(field[6])};
    }
  }
  throw std::runtime_error("no published value " + example + " " + quantity);
}

}  // namespace zenithor::testing
