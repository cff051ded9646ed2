#include "report.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "options.h"

namespace zenithor::almanac {

namespace {

constexpr char kNothing[] = "-";

std::string Number(double value, int decimals) { return fmt::format("{:.{}f}", value, decimals); }

std::string CellText(const Cell& cell, const Column& column, const char* nothing) {
  if (const auto* const number = std::get_if<double>(&cell)) {
    return Number(*number, column.decimals);
  }
  const auto* const text = std::get_if<std::string>(&cell);
  return text == nullptr ? nothing : *text;
}

// The lines of a heading: the words of the name, then the unit.
std::vector<std::string> HeadingLines(const Column& column) {
  std::vector<std::string> lines;
  std::string word;
  for (const char c : column.name + "_") {
    if (c != '_') {
      word += c;
    } else {
      lines.push_back(word);
      word.clear();
    }
  }
  lines.push_back(column.unit);
  return lines;
}

bool IsText(const Table& table, std::size_t column) {
  return std::any_of(table.rows.begin(), table.rows.end(), [column](const auto& row) {
    return std::holds_alternative<std::string>(row[column]);
  });
}

void AppendAligned(const std::vector<std::string>& words, const Table& table,
                   const std::vector<std::size_t>& width, std::string& text) {
  std::string line;
  for (std::size_t k = 0; k < words.size(); ++k) {
    line += k == 0 ? "" : "  ";
    line += IsText(table, k) ? fmt::format("{:<{}}", words[k], width[k])
                             : fmt::format("{:>{}}", words[k], width[k]);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + "\n";
}

// A row may end early: its last cell is then text that takes the rest of the line.
void AppendTextTable(const Table& table, std::string& text) {
  std::vector<std::vector<std::string>> headings;
  std::size_t heading_lines = 0;
  for (const Column& column : table.columns) {
    headings.push_back(HeadingLines(column));
    heading_lines = std::max(heading_lines, headings.back().size());
  }
  std::vector<std::size_t> width;
  for (std::size_t k = 0; k < table.columns.size(); ++k) {
    std::size_t widest = 0;
    for (const std::string& line : headings[k]) {
      widest = std::max(widest, line.size());
    }
    for (const auto& row : table.rows) {
      widest = std::max(widest, CellText(row[k], table.columns[k], kNothing).size());
    }
    width.push_back(widest);
    // The unit stands on the last line.
    headings[k].insert(headings[k].begin(), heading_lines - headings[k].size(), "");
  }
  for (std::size_t line = 0; line < heading_lines; ++line) {
    std::vector<std::string> words;
    words.reserve(headings.size());
    for (const auto& heading : headings) {
      words.push_back(heading[line]);
    }
    AppendAligned(words, table, width, text);
  }
  for (const auto& row : table.rows) {
    std::vector<std::string> words;
    words.reserve(row.size());
    for (std::size_t k = 0; k < row.size(); ++k) {
      words.push_back(CellText(row[k], table.columns[k], kNothing));
    }
    AppendAligned(words, table, width, text);
  }
}

std::string RenderText(const Report& report) {
  std::string text;
  for (const std::string& line : report.head) {
    text += line + "\n";
  }
  for (const Table& table : report.tables) {
    text += "\n";
    AppendTextTable(table, text);
  }
  if (!report.notes.empty()) {
    text += "\n";
  }
  for (const std::string& line : report.notes) {
    text += line + "\n";
  }
  return text;
}

std::string Quoted(const std::string& field) {
  if (field.find_first_of(",\"\n") == std::string::npos) {
    return field;
  }
  std::string quoted = "\"";
  for (const char c : field) {
    quoted += c == '"' ? "\"\"" : std::string(1, c);
  }
  return quoted + "\"";
}

std::string RenderCsv(const Report& report) {
  std::string text;
  for (const std::string& line : report.head) {
    text += "# " + line + "\n";
  }
  for (const Table& table : report.tables) {
    text += &table == &report.tables.front() ? "" : "\n";
    for (std::size_t k = 0; k < table.columns.size(); ++k) {
      const Column& column = table.columns[k];
      text += k == 0 ? "" : ",";
      text += Quoted(column.unit.empty() ? column.name
                                         : fmt::format("{} [{}]", column.name, column.unit));
    }
    text += "\n";
    for (const auto& row : table.rows) {
      for (std::size_t k = 0; k < row.size(); ++k) {
        text += k == 0 ? "" : ",";
        text += Quoted(CellText(row[k], table.columns[k], ""));
      }
      text += "\n";
    }
  }
  for (const std::string& line : report.notes) {
    text += "# " + line + "\n";
  }
  return text;
}

std::string RenderJson(const Report& report) {
  using Json = nlohmann::ordered_json;
  Json tables = Json::array();
  for (const Table& table : report.tables) {
    Json units = Json::object();
    for (const Column& column : table.columns) {
      if (!column.unit.empty()) {
        units[column.name] = column.unit;
      }
    }
    Json rows = Json::array();
    for (const auto& row : table.rows) {
      Json object = Json::object();
      for (std::size_t k = 0; k < row.size(); ++k) {
        Json& value = object[table.columns[k].name];
        if (const auto* const number = std::get_if<double>(&row[k])) {
          value = *number;
        } else if (const auto* const text = std::get_if<std::string>(&row[k])) {
          value = *text;
        }
      }
      rows.push_back(std::move(object));
    }
    tables.push_back({{"name", table.name}, {"units", units}, {"rows", rows}});
  }
  const Json json = {{"head", report.head}, {"tables", tables}, {"notes", report.notes}};
  return json.dump(2) + "\n";
}

}  // namespace

void AddFormatOption(CLI::App& command, Format& format) {
  command
      .add_option_function<std::string>(
          "--format",
          [&format](const std::string& word) {
            constexpr Format kFormats[] = {Format::kText, Format::kCsv, Format::kJson};
            format = kFormats[ChoiceOf("--format", word, {"text", "csv", "json"})];
          },
          "text, csv or json; else text")
      ->type_name("FORMAT");
}

void AddNotAvailable(const std::vector<std::string>& bodies, Report& report) {
  if (bodies.empty()) {
    return;
  }
#ifdef _WIN32
  constexpr char kFolder[] = "tavvin_files\\archive in the application-data folder (%APPDATA%)";
#else
  constexpr char kFolder[] =
      "tavvin_files/archive in $XDG_DATA_HOME (without it ~/.local/share) or in $XDG_DATA_DIRS";
#endif
  report.notes.push_back("Not available: " + CLI::detail::join(bodies, ", ") + ".");
  report.notes.push_back(
      "The library has no data for them: karvo.ndx and karvo.dat, which make data builds, belong "
      "in");
  report.notes.push_back(fmt::format("{}.", kFolder));
}

std::string Render(const Report& report, Format format) {
  switch (format) {
    case Format::kCsv:
      return RenderCsv(report);
    case Format::kJson:
      return RenderJson(report);
    case Format::kText:
      break;
  }
  return RenderText(report);
}

}  // namespace zenithor::almanac
