#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "ephemeris/loader.h"
#include "ephemeris/moment_cache.h"
#include "ephemeris/series.h"
#include "support/full_store.h"
#include "support/same_bytes.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::SameBytes;

// A store whose slot 3 holds one term of L0, loaded from two files; released with the object.
class OneTermStore {
 public:
  OneTermStore() = default;
  OneTermStore(const OneTermStore&) = delete;
  OneTermStore& operator=(const OneTermStore&) = delete;
  ~OneTermStore() { std::free(const_cast<SeriesTerm*>(store_.bodies[kEarthSlot].terms)); }

  const EphemerisStore& Load(double amplitude) {
    std::free(const_cast<SeriesTerm*>(store_.bodies[kEarthSlot].terms));
    const std::string folder = ::testing::TempDir();
    const std::string index_name = folder + "/moment_cache.ndx";
    const std::string data_name = folder + "/moment_cache.dat";
    BodyIndexRecord record{};
    record.series[0].term_count = 1;
    const std::vector<BodyIndexRecord> index(kSlotCount, record);
    const SeriesTerm term{amplitude, 0.0, 0.0};
    Write(index_name, index.data(), index.size() * sizeof record);
    Write(data_name, &term, sizeof term);
    EXPECT_EQ(LoadBodySeries(store_, kEarthSlot, index_name.c_str(), data_name.c_str()),
              LoadStatus::kLoaded);
    return store_;
  }

 private:
  static void Write(const std::string& name, const void* bytes, std::size_t size) {
    std::FILE* const file = std::fopen(name.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fwrite(bytes, 1, size, file), size);
    std::fclose(file);
  }

  EphemerisStore store_;
};

TEST(MomentCache, GivesTheBitsOfAnUncachedCall) {
  MomentCache cache;
  // Moments come back at distances below and above the number of places that are kept.
  for (int call = 0; call < 400; ++call) {
    const double centuries = -20.0 + 0.37 * ((call * call) % 7) + (call % 3 == 0 ? 0.0 : 1.0);
    const int slot = call % 5 == 0 ? kEarthJ2000Slot : kEarthSlot;
    EXPECT_TRUE(SameBytes(CachedSeries(FullStore(), slot, centuries, cache),
                          EvaluateSeries(FullStore(), slot, centuries)));
    EXPECT_TRUE(SameBytes(CachedSunGeocentric(FullStore(), slot, centuries, cache),
                          EvaluateSunGeocentric(FullStore(), slot, centuries)));
    EXPECT_TRUE(SameBytes(CachedNutation(centuries, cache), Nutation(centuries)));
  }
}

TEST(MomentCache, AnswersTheLastMomentsFromWhatItKept) {
  MomentCache cache;
  for (unsigned k = 0; k < MomentCache::kPlaceCount; ++k) {
    CachedSeries(FullStore(), kEarthSlot, k, cache);
  }
  for (unsigned k = 0; k < MomentCache::kPlaceCount; ++k) {
    CachedNutation(k, cache);
  }
  for (MomentCache::KeptPlace& kept : cache.places) {
    kept.place.radius = 1000.0 + kept.centuries;
  }
  for (MomentCache::KeptNutation& kept : cache.nutations) {
    kept.angles.dpsi = 2000.0 + kept.centuries;
  }
  for (unsigned k = 0; k < MomentCache::kPlaceCount; ++k) {
    EXPECT_EQ(CachedSeries(FullStore(), kEarthSlot, k, cache).radius, 1000.0 + k);
    EXPECT_EQ(CachedNutation(k, cache).dpsi, 2000.0 + k);
  }

  // One moment more displaces the oldest alone.
  CachedSeries(FullStore(), kEarthSlot, 9.0, cache);
  EXPECT_LT(CachedSeries(FullStore(), kEarthSlot, 9.0, cache).radius, 2.0);
  EXPECT_EQ(CachedSeries(FullStore(), kEarthSlot, 1.0, cache).radius, 1001.0);
  EXPECT_LT(CachedSeries(FullStore(), kEarthSlot, 0.0, cache).radius, 2.0);
}

TEST(MomentCache, GivesSeveralMomentsTheBitsOfEach) {
  static MomentsRoom moments_room;
  for (MomentsRoom* const room : {static_cast<MomentsRoom*>(nullptr), &moments_room}) {
    MomentCache cache;
    cache.moments_room = room;
    std::uint64_t random = 1;
    for (int call = 0; call < 400; ++call) {
      random = random * 6364136223846793005U + 1442695040888963407U;
      const int count = 1 + static_cast<int>((random >> 40) % kMomentsAtOnce);
      const int slot = 1 + static_cast<int>((random >> 50) % 9);  // 9 is Pluto
      double centuries[kMomentsAtOnce];
      for (int k = 0; k < count; ++k) {
        // Moments come back, and some are remote.
        centuries[k] = 0.125 * static_cast<double>((random >> (8 * k)) % 16);
        centuries[k] = (random >> (8 * k)) % 64 == 0 ? 1e5 : centuries[k];
      }
      Spherical bodies[kMomentsAtOnce];
      Spherical earth[kMomentsAtOnce];
      EvaluateBodyAt(FullStore(), slot, centuries, count, cache, bodies);
      CachedSeriesAt(FullStore(), kEarthSlot, centuries, count, cache, earth);
      for (int k = 0; k < count; ++k) {
        EXPECT_TRUE(SameBytes(bodies[k], EvaluateBody(FullStore(), slot, centuries[k])));
        EXPECT_TRUE(SameBytes(earth[k], EvaluateSeries(FullStore(), kEarthSlot, centuries[k])));
      }
    }
  }
}

TEST(MomentCache, KnowsTheTermsApartWhenTheStoreOrItsContentChanges) {
  MomentCache cache;
  OneTermStore first, second;
  const double one = CachedSeries(first.Load(1.0), kEarthSlot, 0.25, cache).longitude;
  const double two = CachedSeries(second.Load(2.0), kEarthSlot, 0.25, cache).longitude;
  const double three = CachedSeries(first.Load(3.0), kEarthSlot, 0.25, cache).longitude;
  EXPECT_NEAR(two - one, 1.0, 1e-6);
  EXPECT_NEAR(three - one, 2.0, 1e-6);
  EXPECT_GT(CachedSeries(FullStore(), kEarthSlot, 0.25, cache).radius, 0.9);
}

TEST(MomentCache, DoesNotKeepTermsThatCameFromNoFile) {
  SeriesTerm term{1.0, 0.0, 0.0};
  EphemerisStore store;
  store.bodies[kEarthSlot].terms = &term;
  store.bodies[kEarthSlot].term_count = 1;
  store.bodies[kEarthSlot].index.series[0].term_count = 1;
  MomentCache cache;
  const double one = CachedSeries(store, kEarthSlot, 0.25, cache).longitude;
  term.amplitude = 2.0;
  EXPECT_NEAR(CachedSeries(store, kEarthSlot, 0.25, cache).longitude - one, 1.0, 1e-6);
}

TEST(MomentCache, GivesZerosForASlotThatIsNotLoaded) {
  const EphemerisStore empty;
  MomentCache cache;
  CachedSeries(FullStore(), kEarthSlot, 0.25, cache);
  EXPECT_TRUE(SameBytes(CachedSeries(empty, kEarthSlot, 0.25, cache), Spherical{0.0, 0.0, 0.0}));
}

TEST(MomentCache, StartsEmptyForEveryMoment) {
  const double not_a_number = std::numeric_limits<double>::quiet_NaN();
  for (const double centuries : {0.0, -1.0, 1e300, -std::numeric_limits<double>::infinity()}) {
    MomentCache cache;
    const Spherical place = CachedSeries(FullStore(), kEarthSlot, centuries, cache);
    const Spherical alone = EvaluateSeries(FullStore(), kEarthSlot, centuries);
    EXPECT_TRUE(place.radius == alone.radius ||
                (std::isnan(place.radius) && std::isnan(alone.radius)));
  }
  MomentCache cache;
  EXPECT_TRUE(std::isnan(CachedSeries(FullStore(), kEarthSlot, not_a_number, cache).radius));
  EXPECT_TRUE(std::isnan(CachedNutation(not_a_number, cache).dpsi));
  EXPECT_TRUE(std::isnan(CachedSeries(FullStore(), kEarthSlot, not_a_number, cache).radius));
}

// The two zeros are one key.
TEST(MomentCache, MayAnswerMinusZeroFromZero) {
  EXPECT_TRUE(SameBytes(EvaluateSeries(FullStore(), kEarthSlot, -0.0),
                        EvaluateSeries(FullStore(), kEarthSlot, 0.0)));
  EXPECT_TRUE(SameBytes(Nutation(-0.0), Nutation(0.0)));
}

}  // namespace
}  // namespace zenithor
