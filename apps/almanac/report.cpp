#include "report.h"

#include <CLI/CLI.hpp>

#include "console.h"
#include "failure.h"
#include "options.h"
#include "writers.h"

namespace zenithor::almanac {

namespace {

constexpr std::size_t kMomentWidth = 19;  // 2026-11-21 06:30:15
constexpr std::size_t kDateWidth = 10;

}  // namespace

Column TextColumn(const std::string& name, std::size_t width) {
  return {Column::Kind::kText, name, "", 0, 0, width, true, true};
}

Column NumberColumn(const std::string& name, const std::string& unit, int decimals,
                    int narrow_decimals, std::size_t whole) {
  return {Column::Kind::kNumber, name, unit, decimals, narrow_decimals, whole, true, true};
}

Column MomentColumn(const std::string& name) {
  return {Column::Kind::kMoment, name, "", 0, 0, kMomentWidth, true, true};
}

Column DateColumn(const std::string& name) {
  return {Column::Kind::kDate, name, "", 0, 0, kDateWidth, true, true};
}

Column TimeOfDayColumn(const std::string& name) {
  return {Column::Kind::kTimeOfDay, name, "", 0, 0, 0, true, true};
}

Column JulianDayColumn() {
  return NotInText({Column::Kind::kNumber, "julian_day", "TT", 6, 6, 0, true});
}

Column NotInText(Column column) {
  column.in_text = false;
  return column;
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  command
      .add_option_function<std::string>(
          "--format",
          [&options](const std::string& word) {
            constexpr Format kFormats[] = {Format::kText, Format::kCsv, Format::kJson,
                                           Format::kJsonLines};
            options.format = kFormats[ChoiceOf("--format", word, {"text", "csv", "json", "jsonl"})];
          },
          "Else text")
      ->type_name("text|csv|json|jsonl")
      ->group("Output");
  command.add_flag("--notes", options.notes, "CSV with head and notes, behind # signs")
      ->group("Output");
  command
      .add_option_function<std::string>(
          "--width",
          [&options](const std::string& word) {
            options.width = WholeNumberOf("--width", word);
            if (options.width != 0 && (options.width < 40 || options.width > 10000)) {
              throw Failure("--width \"{}\": write 40 to 10000 columns, or 0 for no limit", word);
            }
          },
          "Columns that text may take, 0 for no limit; else the terminal's")
      ->type_name("COLUMNS")
      ->group("Output");
  command
      .add_option_function<std::string>(
          "--color",
          [&options](const std::string& word) {
            const char* const words[] = {"auto", "always", "never"};
            options.colour = words[ChoiceOf("--color", word, {"auto", "always", "never"})];
          },
          "Else auto: on a terminal, without NO_COLOR")
      ->type_name("auto|always|never")
      ->group("Output");
}

std::vector<std::string> NoteIf(bool empty, const char* note) {
  return empty ? std::vector<std::string>{note} : std::vector<std::string>();
}

std::unique_ptr<Writer> NewWriter(const OutputOptions& options, const Clock& clock) {
  switch (options.format) {
    case Format::kCsv:
      return NewCsvWriter(clock, options.notes);
    case Format::kJson:
      return NewJsonWriter(clock);
    case Format::kJsonLines:
      return NewJsonLinesWriter(clock);
    case Format::kText:
      break;
  }
  const bool colour =
      options.colour == "always" ||
      (options.colour != "never" && EnvironmentOf("NO_COLOR").empty() && OutShowsColours());
  const int width = options.width >= 0 ? options.width : TerminalWidth();
  return NewTextWriter(clock, static_cast<std::size_t>(width), colour);
}

void Print(const Report& report, const OutputOptions& options, const Clock& clock) {
  const std::unique_ptr<Writer> writer = NewWriter(options, clock);
  writer->Head(report.head);
  for (const Table& table : report.tables) {
    writer->BeginTable(table.name, table.columns);
    for (const Row& row : table.rows) {
      writer->AddRow(row);
    }
    writer->EndTable();
  }
  writer->Finish(report.notes);
}

}  // namespace zenithor::almanac
