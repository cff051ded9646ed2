#pragma once

#include <cmath>
#include <cstddef>
#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zenithor::golden {

// A file of golden answers as text: columns with tabs between them, in blocks with an empty line
// between them. tests/golden/README.md describes such a file for people.
//
//   # cases 649                    how many rows there are
//   # tolerance COLUMN...: NUMBER [or NUMBER of the value]
//                                  how far these columns' answers may be off from here on; "all"
//                                  stands for every column of the answer
//   # any other text               a sentence; each block begins with one
//   NAME [UNIT]<tab>NAME...        the heading: the columns of the call, then those of the answer
//   CELL<tab>CELL...               a case

// What is wrong with a file, and where: "FILE:LINE: what". Line 0 is that of a file without lines.
class Refused : public std::runtime_error {
 public:
  Refused(const std::string& path, int line, const std::string& what);
};

// How far an answer may be from the expected value: `absolute`, or `relative` times the value where
// that is more. In the unit of the column.
struct Tolerance {
  double absolute = 0.0;
  double relative = 0.0;

  double For(double expected) const { return std::fmax(absolute, relative * std::fabs(expected)); }
};

// The columns of one kind of file: names and units as the heading has them.
struct Layout {
  std::vector<std::string> call;
  std::vector<std::string> answer;

  std::size_t ColumnCount() const { return call.size() + answer.size(); }
};

struct Row {
  int line;
  std::vector<std::string> cells;     // one per column
  std::vector<Tolerance> tolerances;  // one per column of the answer
};

struct Table {
  std::string path;
  std::size_t layout;  // which of the layouts the heading is of
  std::vector<Row> rows;
};

// Reads a file whose heading is one of `layouts`; `path` is what messages call it. Throws Refused
// where it is no such file, or holds no case or another number of cases than it says.
Table ReadTable(std::istream& text, const std::string& path, const std::vector<Layout>& layouts);

// The parts of a text between separators.
std::vector<std::string> Split(const std::string& text, char separator);

// The name of a column, of its heading "NAME [UNIT]".
std::string NameOf(const std::string& heading);

// Whether all of a text is one finite number, which is then in `value`.
bool ReadNumber(const std::string& text, double& value);
bool ReadNumber(const std::string& text, int& value);

}  // namespace zenithor::golden
