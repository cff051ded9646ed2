#include "rising/rising.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "support/full_store.h"
#include "support/golden.h"
#include "support/same_bytes.h"
#include "support/text_files.h"

namespace zenithor {
namespace {

using testing::FullStore;

TEST(Rising, MeetsTheGoldenAnswersOfEveryBody) {
  MomentCache cache;
  golden::Functions functions;
  functions.rising = [&cache](const golden::RisingCall& call) {
    return ComputeRising(FullStore(), cache,
                         {call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                          call.latitude, call.code},
                         call.selector);
  };
  const golden::Summary summary = testing::CheckGolden("rising.tsv", functions);
  EXPECT_EQ(summary.cases, 649);
  EXPECT_EQ(summary.failures, 0) << summary.first_failure;
}

// A day at Boston; every test changes what it looks at.
struct Call {
  double day_number = 9941.0;  // 1988 March 20
  double minutes = 720.0;
  double zone_hours = 0.0;
  double longitude_west = 71.0 + 5.0 / 60.0;
  double latitude = 42.0 + 20.0 / 60.0;
  BodyCode code = ZENITHOR_VENUS;
  std::int32_t selector = ZENITHOR_RISE;
};
using CallArgument = double Call::*;

double Answer(const EphemerisStore& store, const Call& call) {
  MomentCache cache;
  return ComputeRising(store, cache,
                       {call.day_number, call.minutes, call.zone_hours, call.longitude_west,
                        call.latitude, call.code},
                       call.selector);
}

double Answer(const Call& call) { return Answer(FullStore(), call); }

TEST(Rising, MeetsVenusAtBoston) {
  // Meeus, example 15.a; apart by the geometric place and by Delta T, which is extrapolated there.
  const char* const quantities[] = {"rise", "transit", "set"};
  for (std::int32_t selector = ZENITHOR_RISE; selector <= ZENITHOR_SET; ++selector) {
    const testing::PublishedValue published =
        testing::Published("15.a", quantities[selector - ZENITHOR_RISE]);
    Call call;
    call.selector = selector;
    EXPECT_NEAR(Answer(call), published.value, published.allowed) << selector;
  }
}

TEST(Rising, ReturnsZeroForAnUnknownEventOrBody) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t selector : {kLowest, -1, 0, 4, kHighest}) {
    Call call;
    call.selector = selector;
    EXPECT_EQ(Answer(call), 0.0) << selector;
  }
  for (const BodyCode code : {kLowest, -1, 11, kHighest}) {
    Call call;
    call.code = code;
    EXPECT_EQ(Answer(call), 0.0) << code;
  }
}

TEST(Rising, ReturnsZeroForSlotsThatAreNotLoaded) {
  const EphemerisStore nothing;
  for (BodyCode code = ZENITHOR_SUN; code <= ZENITHOR_PLUTO; ++code) {
    Call call;
    call.code = code;
    EXPECT_EQ(Answer(nothing, call), 0.0) << code;
  }
  Call moon;
  moon.code = ZENITHOR_MOON;
  EXPECT_EQ(Answer(nothing, moon), Answer(moon));
  EXPECT_GT(Answer(moon), 0.0);
}

TEST(Rising, ReturnsNotANumberForArgumentsThatAreNotFinite) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double value : {std::nan(""), kInfinity, -kInfinity}) {
    for (const CallArgument argument : {&Call::day_number, &Call::minutes, &Call::zone_hours,
                                        &Call::longitude_west, &Call::latitude}) {
      for (const BodyCode code : {ZENITHOR_SUN, ZENITHOR_JUPITER, ZENITHOR_MOON}) {
        Call call;
        call.*argument = value;
        call.code = code;
        EXPECT_TRUE(std::isnan(Answer(call)));
        // What has no answer whatever its numbers are stays 0.0.
        call.selector = 0;
        EXPECT_EQ(Answer(call), 0.0);
        call.selector = ZENITHOR_SET;
        call.code = 11;
        EXPECT_EQ(Answer(call), 0.0);
      }
      Call call;
      call.*argument = value;
      EXPECT_EQ(Answer(EphemerisStore{}, call), 0.0);
    }
  }
}

TEST(Rising, ReturnsNotANumberForTheEarth) {
  for (std::int32_t selector = ZENITHOR_RISE; selector <= ZENITHOR_SET; ++selector) {
    Call call;
    call.code = ZENITHOR_EARTH;
    call.selector = selector;
    EXPECT_TRUE(std::isnan(Answer(call)));
  }
}

bool IsAnAnswerOfARise(double answer) {
  return answer == ZENITHOR_ALWAYS_UP || answer == ZENITHOR_NEVER_UP ||
         (answer >= 0.0 && answer <= 1440.0);
}

TEST(Rising, AlwaysReturnsForExtremeArguments) {
  // A sanitizer build also shows that none of them is undefined behaviour.
  constexpr double kExtremes[] = {0.0,
                                  -0.0,
                                  5e-324,
                                  -5e-324,
                                  1e-300,
                                  1.0,
                                  -1.0,
                                  1e5,
                                  -1e5,
                                  1e9,
                                  -1e9,
                                  1e15,
                                  1e18,
                                  -1e18,
                                  1e100,
                                  -1e100,
                                  1e300,
                                  -1e300,
                                  1.7976931348623157e308};
  for (const double value : kExtremes) {
    for (const CallArgument argument : {&Call::day_number, &Call::minutes, &Call::zone_hours,
                                        &Call::longitude_west, &Call::latitude}) {
      for (const BodyCode code :
           {ZENITHOR_SUN, ZENITHOR_EARTH, ZENITHOR_MARS, ZENITHOR_PLUTO, ZENITHOR_MOON}) {
        Call call;
        call.*argument = value;
        call.code = code;
        const double answer = Answer(call);
        // The observer's numbers are of the order of 1; of days and minutes any hundred thousand
        // have an answer. Where numbers are larger the times may be so, too, or not settle.
        const bool counts_time = argument == &Call::day_number || argument == &Call::minutes;
        if (std::fabs(value) <= (counts_time ? 1e5 : 1.0) && code != ZENITHOR_EARTH) {
          EXPECT_TRUE(IsAnAnswerOfARise(answer)) << answer << " for " << value << ", " << code;
        } else {
          EXPECT_FALSE(std::isinf(answer)) << answer << " for " << value << ", " << code;
          EXPECT_TRUE(std::isnan(answer) || code != ZENITHOR_EARTH) << answer << " for " << value;
        }
        EXPECT_TRUE(testing::SameBytes(answer, Answer(call))) << value << ", " << code;
      }
    }
  }
}

TEST(Rising, LatitudesBeyondThePoleFollowTheFormulas) {
  // Latitude 130 on one meridian is latitude 50 on the one opposite, looked at from behind: what
  // rises there sets here, and the upper transit is the lower one.
  for (const BodyCode code : {ZENITHOR_SUN, ZENITHOR_VENUS, ZENITHOR_MARS}) {
    for (const double latitude : {50.0, -20.0, 65.0}) {
      Call here;
      here.code = code;
      here.latitude = latitude;
      Call beyond = here;
      beyond.latitude = 180.0 - latitude;
      beyond.longitude_west = here.longitude_west - 180.0;
      here.selector = ZENITHOR_SET;
      beyond.selector = ZENITHOR_RISE;
      EXPECT_NEAR(std::remainder(Answer(beyond) - Answer(here), 1440.0), 0.0, 0.02) << code;
      here.selector = ZENITHOR_RISE;
      beyond.selector = ZENITHOR_SET;
      EXPECT_NEAR(std::remainder(Answer(beyond) - Answer(here), 1440.0), 0.0, 0.02) << code;
      here.selector = beyond.selector = ZENITHOR_TRANSIT;
      EXPECT_NEAR(std::fabs(std::remainder(Answer(beyond) - Answer(here), 1440.0)), 720.0, 3.0)
          << code;
    }
  }
}

TEST(Rising, TheSelectorChoosesTheEvent) {
  Call call;
  const double rise = Answer(call);
  call.selector = ZENITHOR_TRANSIT;
  const double transit = Answer(call);
  call.selector = ZENITHOR_SET;
  const double set = Answer(call);
  // Half arcs of Venus at declination 18.4 at Boston: 7 h 15 min; the set is that of the evening
  // before, wrapped into the same universal day.
  EXPECT_NEAR(transit - rise, 435.0, 5.0);
  EXPECT_NEAR(set + 1440.0 - transit, 435.0, 8.0);
}

// What one thread keeps of earlier calls changes no bit of an answer.
TEST(Rising, AnswersTheBodiesOfOneDayAsIfEachWereAskedAlone) {
  MomentCache kept;
  for (int k = 0; k < 400; ++k) {
    const double day_number = 9941.0 + (k / 40) % 3;
    const BodyCode code = (k * 7) % 11;
    MomentCache fresh;
    const auto answer = [&](MomentCache& cache) {
      return ComputeRising(FullStore(), cache, {day_number, 0.0, 5.0, 71.0, 42.0, code},
                           ZENITHOR_RISE + k % 3);
    };
    const double together = answer(kept);
    const double alone = answer(fresh);
    EXPECT_TRUE(together == alone || (std::isnan(together) && std::isnan(alone)))
        << code << " on " << day_number;
  }
}

}  // namespace
}  // namespace zenithor
