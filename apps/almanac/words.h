#pragma once

#include <string>
#include <vector>

namespace zenithor::almanac {

// Without blanks around it, in small letters, with hyphens for underscores.
std::string Plain(const std::string& word);

// The one of `names` that the word most resembles, by letters that are wrong, missing, too many or
// exchanged; empty where none comes near. Damerau, "A technique for computer detection and
// correction of spelling errors", Communications of the ACM 7 (1964); the distance in which no
// letter is changed twice.
std::string NearestOf(const std::string& word, const std::vector<std::string>& names);

// ": did you mean mars?", or ": unknown; there are sun, moon" where nothing comes near.
std::string Guess(const std::string& word, const std::vector<std::string>& names);

}  // namespace zenithor::almanac
