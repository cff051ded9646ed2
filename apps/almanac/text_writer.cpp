#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "console.h"
#include "writers.h"

namespace zenithor::almanac {

namespace {

constexpr char kNothing[] = "-";
constexpr std::size_t kGap = 2;

// So many rows are looked at before the widths of the columns are settled.
constexpr std::size_t kRowsAhead = 256;

constexpr char kBold[] = "\x1b[1m";
constexpr char kQuiet[] = "\x1b[2m";
constexpr char kRetrograde[] = "\x1b[31m";
constexpr char kPlain[] = "\x1b[0m";

// Letters, not bytes, of UTF-8.
std::size_t Letters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

std::string Padded(const std::string& text, std::size_t width, bool left) {
  const std::size_t letters = Letters(text);
  const std::string blanks(width > letters ? width - letters : 0, ' ');
  return left ? text + blanks : blanks + text;
}

// A sentence in lines of so many letters, 0 for no limit; what holds no blank stays whole.
std::vector<std::string> Wrapped(const std::string& sentence, std::size_t width) {
  if (width == 0 || Letters(sentence) <= width) {
    return {sentence};
  }
  std::vector<std::string> lines;
  for (const std::string& word : CLI::detail::split(sentence, ' ')) {
    if (!lines.empty() && Letters(lines.back()) + 1 + Letters(word) <= width) {
      lines.back() += " " + word;
    } else {
      lines.push_back(word);
    }
  }
  return lines;
}

// The lines of a heading: the words of the name, then the unit.
std::vector<std::string> HeadingLines(const Column& column, const std::string& unit) {
  if (!column.has_heading) {
    return {""};
  }
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
  lines.push_back(unit);
  return lines;
}

class TextWriter : public Writer {
 public:
  TextWriter(const Clock& clock, std::size_t width, bool colour)
      : clock_(clock), width_(width), colour_(colour) {}

  void Head(const std::vector<std::string>& lines) override {
    for (std::size_t k = 0; k < lines.size(); ++k) {
      WriteSentence(lines[k], k == 0 ? kBold : "");
    }
  }

  void BeginTable(const std::string& /*name*/, const std::vector<Column>& columns) override {
    columns_ = columns;
    rows_.clear();
    settled_ = false;
  }

  void AddRow(const Row& row) override {
    if (settled_) {
      WriteRow(row);
      return;
    }
    rows_.push_back(row);
    if (rows_.size() == kRowsAhead) {
      Settle();
    }
  }

  void EndTable() override {
    if (!settled_) {
      Settle();
    }
  }

  void Finish(const std::vector<std::string>& notes) override {
    std::vector<std::string> all = notes;
    if (!left_out_.empty()) {
      all.push_back("No room for " + CLI::detail::join(left_out_, ", ") +
                    "; --width 0 shows all, so does --format csv.");
    }
    if (!all.empty()) {
      WriteOut("\n");
    }
    for (const std::string& line : all) {
      WriteSentence(line, kQuiet);
    }
    FlushOut();
  }

 private:
  void WriteSentence(const std::string& sentence, const char* style) const {
    for (const std::string& line : Wrapped(sentence, width_)) {
      WriteLine(line, style);
    }
  }

  void WriteLine(const std::string& line, const char* style) const {
    WriteOut(colour_ && style[0] != '\0' ? style + line + kPlain + "\n" : line + "\n");
  }

  static bool StandsLeft(const Column& column) { return column.kind != Column::Kind::kNumber; }

  std::string CellText(const Cell& cell, const Column& column) const {
    if (const auto* const number = std::get_if<double>(&cell)) {
      return fmt::format("{:.{}f}", *number, narrow_ ? column.narrow_decimals : column.decimals);
    }
    if (const auto* const text = std::get_if<std::string>(&cell)) {
      return *text;
    }
    if (const auto* const moment = std::get_if<Moment>(&cell)) {
      if (column.kind == Column::Kind::kTimeOfDay) {
        return TimeOfDayText(clock_, moment->day);
      }
      return column.kind == Column::Kind::kDate ? DateText(clock_, moment->day)
                                                : MomentText(clock_, moment->day, narrow_ ? 60 : 1);
    }
    return kNothing;
  }

  std::string UnitText(const Column& column) const {
    return column.kind == Column::Kind::kMoment ? clock_.unit : column.unit;
  }

  std::size_t LeastWidth(const Column& column) const {
    if (column.kind == Column::Kind::kMoment) {
      return column.width - (narrow_ ? 3 : 0);
    }
    const int decimals = narrow_ ? column.narrow_decimals : column.decimals;
    return column.kind == Column::Kind::kNumber && decimals > 0
               ? column.width + 1 + static_cast<std::size_t>(decimals)
               : column.width;
  }

  // The widths of the columns shown, by the rows at hand.
  void Measure() {
    widths_.clear();
    for (const std::size_t k : shown_) {
      std::size_t widest = LeastWidth(columns_[k]);
      for (const std::string& line : HeadingLines(columns_[k], UnitText(columns_[k]))) {
        widest = std::max(widest, Letters(line));
      }
      for (const Row& row : rows_) {
        widest = std::max(widest, Letters(CellText(row[k], columns_[k])));
      }
      widths_.push_back(widest);
    }
  }

  bool Fits() const {
    std::size_t sum = 0;
    for (const std::size_t width : widths_) {
      sum += width + kGap;
    }
    return width_ == 0 || sum <= width_ + kGap;
  }

  void Settle() {
    settled_ = true;
    narrow_ = false;
    shown_.clear();
    for (std::size_t k = 0; k < columns_.size(); ++k) {
      if (columns_[k].in_text) {
        shown_.push_back(k);
      }
    }
    Measure();
    if (!Fits()) {
      narrow_ = true;
      Measure();
    }
    std::vector<std::string> left_out;
    while (!Fits() && shown_.size() > 2) {
      left_out.insert(left_out.begin(), columns_[shown_.back()].name);
      shown_.pop_back();
      widths_.pop_back();
    }
    left_out_.insert(left_out_.end(), left_out.begin(), left_out.end());
    WriteOut("\n");
    WriteHeading();
    for (const Row& row : rows_) {
      WriteRow(row);
    }
    rows_.clear();
  }

  void WriteHeading() {
    std::vector<std::vector<std::string>> headings;
    std::size_t lines = 0;
    bool any_unit = false;
    for (const std::size_t k : shown_) {
      headings.push_back(HeadingLines(columns_[k], UnitText(columns_[k])));
      lines = std::max(lines, headings.back().size());
      any_unit = any_unit || !headings.back().back().empty();
    }
    for (std::size_t line = 0; line < lines - (any_unit ? 0 : 1); ++line) {
      std::string text;
      for (std::size_t k = 0; k < shown_.size(); ++k) {
        // Words stand on the last lines, the unit below them.
        const std::size_t above = lines - headings[k].size();
        text += std::string(k == 0 ? 0 : kGap, ' ');
        text += Padded(line < above ? "" : headings[k][line - above], widths_[k],
                       StandsLeft(columns_[shown_[k]]));
      }
      text.erase(text.find_last_not_of(' ') + 1);
      WriteLine(text, kBold);
    }
  }

  void WriteRow(const Row& row) const {
    std::string text;
    for (std::size_t k = 0; k < shown_.size(); ++k) {
      const Column& column = columns_[shown_[k]];
      const std::string word = CellText(row[shown_[k]], column);
      std::string cell = Padded(word, widths_[k], StandsLeft(column));
      if (colour_ && (word == "retrograde" || word == "R")) {
        cell.insert(0, kRetrograde).append(kPlain);
      }
      text += std::string(k == 0 ? 0 : kGap, ' ') + cell;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    WriteOut(text + "\n");
  }

  Clock clock_;
  std::size_t width_;
  bool colour_;
  bool narrow_ = false;
  bool settled_ = false;
  std::vector<Column> columns_;
  std::vector<std::size_t> shown_;
  std::vector<std::size_t> widths_;
  std::vector<Row> rows_;
  std::vector<std::string> left_out_;
};

}  // namespace

std::unique_ptr<Writer> NewTextWriter(const Clock& clock, std::size_t width, bool colour) {
  return std::make_unique<TextWriter>(clock, width, colour);
}

}  // namespace zenithor::almanac
