#include "rising/event_solver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "rising/rising_moon.h"
#include "rising/rising_planet.h"
#include "rising/settle.h"
#include "support/full_store.h"
#include "time/angles.h"
#include "time/constants.h"
#include "time/sidereal_time.h"

namespace zenithor {
namespace {

using testing::FullStore;

EventProblem Pose(const RisingRequest& request) {
  return request.code == ZENITHOR_MOON ? PoseRisingMoon(request)
                                       : PoseRisingPlanet(FullStore(), request);
}

// ---- Grazing places where the bare iteration never ends ---------------------------------------

RiseSetResult Graze(double day_number, double longitude_west, double latitude, BodyCode code) {
  return AnswerEvents(Pose({day_number, 1.0, 0.0, longitude_west, latitude, code}));
}

TEST(EventSolver, SetOfTheSunNearLongyearbyenInAprilDoesNotSettle) {
  const RiseSetResult result = Graze(15083, -15.6267, 78.2232, ZENITHOR_SUN);
  EXPECT_TRUE(std::isnan(result.Set));
  EXPECT_EQ(result.Status, 0.0);
  EXPECT_TRUE(std::isfinite(result.Rise));
  EXPECT_TRUE(std::isfinite(result.Transit));
}

TEST(EventSolver, SetOfMercuryAtTromsoDoesNotSettle) {
  const RiseSetResult result = Graze(21324, -18.956, 69.6496, ZENITHOR_MERCURY);
  EXPECT_TRUE(std::isnan(result.Set));
  EXPECT_TRUE(std::isfinite(result.Rise));
  EXPECT_TRUE(std::isfinite(result.Transit));
}

TEST(EventSolver, SetOfVenusInTheHighArcticDoesNotSettle) {
  const RiseSetResult result = Graze(24234, 62.3481, 82.5018, ZENITHOR_VENUS);
  EXPECT_TRUE(std::isnan(result.Set));
  EXPECT_TRUE(std::isfinite(result.Rise));
  EXPECT_TRUE(std::isfinite(result.Transit));
}

TEST(EventSolver, RiseOfTheMoonNearLongyearbyenDoesNotSettle) {
  const RiseSetResult result = Graze(10664, -15.6267, 78.2232, ZENITHOR_MOON);
  EXPECT_TRUE(std::isnan(result.Rise));
  EXPECT_TRUE(std::isfinite(result.Transit));
  EXPECT_TRUE(std::isfinite(result.Set));
}

TEST(EventSolver, RiseOfTheMoonAtTromsoDoesNotSettle) {
  const RiseSetResult result = Graze(16937, -18.956, 69.6496, ZENITHOR_MOON);
  EXPECT_TRUE(std::isnan(result.Rise));
  EXPECT_TRUE(std::isfinite(result.Transit));
  EXPECT_TRUE(std::isfinite(result.Set));
}

}  // namespace
}  // namespace zenithor
