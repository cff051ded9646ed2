#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "ephemeris/cosine_sum.h"
#include "ephemeris/moments_walk.h"
#include "ephemeris/series.h"
#include "ephemeris/track_walk.h"
#include "support/full_store.h"
#include "support/plain_series.h"
#include "support/same_bytes.h"
#include "support/text_files.h"

namespace zenithor {
namespace {

using testing::FullStore;
using testing::Millennia;
using testing::PlainSum;
using testing::Quadruple;
using testing::SameBytes;
using testing::SumSeriesPlainly;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// A store with one body, in slot 3, whose terms are given.
class OneBody {
 public:
  explicit OneBody(std::vector<SeriesTerm> terms, std::vector<int> counts)
      : terms_(std::move(terms)) {
    const auto total = static_cast<std::int32_t>(terms_.size());
    terms_.push_back({});  // as the loader does, so that there is a block without terms too
    for (std::size_t s = 0; s < counts.size(); ++s) {
      store_.bodies[kEarthSlot].index.series[s].term_count = static_cast<std::int16_t>(counts[s]);
    }
    const BodyIndexRecord& record = store_.bodies[kEarthSlot].index;
    room_.resize(ArrangedSize(record, total));
    store_.bodies[kEarthSlot].terms = terms_.data();
    store_.bodies[kEarthSlot].term_count = total;
    store_.bodies[kEarthSlot].tracks = ArrangeTerms(terms_.data(), total, record, room_.data());
  }

  bool IsArranged() const { return store_.bodies[kEarthSlot].tracks.frequency_count > 0; }
  const EphemerisStore& Store() const { return store_; }
  Spherical At(double centuries) const { return SumStoredSeries(store_, kEarthSlot, centuries); }
  Spherical PlainlyAt(double centuries) const {
    return SumSeriesPlainly(store_, kEarthSlot, centuries);
  }

 private:
  std::vector<SeriesTerm> terms_;
  std::vector<char> room_;
  EphemerisStore store_;
};

bool SameOrBothNotANumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void ExpectSame(const Spherical& actual, const Spherical& expected) {
  EXPECT_PRED2(SameOrBothNotANumber, actual.longitude, expected.longitude);
  EXPECT_PRED2(SameOrBothNotANumber, actual.latitude, expected.latitude);
  EXPECT_PRED2(SameOrBothNotANumber, actual.radius, expected.radius);
}

std::vector<SeriesTerm> RandomTerms(std::size_t count) {
  std::mt19937_64 random(count);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  std::vector<SeriesTerm> terms(count);
  for (std::size_t k = 0; k < count; ++k) {
    terms[k] = {unit(random), 3.2 * (1.0 + unit(random)), 100.0 * static_cast<double>(k % 37)};
  }
  return terms;
}

// What an accuracy table needs of one coordinate of one body: root mean square and largest distance
// from the sum in quadruple precision.
struct Errors {
  double square_sum = 0.0;
  double largest = 0.0;
  void Add(double value, Quadruple truth) {
    const auto error = static_cast<double>(Quadruple(value) - truth);
    square_sum += error * error;
    largest = std::fmax(largest, std::fabs(error));
  }
};

// Over the years -3000 to 6000. Both walks round the argument C t, and both round the running sum,
// which for a longitude grows to 26088 radians per millennium: the root mean squares may differ by
// chance in the second digit of so few moments, but not by a tenth. (Over 401 moments the largest
// excess is 0.3 percent, for the longitude of Mars; docs/performance.md.)
TEST(FastSum, IsNoFurtherFromAQuadruplePrecisionSumThanThePlainWalk) {
  constexpr int kMoments = 16;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    Errors fast[3], plain[3];
    for (int k = 0; k < kMoments; ++k) {
      const double centuries = -50.0 + 90.0 * (k + 0.25 * ((k * 7) % 4)) / kMoments;
      const double t = Millennia(centuries);
      const auto truth = PlainSum<Quadruple>(FullStore(), slot, t);
      const auto walked = PlainSum<double>(FullStore(), slot, t);
      const Spherical place = SumStoredSeries(FullStore(), slot, centuries);
      const double summed[3] = {place.longitude, place.latitude, place.radius};
      for (std::size_t c = 0; c < 3; ++c) {
        fast[c].Add(summed[c], truth[c]);
        plain[c].Add(walked[c], truth[c]);
      }
    }
    for (std::size_t c = 0; c < 3; ++c) {
      EXPECT_LE(std::sqrt(fast[c].square_sum), 1.1 * std::sqrt(plain[c].square_sum))
          << "slot " << slot << " coordinate " << c;
    }
    EXPECT_LE(fast[0].largest, 4e-10) << "slot " << slot;  // a rounding of the running sum
  }
}

// docs/performance.md has what was measured, half to two thirds of these limits.
TEST(FastSum, DiffersFromThePlainWalkByNoMoreThanIsDocumented) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    for (int k = 0; k <= 100; ++k) {
      const double centuries = -50.0 + 0.9 * k;
      const Spherical fast = SumStoredSeries(FullStore(), slot, centuries);
      const Spherical plain = SumSeriesPlainly(FullStore(), slot, centuries);
      EXPECT_NEAR(fast.longitude, plain.longitude, 3e-11) << slot << " " << centuries;
      EXPECT_NEAR(fast.latitude, plain.latitude, 1.2e-12) << slot << " " << centuries;
      EXPECT_NEAR(fast.radius, plain.radius, 3e-13) << slot << " " << centuries;
    }
  }
}

TEST(FastSum, ArrangesEveryBodyOfTheFullData) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_GT(FullStore().bodies[slot].tracks.frequency_count, 0) << slot;
  }
}

TEST(FastSum, AddsTheTermsOfASeriesInTheStoredOrder) {
  // 1e16 + 1 is 1e16 in double, so another order gives another sum.
  const OneBody swallowed({{1e16, 0.0, 0.0}, {1.0, 0.0, 0.0}, {-1e16, 0.0, 0.0}}, {3});
  const OneBody kept({{1e16, 0.0, 0.0}, {-1e16, 0.0, 0.0}, {1.0, 0.0, 0.0}}, {3});
  ASSERT_TRUE(swallowed.IsArranged() && kept.IsArranged());
  EXPECT_EQ(swallowed.At(0.0).longitude, 0.0);
  EXPECT_EQ(kept.At(0.0).longitude, 1.0);
}

// Every series has its own length, so every pattern of ends in the four tracks comes up.
TEST(FastSum, FindsTheEndOfEverySeries) {
  for (int pattern = 0; pattern < 40; ++pattern) {
    std::vector<int> counts;
    std::size_t total = 0;
    for (int s = 0; s < kSeriesCount; ++s) {
      const int count = (s * 5 + pattern * 3) % 11 * ((s + pattern) % 3);
      counts.push_back(count);
      total += static_cast<std::size_t>(count);
    }
    const OneBody body(RandomTerms(total), counts);
    for (const double centuries : {0.0, 0.37, -12.5}) {
      const Spherical fast = body.At(centuries);
      const Spherical plain = body.PlainlyAt(centuries);
      // At most a hundred terms of amplitude 1 and powers of t to 1.25^5.
      EXPECT_NEAR(fast.longitude, plain.longitude, 3e-12) << pattern;
      EXPECT_NEAR(fast.latitude, plain.latitude, 3e-12) << pattern;
      EXPECT_NEAR(fast.radius, plain.radius, 3e-12) << pattern;
    }
  }
}

TEST(FastSum, GivesZeroForABodyWithoutTerms) {
  const OneBody body({}, {});
  EXPECT_TRUE(SameBytes(body.At(0.3), Spherical{0.0, 0.0, 0.0}));
}

TEST(FastSum, StaysInsideTheBlockWhenCountsDisagreeWithTheirSum) {
  // The sum of the counts is that of the block, as the loader makes it, but one count is negative.
  const OneBody body(RandomTerms(20), {30, -20, 7, 3});
  ExpectSame(body.At(0.0), body.PlainlyAt(0.0));
  EXPECT_NEAR(body.At(1.0).longitude, body.PlainlyAt(1.0).longitude, 1e-13);
  EXPECT_EQ(body.At(1.0).latitude, 0.0);
}

TEST(FastSum, LeavesTermsThatAreNotOrdinaryNumbersToThePlainWalk) {
  for (const SeriesTerm& odd : {SeriesTerm{kInfinity, 0.0, 1.0}, SeriesTerm{1.0, kNotANumber, 1.0},
                                SeriesTerm{1.0, 1e9, 1.0}, SeriesTerm{1.0, 0.0, -kInfinity},
                                SeriesTerm{kNotANumber, kNotANumber, kNotANumber}}) {
    std::vector<SeriesTerm> terms = RandomTerms(10);
    terms[4] = odd;
    const OneBody body(terms, {6, 0, 0, 0, 0, 0, 4});
    EXPECT_FALSE(body.IsArranged());
    ExpectSame(body.At(0.25), body.PlainlyAt(0.25));
    ExpectSame(body.At(0.0), body.PlainlyAt(0.0));
  }
}

TEST(FastSum, LeavesTimesOutOfRangeToThePlainWalk) {
  std::vector<SeriesTerm> terms = RandomTerms(10);
  terms[9].frequency = -1e300;
  const OneBody huge_frequency(terms, {10});
  const OneBody body(RandomTerms(10), {10});
  ASSERT_TRUE(huge_frequency.IsArranged() && body.IsArranged());
  ExpectSame(huge_frequency.At(0.25), huge_frequency.PlainlyAt(0.25));
  for (const double centuries : {1e300, -1e300, 1e6, kInfinity, -kInfinity, kNotANumber}) {
    ExpectSame(body.At(centuries), body.PlainlyAt(centuries));
    for (int slot = 0; slot < kSlotCount; ++slot) {
      ExpectSame(SumStoredSeries(FullStore(), slot, centuries),
                 SumSeriesPlainly(FullStore(), slot, centuries));
    }
  }
}

TEST(FastSum, ArrangesAsManyFrequenciesAsItHasRoomForAndNoMore) {
  for (const int count : {kMostFrequencies, kMostFrequencies + 1}) {
    std::vector<SeriesTerm> terms = RandomTerms(static_cast<std::size_t>(count));
    for (std::size_t k = 0; k < terms.size(); ++k) {
      terms[k].frequency = static_cast<double>(k);
    }
    const OneBody body(terms, {count - 100, 100});
    EXPECT_EQ(body.IsArranged(), count == kMostFrequencies);
    // Some fifteen hundred terms of amplitude 1, each with C t rounded below 256 radians.
    EXPECT_NEAR(body.At(1.0).longitude, body.PlainlyAt(1.0).longitude, 2e-11);
  }
}

SumRoom room;

TEST(FastSum, IsTheSameBitsWithAndWithoutRoom) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    for (int k = 0; k < 200; ++k) {
      const double centuries = -80.0 + 0.803 * k;
      ASSERT_TRUE(SameBytes(SumStoredSeries(FullStore(), slot, centuries, &room),
                            SumStoredSeries(FullStore(), slot, centuries, nullptr)))
          << slot << " " << centuries;
    }
  }
}

#ifdef __x86_64__
TEST(FastSum, IsTheSameBitsWithAndWithoutAvx2) {
  if (!__builtin_cpu_supports("avx2")) {
    GTEST_SKIP() << "this processor has no AVX2";
  }
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const TermTracks& tracks = FullStore().bodies[slot].tracks;
    for (int k = 0; k < 500; ++k) {
      const double t = -8.0 + 0.0321 * k;
      double sse2[kSeriesCount] = {}, avx2[kSeriesCount] = {};
      SumTracksSse2(tracks, t, room, sse2);
      SumTracksAvx2(tracks, t, room, avx2);
      ASSERT_EQ(std::memcmp(sse2, avx2, sizeof sse2), 0) << slot << " " << t;
    }
  }
}
#endif

MomentsRoom moments_room;

// Times near and far apart, forwards and backwards, the same one twice.
void FourTimes(int k, double (&times)[kMomentsAtOnce]) {
  const double first = -8.0 + 0.0321 * k;
  constexpr double kSteps[] = {2.7e-6, 1.7e-7, -3e-4, 1.0, 0.0};
  for (int m = 0; m < kMomentsAtOnce; ++m) {
    times[m] = first + m * kSteps[k % 5];
  }
}

using MomentsSum = void (*)(const TermTracks&, const double*, MomentsRoom&, double (*)[kMostEnds]);

void ExpectTheSumsOfEachMoment(MomentsSum sum_moments) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const TermTracks& tracks = FullStore().bodies[slot].tracks;
    for (int k = 0; k < 300; ++k) {
      double times[kMomentsAtOnce];
      FourTimes(k, times);
      double together[kMomentsAtOnce][kSeriesCount] = {};
      sum_moments(tracks, times, moments_room, together);
      for (int m = 0; m < kMomentsAtOnce; ++m) {
        double alone[kSeriesCount] = {};
        SumTracksSse2(tracks, times[m], room, alone);
        ASSERT_EQ(std::memcmp(together[m], alone, sizeof alone), 0) << slot << " " << k << " " << m;
      }
    }
  }
}

TEST(FastSum, OfFourMomentsIsTheSameBitsAsOfEach) {
  ExpectTheSumsOfEachMoment(SumMomentsSse2);
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) {
    ExpectTheSumsOfEachMoment(SumMomentsAvx2);
  }
#endif
}

// Bodies of few terms, so that tracks stay empty, series end together and frequencies are padded.
TEST(FastSum, OfFourMomentsIsTheSameBitsForAnyShapeOfSeries) {
  const std::vector<std::vector<int>> shapes = {
      {1},
      {1, 1, 1, 1},
      {7, 0, 0, 3},
      {5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5},
      {0, 2}};
  for (const std::vector<int>& shape : shapes) {
    std::size_t total = 0;
    for (const int count : shape) {
      total += static_cast<std::size_t>(count);
    }
    const OneBody body(RandomTerms(total), shape);
    const double centuries[kMomentsAtOnce] = {0.25, -3.0, 17.5, 0.0};
    Spherical places[kMomentsAtOnce];
    ASSERT_TRUE(EvaluateSeriesAtOnce(body.Store(), kEarthSlot, centuries, moments_room, places));
    for (int m = 0; m < kMomentsAtOnce; ++m) {
      EXPECT_TRUE(SameBytes(places[m], EvaluateSeries(body.Store(), kEarthSlot, centuries[m])));
    }
  }
}

TEST(FastSum, OfFourMomentsIsRefusedWhereOneIsToBeWalkedPlainly) {
  Spherical places[kMomentsAtOnce];
  for (const double remote : {1e300, -1e6, kInfinity, kNotANumber}) {
    for (int m = 0; m < kMomentsAtOnce; ++m) {
      double centuries[kMomentsAtOnce] = {0.1, 0.2, 0.3, 0.4};
      centuries[m] = remote;
      EXPECT_FALSE(EvaluateSeriesAtOnce(FullStore(), kEarthSlot, centuries, moments_room, places));
    }
  }
  const EphemerisStore empty;
  const double centuries[kMomentsAtOnce] = {0.1, 0.2, 0.3, 0.4};
  EXPECT_FALSE(EvaluateSeriesAtOnce(empty, kEarthSlot, centuries, moments_room, places));
  EXPECT_FALSE(EvaluateSeriesAtOnce(FullStore(), kSlotCount, centuries, moments_room, places));
}

// tests/golden/series_hash.txt holds the FNV-1a hash of the bits of L, B, R of 100 000 sums over
// the years -3000 to 6000. One value for every processor, compiler and platform; a commit that
// changes it says why.
TEST(FastSum, IsTheSameBitsOnEveryBuild) {
  std::uint64_t hash = 0xCBF29CE484222325u;
  std::uint64_t state = 1;
  for (int call = 0; call < 100000; ++call) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    const double centuries = -50.0 + static_cast<double>(state >> 40) * (90.0 / 16777216.0);
    const Spherical place = SumStoredSeries(FullStore(), call % kSlotCount, centuries, &room);
    for (const double coordinate : {place.longitude, place.latitude, place.radius}) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &coordinate, sizeof bits);
      for (int byte = 0; byte < 8; ++byte) {
        hash = (hash ^ (bits >> (8 * byte) & 0xFF)) * 0x100000001B3u;
      }
    }
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(hash));
  EXPECT_EQ(text, testing::LinesOf("tests/golden/series_hash.txt").at(0));
}

}  // namespace
}  // namespace zenithor
