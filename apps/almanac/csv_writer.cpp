#include <fmt/core.h>

#include "console.h"
#include "writers.h"

namespace zenithor::almanac {

namespace {

void AppendQuoted(const std::string& field, std::string& line) {
  if (field.find_first_of(",\"\r\n") == std::string::npos) {
    line += field;
    return;
  }
  line += '"';
  for (const char c : field) {
    line += c == '"' ? "\"\"" : std::string(1, c);
  }
  line += '"';
}

class CsvWriter : public Writer {
 public:
  CsvWriter(const Clock& clock, bool notes) : clock_(clock), notes_(notes) {}

  void Head(const std::vector<std::string>& lines) override { WriteNotes(lines); }

  void BeginTable(const std::string& /*name*/, const std::vector<Column>& columns) override {
    if (++tables_ > 1) {
      return;
    }
    columns_ = columns;
    std::string line;
    for (const Column& column : columns_) {
      const bool by_clock =
          column.kind == Column::Kind::kMoment || column.kind == Column::Kind::kTimeOfDay;
      const std::string& unit = by_clock ? clock_.unit : column.unit;
      line += line.empty() ? "" : ",";
      AppendQuoted(unit.empty() ? column.name : fmt::format("{} [{}]", column.name, unit), line);
    }
    WriteOut(line + "\n");
  }

  void AddRow(const Row& row) override {
    if (tables_ > 1) {
      return;
    }
    line_.clear();
    for (std::size_t k = 0; k < columns_.size(); ++k) {
      line_ += k == 0 ? "" : ",";
      if (k < row.size()) {
        AppendCell(row[k], columns_[k]);
      }
    }
    line_ += '\n';
    WriteOut(line_);
  }

  void EndTable() override {}

  void Finish(const std::vector<std::string>& notes) override {
    WriteNotes(notes);
    FlushOut();
  }

 private:
  void AppendCell(const Cell& cell, const Column& column) {
    if (const auto* const number = std::get_if<double>(&cell)) {
      fmt::format_to(std::back_inserter(line_), "{:.{}f}", *number, column.decimals);
    } else if (const auto* const text = std::get_if<std::string>(&cell)) {
      AppendQuoted(*text, line_);
    } else if (const auto* const moment = std::get_if<Moment>(&cell)) {
      line_ +=
          column.kind == Column::Kind::kDate ? DateText(clock_, moment->day) : Shown(moment->day);
    }
  }

  // Rows of one moment follow one another.
  const std::string& Shown(double day) {
    if (day != shown_day_ || shown_.empty()) {
      shown_day_ = day;
      shown_ = MomentText(clock_, day);
    }
    return shown_;
  }

  void WriteNotes(const std::vector<std::string>& lines) const {
    for (const std::string& line : lines) {
      if (notes_) {
        WriteOut("# " + line + "\n");
      }
    }
  }

  Clock clock_;
  bool notes_;
  std::vector<Column> columns_;
  std::string line_;
  double shown_day_ = 0.0;
  std::string shown_;
  int tables_ = 0;
};

}  // namespace

std::unique_ptr<Writer> NewCsvWriter(const Clock& clock, bool notes) {
  return std::make_unique<CsvWriter>(clock, notes);
}

}  // namespace zenithor::almanac
