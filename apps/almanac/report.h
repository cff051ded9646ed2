#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "clock.h"

namespace CLI {
class App;
}

namespace zenithor::almanac {

// What a command prints: lines on what it is (units, frame, clock), tables, and notes. Rows are
// written as they come, so that a table may be longer than memory.

// A moment, a Julian day of dynamical time, shown by the clock.
struct Moment {
  double day;
};

// Nothing, a number, text, or a moment.
using Cell = std::variant<std::monostate, double, std::string, Moment>;
using Row = std::vector<Cell>;

struct Column {
  enum class Kind { kText, kNumber, kMoment, kDate, kTimeOfDay } kind;
  std::string name;         // words joined by underscores; the heading, and the key in JSON
  std::string unit;         // empty: none; of moments the clock's
  int decimals = 0;         // of numbers, in text and CSV
  int narrow_decimals = 0;  // in text that has to be narrow
  std::size_t width = 0;    // least width in text
  bool in_text = true;
  bool has_heading = true;  // in text
};

Column TextColumn(const std::string& name, std::size_t width = 0);
// `whole` digits and sign are expected before the decimal point.
Column NumberColumn(const std::string& name, const std::string& unit, int decimals,
                    int narrow_decimals, std::size_t whole = 1);
Column MomentColumn(const std::string& name);
Column DateColumn(const std::string& name);
Column TimeOfDayColumn(const std::string& name);
// The moment's Julian day of dynamical time, for programs.
Column JulianDayColumn();
// A column that stands in CSV and JSON only.
Column NotInText(Column column);

enum class Format { kText, kCsv, kJson, kJsonLines };

// The options that every report takes.
struct OutputOptions {
  Format format = Format::kText;
  bool notes = false;  // in CSV, too
  int width = -1;      // of text: 0 without a limit, -1 the terminal's
  std::string colour;  // auto, always, never; empty: auto
};

// Gives `command` --format, --notes, --width and --color.
void AddOutputOptions(CLI::App& command, OutputOptions& options);

// Writes a report, in this order: Head once, each table (BeginTable, AddRow, EndTable), Finish
// once with the notes. CSV and JSON Lines hold the first table only.
class Writer {
 public:
  virtual ~Writer() = default;
  virtual void Head(const std::vector<std::string>& lines) = 0;
  virtual void BeginTable(const std::string& name, const std::vector<Column>& columns) = 0;
  virtual void AddRow(const Row& row) = 0;
  virtual void EndTable() = 0;
  virtual void Finish(const std::vector<std::string>& notes) = 0;
};

// The notes of a table that may be empty, in which case they say so.
std::vector<std::string> NoteIf(bool empty, const char* note);

std::unique_ptr<Writer> NewWriter(const OutputOptions& options, const Clock& clock);

// A table that is at hand.
struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<Row> rows;
};

struct Report {
  std::vector<std::string> head;
  std::vector<Table> tables;
  std::vector<std::string> notes;
};

void Print(const Report& report, const OutputOptions& options, const Clock& clock);

}  // namespace zenithor::almanac
