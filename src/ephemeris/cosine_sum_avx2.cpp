// The walks in AVX registers, for processors that have them; compiled with -mavx2, 64-bit builds
// only. In a 32-bit process the upper halves of the registers could not be cleared on leaving, and
// the host's own SSE code would run three times slower afterwards.

#ifdef __AVX2__

#include "ephemeris/moments_walk.h"
#include "ephemeris/track_walk.h"

namespace zenithor {

void SumTracksAvx2(const TermTracks& tracks, double millennia, SumRoom& room, double* sums) {
  WalkTracks<FourInQuad>(tracks, millennia, room, sums);
  _mm256_zeroupper();
}

void SumMomentsAvx2(const TermTracks& tracks, const double* millennia, MomentsRoom& room,
                    double (*sums)[kMostEnds]) {
  WalkMoments<FourInQuad>(tracks, millennia, room, sums);
  _mm256_zeroupper();
}

}  // namespace zenithor

#endif
