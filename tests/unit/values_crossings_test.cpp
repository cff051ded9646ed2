// Crossings of angles that turn back at 0 and at half a turn.

#include <gtest/gtest.h>

#include "support/full_store.h"
#include "values/crossings.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

// An elongation is 0 to 180 degrees: -10 is not 10, and 190 is not 170.
TEST(Crossings, AnElongationTakesNoValueBeyondItsRange) {
  static SumRoom room;
  PositionState state;
  state.moment.room = &room;
  const SearchStores stores{&testing::FullStore(), nullptr};
  const auto count = [&](double target) {
    return FindCrossings(stores, state, ZENITHOR_BODY_MARS, ZENITHOR_FIELD_ELONGATION, target,
                         2451545.0, 2451545.0 + 800.0, nullptr, nullptr, 0);
  };
  EXPECT_GT(count(10.0), 0);
  EXPECT_GT(count(170.0), 0);
  EXPECT_EQ(count(-10.0), 0);
  EXPECT_EQ(count(190.0), 0);
}

}  // namespace
}  // namespace zenithor
