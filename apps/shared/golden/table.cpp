#include "golden/table.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace zenithor::golden {

namespace {

constexpr const char* kAllColumns = "all";

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

// What stands behind the "#" of a comment.
std::string CommentText(const std::string& line) {
  const std::size_t begin = line.find_first_not_of("# ");
  return begin == std::string::npos ? "" : line.substr(begin);
}

template <class Number>
bool ReadWholeText(const std::string& text, Number& value) {
  const char* const end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, value);
  return read.ec == std::errc() && read.ptr == end;
}

#if defined(_LIBCPP_VERSION) && !defined(__cpp_lib_to_chars)
// LLVM's library cannot read a double so. What strtod would take beyond it is refused first.
bool ReadWholeText(const std::string& text, double& value) {
  if (text.empty() || text.front() == '+' ||
      text.find_first_not_of("0123456789.eE+-") != std::string::npos) {
    return false;
  }
  char* end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size();
}
#endif

class Reader {
 public:
  Reader(const std::string& path, const std::vector<Layout>& layouts) : layouts_(layouts) {
    table_.path = path;
  }

  Table Read(std::istream& text) {
    for (std::string line; std::getline(text, line);) {
      ++line_;
      if (!line.empty() && line.back() == '\r') {
        line.pop_back();
      }
      ReadLine(line);
    }
    CheckCount();
    return std::move(table_);
  }

 private:
  [[noreturn]] void Refuse(const std::string& what) const {
    throw Refused(table_.path, line_, what);
  }

  void ReadLine(const std::string& line) {
    if (line.empty()) {
      block_has_sentence_ = false;
    } else if (line[0] == '#') {
      ReadComment(CommentText(line));
    } else if (layout_ == nullptr) {
      ReadHeading(Split(line, '\t'));
    } else {
      ReadRow(Split(line, '\t'));
    }
  }

  void ReadComment(const std::string& text) {
    if (StartsWith(text, "cases ")) {
      ReadCount(text.substr(6));
    } else if (StartsWith(text, "tolerance ")) {
      ReadTolerance(text.substr(10));
    } else if (!text.empty()) {
      block_has_sentence_ = true;
    }
  }

  void ReadCount(const std::string& text) {
    int count = 0;
    if (!ReadNumber(text, count) || count < 1) {
      Refuse("not a number of cases: " + Quoted(text));
    }
    if (count_.has_value()) {
      Refuse("the number of cases stands here again");
    }
    count_ = static_cast<std::size_t>(count);
  }

  // COLUMN...: NUMBER [or NUMBER of the value]
  void ReadTolerance(const std::string& text) {
    if (layout_ == nullptr) {
      Refuse("a tolerance before the heading");
    }
    const std::size_t colon = text.find(": ");
    if (colon == std::string::npos) {
      Refuse("a tolerance is written \"# tolerance COLUMN...: NUMBER\"");
    }
    const Tolerance tolerance = ToleranceOf(text.substr(colon + 2));
    for (const std::string& name : Split(text.substr(0, colon), ' ')) {
      bool known = false;
      for (std::size_t k = 0; k < tolerances_.size(); ++k) {
        if (name == kAllColumns || name == NameOf(layout_->answer[k])) {
          tolerances_[k] = tolerance;
          known = true;
        }
      }
      if (!known) {
        Refuse("a tolerance of " + Quoted(name) + ", which is no column of the answer");
      }
    }
  }

  Tolerance ToleranceOf(const std::string& text) const {
    const std::vector<std::string> words = Split(text, ' ');
    Tolerance tolerance;
    const bool relative = words.size() == 6 && words[1] == "or" && words[3] == "of" &&
                          words[4] == "the" && words[5] == "value";
    if ((words.size() != 1 && !relative) || !ReadNumber(words[0], tolerance.absolute) ||
        (relative && !ReadNumber(words[2], tolerance.relative)) || tolerance.absolute < 0.0 ||
        tolerance.relative < 0.0) {
      Refuse("not a tolerance: " + Quoted(text));
    }
    return tolerance;
  }

  void ReadHeading(const std::vector<std::string>& cells) {
    for (std::size_t which = 0; which < layouts_.size(); ++which) {
      const Layout& layout = layouts_[which];
      if (cells[0] == layout.call[0]) {
        CheckHeading(cells, layout);
        table_.layout = which;
        layout_ = &layout;
        tolerances_.resize(layout.answer.size());
        block_has_sentence_ = false;
        return;
      }
    }
    Refuse("not the heading of a file of golden answers: it begins with " + Quoted(cells[0]));
  }

  void CheckHeading(const std::vector<std::string>& cells, const Layout& layout) const {
    CheckColumns(cells, layout);
    for (std::size_t k = 0; k < cells.size(); ++k) {
      const std::size_t calls = layout.call.size();
      const std::string& expected = k < calls ? layout.call[k] : layout.answer[k - calls];
      if (cells[k] != expected) {
        Refuse("column " + std::to_string(k + 1) + " is headed " + Quoted(cells[k]) + ", not " +
               Quoted(expected));
      }
    }
  }

  void CheckColumns(const std::vector<std::string>& cells, const Layout& layout) const {
    if (cells.size() != layout.ColumnCount()) {
      Refuse(Counted(cells.size(), "column") + ", not " + std::to_string(layout.ColumnCount()));
    }
  }

  void ReadRow(const std::vector<std::string>& cells) {
    CheckColumns(cells, *layout_);
    if (!block_has_sentence_) {
      Refuse("a block of cases begins with a sentence that says why it exists");
    }
    Row row{line_, cells, {}};
    for (std::size_t k = 0; k < tolerances_.size(); ++k) {
      if (!tolerances_[k].has_value()) {
        Refuse("no tolerance is given for " + NameOf(layout_->answer[k]));
      }
      row.tolerances.push_back(*tolerances_[k]);
    }
    table_.rows.push_back(std::move(row));
  }

  void CheckCount() const {
    if (layout_ == nullptr) {
      Refuse("no heading");
    }
    if (table_.rows.empty()) {
      Refuse("no case");
    }
    if (!count_.has_value()) {
      Refuse("no line \"# cases " + std::to_string(table_.rows.size()) + "\"");
    }
    if (*count_ != table_.rows.size()) {
      Refuse(Counted(table_.rows.size(), "case") + ", not " + std::to_string(*count_));
    }
  }

  const std::vector<Layout>& layouts_;
  Table table_{};
  int line_ = 0;
  const Layout* layout_ = nullptr;
  std::optional<std::size_t> count_;
  std::vector<std::optional<Tolerance>> tolerances_;
  bool block_has_sentence_ = false;
};

}  // namespace

Refused::Refused(const std::string& path, int line, const std::string& what)
    : std::runtime_error(path + (line > 0 ? ":" + std::to_string(line) : "") + ": " + what) {}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find(separator, begin)) != std::string::npos;) {
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  parts.push_back(text.substr(begin));
  return parts;
}

std::string NameOf(const std::string& heading) { return heading.substr(0, heading.find(" [")); }

bool ReadNumber(const std::string& text, double& value) {
  return ReadWholeText(text, value) && std::isfinite(value);
}

bool ReadNumber(const std::string& text, int& value) { return ReadWholeText(text, value); }

Table ReadTable(std::istream& text, const std::string& path, const std::vector<Layout>& layouts) {
  return Reader(path, layouts).Read(text);
}

}  // namespace zenithor::golden
