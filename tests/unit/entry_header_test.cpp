// The public header, written by hand, against the one list of exports.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "zenithor/zenithor.h"

namespace zenithor {
namespace {

// The prototypes of the five shapes.
using Position = double (*)(double, double, double, double, double, double, std::int32_t,
                            BodyPositionRecord*);
using SelectedEvent = double (*)(double, double, double, std::int32_t, EventRecord*);
using AnyEclipse = double (*)(double, double, double, EventRecord*);
using EclipseOfKind = double (*)(double, EventRecord*);
using Rising = double (*)(double, double, double, double, double, std::int32_t, std::int32_t);

// Each name of the list is declared with the prototype of its shape, and the loader holds a pointer
// of that type by the same name.
#define TESTS_HOLD(name, Shape)                                                       \
  static_assert(std::is_same_v<decltype(&::name), Shape>, "the prototype of " #name); \
  static_assert(std::is_same_v<decltype(ZenithorLibrary::name), Shape>, "the pointer to " #name);
#define EXPORT_POSITION(name) TESTS_HOLD(name, Position)
#define EXPORT_SELECTED_EVENT(name, block) TESTS_HOLD(name, SelectedEvent)
#define EXPORT_ANY_ECLIPSE(name, block) TESTS_HOLD(name, AnyEclipse)
#define EXPORT_ECLIPSE_OF_KIND(name, block) TESTS_HOLD(name, EclipseOfKind)
#define EXPORT_RISING(name) TESTS_HOLD(name, Rising)
#include "entry/export_list.inc"

// Each event reads back one of its record's blocks.
#define EXPORT_SELECTED_EVENT(name, block) \
  static_assert((block) >= 0 && (block) < ZENITHOR_BLOCK_COUNT, "the block of " #name);
#define EXPORT_ANY_ECLIPSE(name, block) EXPORT_SELECTED_EVENT(name, block)
#define EXPORT_ECLIPSE_OF_KIND(name, block) EXPORT_SELECTED_EVENT(name, block)
#include "entry/export_list.inc"

std::vector<std::string> ListedNames() {
  std::vector<std::string> names = {
#define EXPORT_POSITION(name) #name,
#define EXPORT_SELECTED_EVENT(name, block) #name,
#define EXPORT_ANY_ECLIPSE(name, block) #name,
#define EXPORT_ECLIPSE_OF_KIND(name, block) #name,
#define EXPORT_RISING(name) #name,
#include "entry/export_list.inc"
  };
  std::sort(names.begin(), names.end());
  return names;
}

std::string HeaderText() {
  std::ifstream file(ZENITHOR_SOURCE_DIR "/include/zenithor/zenithor.h");
  if (!file) {
    throw std::runtime_error("no public header");
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Takes out whatever begins with one text and ends with another.
void EraseAll(std::string& text, const std::string& first, const std::string& last) {
  for (std::size_t at = text.find(first); at != std::string::npos; at = text.find(first, at)) {
    const std::size_t end = text.find(last, at);
    text.erase(at, end == std::string::npos ? end : end + last.size() - at);
  }
}

// The header as the compiler reads it, both branches of every condition: without comments and
// directives, and without the brackets that C++ puts around all of it.
std::string Declarations() {
  std::string text = HeaderText();
  EraseAll(text, "/*", "*/");
  EraseAll(text, "\\\n", "\n");
  std::string kept;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string line = text.substr(at, end - at);
    if (line.find_first_not_of(' ') != line.find('#') || line.find('#') == std::string::npos) {
      kept += line + '\n';
    }
    at = end + 1;
  }
  EraseAll(kept, "extern \"C\" {", "\n");
  return kept;
}

// The declarations and definitions that stand in no bracket, each on one line; a definition's or a
// record's body is left out.
std::vector<std::string> TopLevel() {
  std::vector<std::string> statements;
  std::string statement;
  int depth = 0;
  for (const char c : Declarations()) {
    if (c == '{') {
      ++depth;
    } else if (c == '}') {
      depth = std::max(0, depth - 1);
      const bool of_function = statement.find("ZENITHOR_INLINE") == 0;
      if (depth == 0 && of_function) {
        statements.push_back(statement);
        statement.clear();
      }
    } else if (depth == 0 && c == ';') {
      statements.push_back(statement);
      statement.clear();
    } else if (depth == 0 && std::isspace(static_cast<unsigned char>(c)) == 0) {
      statement += c;
    } else if (depth == 0 && !statement.empty() && statement.back() != ' ') {
      statement += ' ';
    }
  }
  return statements;
}

bool BeginsWith(const std::string& text, const std::string& beginning) {
  return text.compare(0, beginning.size(), beginning) == 0;
}

// What stands between two texts; fails where they do not.
std::string Between(const std::string& text, const std::string& before, const std::string& after) {
  const std::size_t begin = text.find(before);
  const std::size_t end = text.find(after, begin + before.size());
  if (begin == std::string::npos || end == std::string::npos) {
    throw std::runtime_error("no " + before + " ... " + after + " in: " + text);
  }
  return text.substr(begin + before.size(), end - begin - before.size());
}

TEST(PublicHeader, DeclaresTheListedExportsByTheirExportedNamesAndNothingElse) {
  std::vector<std::string> names;
  for (const std::string& statement : TopLevel()) {
    if (BeginsWith(statement, "double ZENITHOR_CALL ")) {
      names.push_back(Between(statement, "ZENITHOR_CALL ", "("));
      EXPECT_EQ(Between(statement, "ZENITHOR_EXPORTED_AS(\"", "\")"), "_" + names.back());
    } else {
      EXPECT_TRUE(BeginsWith(statement, "typedef ") || BeginsWith(statement, "enum ") ||
                  BeginsWith(statement, "ZENITHOR_STATIC_ASSERT(") ||
                  BeginsWith(statement, "ZENITHOR_INLINE "))
          << statement;
    }
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, ListedNames());
}

TEST(PublicHeader, ItsLoaderHoldsTheListedExports) {
  std::vector<std::string> names;
  std::string members = Between(Declarations(), "typedef struct ZenithorLibrary {", "}");
  for (std::size_t end = members.find(';'); end != std::string::npos; end = members.find(';')) {
    names.push_back(members.substr(members.find_last_of(" *", end) + 1,
                                   end - members.find_last_of(" *", end) - 1));
    members.erase(0, end + 1);
  }
  ASSERT_FALSE(names.empty());
  EXPECT_EQ(names.front(), "Handle");
  names.erase(names.begin());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, ListedNames());
  EXPECT_EQ(sizeof(ZenithorLibrary), (1 + names.size()) * sizeof(void*));
}

TEST(PublicHeader, ItsLoaderFindsTheListedExports) {
  std::vector<std::string> names;
  std::string body = Declarations();
  for (std::size_t at = body.find("ZENITHOR_FIND("); at != std::string::npos;
       at = body.find("ZENITHOR_FIND(")) {
    body.erase(0, at);
    names.push_back(Between(body, "ZENITHOR_FIND(", ")"));
    body.erase(0, 1);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, ListedNames());
  // By the exported name, into the member of the same name.
  EXPECT_NE(HeaderText().find("#define ZENITHOR_FIND(name) ZenithorFind(handle, \"_\" #name, "
                              "&library->name, sizeof library->name)\n"),
            std::string::npos);
}

}  // namespace
}  // namespace zenithor
