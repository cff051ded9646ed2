#include "kinds.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "options.h"
#include "zenithor/values.h"
#include "zenithor/zenithor.h"

namespace zenithor::almanac {

namespace {

struct SetWord {
  const char* slug;
  std::uint32_t set;
};

constexpr SetWord kSets[] = {
    {"seasons", ZENITHOR_KINDS_SEASONS},
    {"phases", ZENITHOR_KINDS_PHASES},
    {"eclipses", ZENITHOR_KINDS_SOLAR_ECLIPSES | ZENITHOR_KINDS_LUNAR_ECLIPSES},
    {"solar-eclipses", ZENITHOR_KINDS_SOLAR_ECLIPSES},
    {"lunar-eclipses", ZENITHOR_KINDS_LUNAR_ECLIPSES},
    {"all", ZENITHOR_KINDS_ALL}};

}  // namespace

const std::vector<EventKind>& EventKinds() {
  static const std::vector<EventKind> kinds = {
      {Family::kSeasons, ZENITHOR_BLOCK_MARCH_EQUINOX, "march-equinox", "March equinox"},
      {Family::kSeasons, ZENITHOR_BLOCK_JUNE_SOLSTICE, "june-solstice", "June solstice"},
      {Family::kSeasons, ZENITHOR_BLOCK_SEPTEMBER_EQUINOX, "september-equinox",
       "September equinox"},
      {Family::kSeasons, ZENITHOR_BLOCK_DECEMBER_SOLSTICE, "december-solstice",
       "December solstice"},
      {Family::kPhases, ZENITHOR_BLOCK_NEW_MOON, "new-moon", "new moon"},
      {Family::kPhases, ZENITHOR_BLOCK_FIRST_QUARTER, "first-quarter", "first quarter"},
      {Family::kPhases, ZENITHOR_BLOCK_FULL_MOON, "full-moon", "full moon"},
      {Family::kPhases, ZENITHOR_BLOCK_LAST_QUARTER, "last-quarter", "last quarter"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_TOTAL, "solar-total", "solar eclipse: total"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR, "solar-annular",
       "solar eclipse: annular"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL, "solar-annular-total",
       "solar eclipse: annular-total"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL, "solar-total-noncentral",
       "solar eclipse: total, non-central"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL, "solar-annular-noncentral",
       "solar eclipse: annular, non-central"},
      {Family::kSolarEclipses, ZENITHOR_BLOCK_SOLAR_PARTIAL, "solar-partial",
       "solar eclipse: partial"},
      {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_TOTAL, "lunar-total", "lunar eclipse: total"},
      {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_PARTIAL, "lunar-partial",
       "lunar eclipse: partial"},
      {Family::kLunarEclipses, ZENITHOR_BLOCK_LUNAR_PENUMBRAL, "lunar-penumbral",
       "lunar eclipse: penumbral"},
  };
  return kinds;
}

const EventKind& EventKindOf(int number) {
  const auto& kinds = EventKinds();
  return *std::find_if(kinds.begin(), kinds.end(),
                       [number](const EventKind& kind) { return kind.block == number; });
}

std::vector<std::string> KindWords() {
  std::vector<std::string> words;
  for (const SetWord& set : kSets) {
    words.emplace_back(set.slug);
  }
  for (const EventKind& kind : EventKinds()) {
    words.emplace_back(kind.slug);
  }
  return words;
}

std::uint32_t KindSetOf(const std::string& option, const std::string& word) {
  const std::size_t place = ChoiceOf(option, word, KindWords());
  return place < std::size(kSets)
             ? kSets[place].set
             : 1U << static_cast<unsigned>(EventKinds()[place - std::size(kSets)].block);
}

CLI::Option* AddKindOption(CLI::App& command, std::uint32_t& set) {
  return command
      .add_option_function<std::vector<std::string>>(
          "--kind",
          [&set](const std::vector<std::string>& words) {
            set = 0;
            for (const std::string& word : words) {
              set |= KindSetOf("--kind", word);
            }
          },
          "Only these: seasons, phases, eclipses, solar-eclipses, lunar-eclipses, or single kinds "
          "such as full-moon or solar-total; with commas or blanks between")
      ->delimiter(',')
      ->type_name("KIND");
}

}  // namespace zenithor::almanac
