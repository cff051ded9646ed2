// Events of a span against a fine walk with the event exports' own routine.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "events/event_answer.h"
#include "values/events_of_span.h"
#include "zenithor/values.h"

namespace zenithor {
namespace {

struct Found {
  std::vector<double> days;
  std::vector<std::int32_t> kinds;
};

Found AllOf(std::int32_t kind_set, double from, double to) {
  MomentArray counting{nullptr, nullptr, 0};
  EventsOfSpan(kind_set, from, to, counting);
  Found found;
  found.days.resize(static_cast<std::size_t>(counting.count));
  found.kinds.resize(found.days.size());
  MomentArray moments{found.days.data(), found.kinds.data(), counting.count};
  EventsOfSpan(kind_set, from, to, moments);
  EXPECT_EQ(moments.count, counting.count);
  return found;
}

// Everything that an export answers when asked for every fourth day from before the span to after
// it.
std::vector<double> Walked(int block, double from, double to) {
  std::set<double> days;
  const int selector = block < 4 ? block : block - 4;
  for (double day = from - 400.0; day < to + 60.0; day += 4.0) {
    EventRecord record{};
    const double found = AnswerEvent(block, day, selector, &record);
    if (found >= from && found < to && found != 0.0) {
      days.insert(found);
    }
  }
  return {days.begin(), days.end()};
}

class EventsOfKind : public ::testing::TestWithParam<int> {};

TEST_P(EventsOfKind, AreThoseOfAFineWalkToTheBit) {
  const double spans[][2] = {{2415020.5, 2451545.0},
                             {ZENITHOR_FIRST_DAY, 1000000.5},
                             {2086000.5, 2090000.5},
                             {3172029.5, ZENITHOR_LAST_DAY}};
  std::size_t events = 0;
  for (const auto& span : spans) {
    const std::vector<double> walked = Walked(GetParam(), span[0], span[1]);
    const Found found = AllOf(KindSetOf(GetParam()), span[0], span[1]);
    EXPECT_EQ(found.days, walked) << span[0];
    events += walked.size();
  }
  EXPECT_GT(events, 0U);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EventsOfKind, ::testing::Range(0, ZENITHOR_KIND_COUNT - 0));

TEST(EventsOfSpan, MergesKindsInTheOrderOfTime) {
  const Found all = AllOf(SingleKinds(ZENITHOR_KINDS_ALL), 2451544.5, 2455197.5);
  EXPECT_TRUE(std::is_sorted(all.days.begin(), all.days.end()));
  std::size_t of_kinds = 0;
  for (int kind = 0; kind < ZENITHOR_KIND_COUNT; ++kind) {
    if (kind == ZENITHOR_KIND_SOLAR_ANY || kind == ZENITHOR_KIND_LUNAR_ANY) {
      continue;
    }
    std::vector<double> of_kind;
    for (std::size_t k = 0; k < all.days.size(); ++k) {
      if (all.kinds[k] == kind) {
        of_kind.push_back(all.days[k]);
      }
    }
    EXPECT_EQ(of_kind, AllOf(KindSetOf(kind), 2451544.5, 2455197.5).days) << kind;
    of_kinds += of_kind.size();
  }
  EXPECT_EQ(of_kinds, all.days.size());
  EXPECT_GT(all.days.size(), 500U);
}

TEST(EventsOfSpan, PartsOfASpanMakeTheWhole) {
  const std::int32_t set = SingleKinds(ZENITHOR_KINDS_ALL);
  const Found whole = AllOf(set, 2440000.5, 2443000.5);
  Found parts;
  double from = 2440000.5;
  for (std::size_t k = 0; k <= whole.days.size(); ++k) {
    // Borders exactly at events: the span holds its first moment and not its last.
    const double to = k < whole.days.size() ? whole.days[k] : 2443000.5;
    const Found part = AllOf(set, from, to);
    parts.days.insert(parts.days.end(), part.days.begin(), part.days.end());
    from = to;
  }
  EXPECT_EQ(parts.days, whole.days);
}

TEST(EventsOfSpan, RespectsTheCapacity) {
  double days[3] = {-1.0, -1.0, -1.0};
  std::int32_t kinds[3] = {-1, -1, -1};
  MomentArray moments{days, kinds, 2};
  EventsOfSpan(KindSetOf(ZENITHOR_KIND_NEW_MOON), 2451544.5, 2451910.5, moments);
  EXPECT_GE(moments.count, 12);
  EXPECT_GT(days[1], days[0]);
  EXPECT_EQ(days[2], -1.0);
  EXPECT_EQ(kinds[2], -1);
}

TEST(EventAfter, GoesThroughAllOfThem) {
  for (const std::int32_t set : {ZENITHOR_KINDS_ALL, ZENITHOR_KINDS_SOLAR_ECLIPSES, 1 << 10}) {
    const Found all = AllOf(SingleKinds(set), 2451544.5, 2453544.5);
    double day = 2451544.0;
    for (std::size_t k = 0; k < all.days.size(); ++k) {
      const NextEvent next = EventAfter(SingleKinds(set), day);
      EXPECT_EQ(next.julian_day, all.days[k]);
      EXPECT_EQ(next.kind, all.kinds[k]);
      day = next.julian_day;
    }
  }
  EXPECT_TRUE(std::isnan(EventAfter(1, 3181990.0).julian_day));
  EXPECT_TRUE(std::isnan(EventAfter(1, 5e6).julian_day));
  EXPECT_TRUE(std::isnan(EventAfter(1, std::nan("")).julian_day));
  EXPECT_TRUE(std::isnan(EventAfter(kNoKinds, 2451545.0).julian_day));
}

TEST(KindSets, KnowTheirKinds) {
  EXPECT_EQ(KindSetOf(-1), kNoKinds);
  EXPECT_EQ(KindSetOf(19), kNoKinds);
  EXPECT_EQ(KindSetOf(14), ZENITHOR_KINDS_SOLAR_ECLIPSES);
  EXPECT_EQ(SingleKinds(1 << 18), ZENITHOR_KINDS_LUNAR_ECLIPSES);
  EXPECT_EQ(SingleKinds(1 << 19), kNoKinds);
  EXPECT_EQ(SingleKinds(-1), kNoKinds);
  EXPECT_EQ(SingleKinds(0), kNoKinds);
  EXPECT_STREQ(KindName(8), "total solar eclipse");
  EXPECT_EQ(KindName(19), nullptr);
  EXPECT_EQ(KindName(-1), nullptr);
}

}  // namespace
}  // namespace zenithor
