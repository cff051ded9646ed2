#pragma once

#include <cstdint>

namespace zenithor {

// The terms of one body arranged for the fast sum (cosine_sum.h). A body has some thousand terms
// but only a quarter as many frequencies, and
//
//   A cos(B + C t) = (A cos B) cos(C t) + (-A sin B) sin(C t),
//
// so a term costs two products of stored numbers once cos(C t) and sin(C t) are known. Four series
// are summed side by side, each in its stored order: the series are dealt out to four tracks, in
// each of which they follow one another. Step n of the walk takes term n of every track. The time t
// is in Julian millennia from J2000.0.

constexpr int kTrackCount = 4;
constexpr int kMostEnds = 18;  // one a series

// A body with more frequencies than this is not arranged; the full series have at most 1504.
constexpr int kMostFrequencies = 1536;

// The vector lane in which a track's sum is kept. The other way round it is the same.
constexpr int kLaneOfTrack[kTrackCount] = {0, 2, 1, 3};

// A series whose last term is just before `step`, in the track whose sum is in vector lane `lane`.
struct SeriesEnd {
  std::int32_t step;    // 1 to the number of terms of the longest track
  std::int16_t lane;    // 0 to 3
  std::int16_t series;  // 0 to 17: L0..L5, B0..B5, R0..R5
};

// Room for the cosine and the sine of every frequency of a body while it is summed. Twenty-four
// kilobytes, so not on the stack of whoever calls: a host's thread may have little more.
struct SumRoom {
  alignas(64) double cosine_sine[2 * kMostFrequencies];
};

// How many moments are summed side by side, a vector lane each.
constexpr int kMomentsAtOnce = 4;

// The same for so many moments: of each frequency the four cosines, then the four sines. Ninety-six
// kilobytes.
struct MomentsRoom {
  alignas(64) double cosines_sines[2 * kMomentsAtOnce * kMostFrequencies];
};

struct TermTracks {
  std::int32_t frequency_count = 0;  // a multiple of four; 0 where the terms are not arranged
  std::int32_t end_count = 0;
  double largest_frequency = 0.0;  // in size [rad per millennium]
  // Distinct [rad per millennium], then zeros up to a multiple of four.
  const double* frequencies = nullptr;
  const double* products = nullptr;        // per step and track: A cos B, -A sin B [rad] or [au]
  const std::uint16_t* indices = nullptr;  // per step and track: twice the index of the frequency
  SeriesEnd ends[kMostEnds] = {};          // in the order of steps
};

}  // namespace zenithor
