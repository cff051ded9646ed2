#pragma once

#include <string>
#include <variant>
#include <vector>

namespace CLI {
class App;
}

namespace zenithor::almanac {

// What a command prints: lines on what it is (units, frame, moment), tables, and notes.

struct Column {
  std::string name;  // words joined by underscores; the heading, and the key in JSON
  std::string unit;  // empty: none
  int decimals = 0;  // of numbers, in text and CSV
};

// Nothing, a number, or text.
using Cell = std::variant<std::monostate, double, std::string>;

struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<std::vector<Cell>> rows;
};

struct Report {
  std::vector<std::string> head;
  std::vector<Table> tables;
  std::vector<std::string> notes;
};

enum class Format { kText, kCsv, kJson };

// Gives `command` the option --format text|csv|json.
void AddFormatOption(CLI::App& command, Format& format);

// Adds to the notes that the library answered 0.0 for these bodies, and what to do. None: no note.
void AddNotAvailable(const std::vector<std::string>& bodies, Report& report);

// Text: aligned columns. CSV: head and notes as lines that begin with #, one heading line "name
// [unit]" a table, an empty line between tables. JSON: an object with head, tables and notes; a row
// is an object keyed by column name, an empty cell is null, numbers are in full.
std::string Render(const Report& report, Format format);

}  // namespace zenithor::almanac
