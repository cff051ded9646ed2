#include "words.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace zenithor::almanac {

namespace {

std::size_t Distance(const std::string& a, const std::string& b) {
  const std::size_t width = b.size() + 1;
  std::vector<std::size_t> table((a.size() + 1) * width);
  const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
    return table[i * width + j];
  };
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        at(i, j) = i + j;
        continue;
      }
      const std::size_t changed = at(i - 1, j - 1) + (a[i - 1] == b[j - 1] ? 0 : 1);
      at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, changed});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
      }
    }
  }
  return table.back();
}

}  // namespace

std::string Plain(const std::string& word) {
  std::string trimmed = word;
  std::string plain = CLI::detail::to_lower(CLI::detail::trim(trimmed));
  std::replace(plain.begin(), plain.end(), '_', '-');
  return plain;
}

std::string NearestOf(const std::string& word, const std::vector<std::string>& names) {
  constexpr std::size_t kLongestWord = 40;
  const std::string plain = Plain(word);
  if (plain.empty() || plain.size() > kLongestWord) {
    return "";
  }
  std::string nearest;
  std::size_t least = 1 + std::max<std::size_t>(1, plain.size() / 3);
  for (const std::string& name : names) {
    std::size_t distance = Distance(plain, Plain(name));
    // A beginning that no other comes near: "merc".
    if (plain.size() >= 3 && Plain(name).rfind(plain, 0) == 0) {
      distance = std::min<std::size_t>(distance, 1);
    }
    if (distance < least) {
      least = distance;
      nearest = name;
    }
  }
  return nearest;
}

std::string Guess(const std::string& word, const std::vector<std::string>& names) {
  const std::string nearest = NearestOf(word, names);
  return nearest.empty() ? ": unknown; there are " + CLI::detail::join(names, ", ")
                         : ": did you mean " + nearest + "?";
}

}  // namespace zenithor::almanac
