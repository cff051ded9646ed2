#pragma once

#include <cstdint>

#include "ephemeris/store.h"
#include "positions/position.h"
#include "search/roots.h"
#include "values/field_bounds.h"
#include "values/field_track.h"
#include "values/span.h"

namespace zenithor {

// Fields as the search room takes them.

// The full series and, where there is one, the guide's (guide_store.h). The moments that are found
// depend on both, so that a library uses one guide for all its searches.
struct SearchStores {
  const EphemerisStore* full;
  const EphemerisStore* guide;  // may be null: searches then take ten times longer
};

// What a search asks for the values: a field of a body, or of one body less that of another.
struct FieldSource {
  const EphemerisStore* store;
  PositionState* state;
  std::int32_t body;
  std::int32_t other;  // -1 when there is none
  std::int32_t field;
};

// The same by tracks.
struct GuideSource {
  FieldTrack track;
  FieldTrack other_track;
  bool has_other;
};

// The source that asks the full series, and the guide where there is one.
struct SourcePair {
  FieldSource full;
  GuideSource guide;
  bool guided;
};

// Sets the pair for a field that the bodies have.
void MakePair(const SearchStores& stores, PositionState& state, std::int32_t body,
              std::int32_t other, std::int32_t field, SourcePair& pair);

constexpr std::int32_t kNoOther = -1;
constexpr double kMomentTolerance = 1e-7;  // [day]

// The source as a function of time; the source must outlive it.
TimeFunction FunctionOfSource(FieldSource& source);
TimeFunction FunctionOfGuide(GuideSource& source);

// Of body a's field less body b's, in its unit: its rates, and the sums of the other bounds.
FieldBounds BoundsOfDifference(const FieldBounds& a, const FieldBounds& b);

// Where the sources take `target`, in the unit of SmoothValues. The widest cell is half the time in
// which the greatest rate could be lost by bending, or that in which a longitude moves by less than
// a quarter turn.
RootProblem CrossingProblem(SourcePair& sources, const FieldBounds& bounds, double target);

// The next number above a Julian day: where a search for the moments after it begins. NaN of NaN.
double JustAfter(double day);

// Adds what `next(walk, root)` gives, with its directions as marks.
template <class Walk>
std::int32_t FillMoments(Walk& walk, bool (*next)(Walk&, Root&), MomentArray moments) {
  Root root;
  while (next(walk, root)) {
    AddMoment(moments, root.moment, root.direction);
  }
  return moments.count;
}

}  // namespace zenithor
