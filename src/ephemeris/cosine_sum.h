#pragma once

#include <cstddef>
#include <cstdint>

#include "ephemeris/store.h"

namespace zenithor {

// The fast sum of a body's periodic series: one cosine and sine per distinct frequency. Its answers
// are the same bits on every processor and in every build. How far they are from the plain walk
// over the terms: docs/performance.md.

// Room [bytes] that ArrangeTerms may need for a body of `term_count` terms.
std::size_t ArrangedSize(const BodyIndexRecord& record, std::int32_t term_count);

// Arranges a body's terms in `room`, ArrangedSize bytes of any alignment. Terms that are not
// ordinary numbers (a phase beyond 2^24, anything infinite or NaN) and more than
// kMostFrequencies frequencies give tracks without frequencies: such a body is walked plainly.
TermTracks ArrangeTerms(const SeriesTerm* terms, std::int32_t term_count,
                        const BodyIndexRecord& record, void* room);

// Whether SumTracks serves at t Julian millennia from J2000.0: the terms are arranged, and no C t
// is beyond the range of the kernel (for the full series that is 40 000 years either way).
bool CanSumTracks(const TermTracks& tracks, double millennia);

// The sums of A cos(B + C t) of the series L0..L5, B0..B5 [rad] and R0..R5 [au], each one running
// sum in the stored order, at a time that CanSumTracks allows. Without room (null) it takes several
// times as long for the same bits.
void SumTracks(const TermTracks& tracks, double millennia, SumRoom* room,
               double (&sums)[kSeriesCount]);

// SumTracks at kMomentsAtOnce times side by side: sums[k] to the bit what it gives at millennia[k],
// in about two thirds of the time.
void SumMoments(const TermTracks& tracks, const double (&millennia)[kMomentsAtOnce],
                MomentsRoom& room, double (&sums)[kMomentsAtOnce][kSeriesCount]);

}  // namespace zenithor
