#include "values/guide_store.h"

#include <cmath>

#include "ephemeris/cosine_sum.h"

namespace zenithor {

namespace {

constexpr double kLeastAmplitude = 3e-7;  // [rad] or [au]
constexpr double kFarthest = 4.0;         // [millennia] from J2000.0
constexpr std::uint64_t kGuideMark = 0x6775696465ULL;

// Copies the terms that reach the threshold; false when there is no room for them.
bool TakeTerms(const BodySeries& full, double threshold, SeriesTerm* terms, BodySeries& guide) {
  guide.term_count = 0;
  const SeriesTerm* term = full.terms;
  const SeriesTerm* const end = term + full.term_count;
  for (std::size_t s = 0; s < kSeriesCount; ++s) {
    double reach = 1.0;
    for (std::size_t power = 0; power < s % kPowerCount; ++power) {
      reach *= kFarthest;
    }
    std::int16_t taken = 0;
    for (std::int32_t k = 0; k < full.index.series[s].term_count && term != end; ++k, ++term) {
      if (!(std::fabs(term->amplitude) * reach >= threshold)) {
        continue;
      }
      if (guide.term_count == kMostGuideTerms) {
        return false;
      }
      terms[guide.term_count] = *term;
      ++guide.term_count;
      ++taken;
    }
    guide.index.series[s] = {0, taken};
  }
  return true;
}

}  // namespace

void MakeGuide(const EphemerisStore& full, EphemerisStore& guide, GuideRooms& rooms) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    BodySeries& body = guide.bodies[slot];
    body = {};
    if (!IsLoaded(full, slot)) {
      continue;
    }
    double threshold = kLeastAmplitude;
    while (!TakeTerms(full.bodies[slot], threshold, rooms.terms[slot], body) &&
           std::isfinite(threshold)) {
      threshold *= 2.0;
    }
    if (ArrangedSize(body.index, body.term_count) <= sizeof rooms.arranged[slot]) {
      body.tracks =
          ArrangeTerms(rooms.terms[slot], body.term_count, body.index, rooms.arranged[slot]);
    }
    body.terms = rooms.terms[slot];
    body.fingerprint = full.bodies[slot].fingerprint ^ kGuideMark;
  }
}

}  // namespace zenithor
