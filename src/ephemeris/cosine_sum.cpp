#include "ephemeris/cosine_sum.h"

#include <algorithm>
#include <cmath>

#include "ephemeris/moments_walk.h"
#include "ephemeris/track_walk.h"

namespace zenithor {

static_assert(kMostEnds == kSeriesCount, "every series ends once");

namespace {

// The same walk for a caller that has no room: every term's cosine and sine when it is its turn,
// several times as slow and the same bits.
void SumTracksWithoutRoom(const TermTracks& tracks, double millennia, double* sums) {
  constexpr std::uint16_t kInTurn[kTrackCount] = {0, 2, 4, 6};
  FourInPairs t;
  FourInPairs sum;
  Repeat(millennia, t);
  Repeat(0.0, sum);
  std::int32_t step = 0;
  for (std::int32_t e = 0; e < tracks.end_count; ++e) {
    for (; step < tracks.ends[e].step; ++step) {
      double of_tracks[kTrackCount];
      for (int track = 0; track < kTrackCount; ++track) {
        of_tracks[track] = tracks.frequencies[tracks.indices[kTrackCount * step + track] / 2];
      }
      alignas(16) double cosine_sine[2 * kTrackCount];
      FourInPairs frequency;
      FourInPairs cosine;
      FourInPairs sine;
      LoadFour(of_tracks, frequency);
      CosinesAndSinesOfFour(frequency * t, cosine, sine);
      StoreFour(cosine, sine, cosine_sine);
      AddStep(cosine_sine, tracks.products + 2 * kTrackCount * step, kInTurn, sum);
    }
    EndSeries(tracks.ends[e], sum, sums);
  }
}

}  // namespace

void SumTracksSse2(const TermTracks& tracks, double millennia, SumRoom& room, double* sums) {
  WalkTracks<FourInPairs>(tracks, millennia, room, sums);
}

void SumMomentsSse2(const TermTracks& tracks, const double* millennia, MomentsRoom& room,
                    double (*sums)[kMostEnds]) {
  WalkMoments<FourInPairs>(tracks, millennia, room, sums);
}

bool CanSumTracks(const TermTracks& tracks, double millennia) {
  // False for NaN.
  return tracks.frequency_count > 0 &&
         std::fabs(millennia) * tracks.largest_frequency <= kLargestKernelAngle;
}

void SumTracks(const TermTracks& tracks, double millennia, SumRoom* room,
               double (&sums)[kSeriesCount]) {
  std::fill(std::begin(sums), std::end(sums), 0.0);
  if (room == nullptr) {
    SumTracksWithoutRoom(tracks, millennia, sums);
    return;
  }
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) {
    SumTracksAvx2(tracks, millennia, *room, sums);
    return;
  }
#endif
  SumTracksSse2(tracks, millennia, *room, sums);
}

void SumMoments(const TermTracks& tracks, const double (&millennia)[kMomentsAtOnce],
                MomentsRoom& room, double (&sums)[kMomentsAtOnce][kSeriesCount]) {
  for (double(&each)[kSeriesCount] : sums) {
    std::fill(std::begin(each), std::end(each), 0.0);
  }
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) {
    SumMomentsAvx2(tracks, millennia, room, sums);
    return;
  }
#endif
  SumMomentsSse2(tracks, millennia, room, sums);
}

}  // namespace zenithor
