#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace zenithor::almanac {

// Seasons, phases and eclipses, in the words of the command line. Both libraries number them alike.

enum class Family { kSeasons, kPhases, kSolarEclipses, kLunarEclipses };

struct EventKind {
  Family family;
  int block;         // its number
  const char* slug;  // how the command line names it
  const char* name;
};

const std::vector<EventKind>& EventKinds();

// The kind of a number; it must be that of one.
const EventKind& EventKindOf(int number);

// All words: seasons, phases, eclipses, solar-eclipses, lunar-eclipses, all, then the single kinds.
std::vector<std::string> KindWords();

// The set of kinds that a word names, bit k for kind k; throws Failure with the nearest word.
std::uint32_t KindSetOf(const std::string& option, const std::string& word);

// Gives `command` --kind, which takes several. `set` stays as it is without the option.
CLI::Option* AddKindOption(CLI::App& command, std::uint32_t& set);

}  // namespace zenithor::almanac
