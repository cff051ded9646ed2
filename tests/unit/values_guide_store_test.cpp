// The guide: the series of the planets cut down to their largest terms.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>

#include "support/full_store.h"
#include "values/guide_store.h"

namespace zenithor {
namespace {

// What is kept of a moment is kept by the fingerprint of the terms that it was summed from
// (moment_cache.h), so the two stores' must never be the same, nor those of two guides.
TEST(Guide, HasAFingerprintOfItsOwnWhateverThatOfTheFullSeriesIs) {
  EphemerisStore full = testing::FullStore();
  const auto rooms = std::make_unique<GuideRooms>();
  EphemerisStore guide;
  std::uint64_t before = 0;
  for (const std::uint64_t fingerprint :
       {std::uint64_t{0}, std::uint64_t{0xF0F0F0F0F0F0F0F0}, full.bodies[kEarthSlot].fingerprint,
        std::numeric_limits<std::uint64_t>::max()}) {
    full.bodies[kEarthSlot].fingerprint = fingerprint;
    MakeGuide(full, guide, *rooms);
    const std::uint64_t of_guide = guide.bodies[kEarthSlot].fingerprint;
    EXPECT_NE(of_guide, fingerprint);
    EXPECT_NE(of_guide, before);
    before = of_guide;
  }
}

}  // namespace
}  // namespace zenithor
