#include "ephemeris/cosine_sum.h"

#include <algorithm>
#include <cmath>

#include "ephemeris/track_walk.h"

namespace zenithor {

static_assert(kMostEnds == kSeriesCount, "every series ends once");

void SumTracksSse2(const TermTracks& tracks, double millennia, double* sums) {
  WalkTracks<FourInPairs>(tracks, millennia, sums);
}

bool CanSumTracks(const TermTracks& tracks, double millennia) {
  // False for NaN.
  return tracks.frequency_count > 0 &&
         std::fabs(millennia) * tracks.largest_frequency <= kLargestKernelAngle;
}

void SumTracks(const TermTracks& tracks, double millennia, double (&sums)[kSeriesCount]) {
  std::fill(std::begin(sums), std::end(sums), 0.0);
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) {
    SumTracksAvx2(tracks, millennia, sums);
    return;
  }
#endif
  SumTracksSse2(tracks, millennia, sums);
}

}  // namespace zenithor
