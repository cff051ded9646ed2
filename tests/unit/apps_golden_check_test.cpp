#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "golden/check.h"
#include "golden/library_functions.h"
#include "golden/untouched.h"

namespace zenithor::golden {
namespace {

GoldenFile OneRising(double expected, double allowed) {
  GoldenFile file;
  file.path = "file.tsv";
  RisingCase rising{7, "9941, Venus, rise", {}, {}};
  rising.result = {"Result", false, expected, allowed};
  file.risings.push_back(rising);
  return file;
}

Functions RisingOf(double answer) {
  Functions functions;
  functions.rising = [answer](const RisingCall&) { return answer; };
  return functions;
}

int FailuresOf(double expected, double allowed, double answer) {
  return Check(OneRising(expected, allowed), RisingOf(answer)).failures;
}

TEST(Check, AllowsTheToleranceAndNoMore) {
  EXPECT_EQ(FailuresOf(8.0, 0.5, 8.5), 0);
  EXPECT_EQ(FailuresOf(8.0, 0.5, 7.5), 0);
  EXPECT_EQ(FailuresOf(8.0, 0.5, std::nextafter(8.5, 9.0)), 1);
  EXPECT_EQ(FailuresOf(8.0, 0.5, std::nextafter(7.5, 7.0)), 1);
  EXPECT_EQ(FailuresOf(16.0, 0.0, 16.0), 0);
  EXPECT_EQ(FailuresOf(16.0, 0.0, std::nextafter(16.0, 17.0)), 1);
  EXPECT_EQ(FailuresOf(8.0, 0.5, std::nan("")), 1);
}

TEST(Check, SaysWhereAndWhatTheFirstFailureIs) {
  GoldenFile file = OneRising(8.0, 0.0);
  file.risings.push_back(file.risings[0]);
  file.risings[1].line = 9;
  const Summary summary = Check(file, RisingOf(8.5));
  EXPECT_EQ(summary.cases, 2);
  EXPECT_EQ(summary.failures, 2);
  EXPECT_EQ(summary.first_failure, "file.tsv:7: 9941, Venus, rise: Result is 8.5, not 8");
  EXPECT_EQ(Check(OneRising(8.0, 0.0), RisingOf(8.0)).first_failure, "");
}

// A case in which ZENITHOR writes field 1 and the date, and nothing else.
GoldenFile OnePosition() {
  GoldenFile file;
  file.path = "file.tsv";
  PositionCase position{3, "2451545, Mars", {}, {}, {}, {}};
  position.result = {"Result", false, 323.0, 0.0};
  for (ExpectedNumber& field : position.doubles) {
    field = {"Field", true, 0.0, 0.0};
  }
  position.doubles[0] = {"HelioLongitude", false, 100.0, 0.0};
  position.date = {"Date", false, {2000, 1, 1, 12, 0, 0}};
  file.positions.push_back(position);
  return file;
}

// The first failure of OnePosition where the answer is right but for what `spoil` does to it.
std::string PositionFailure(const std::function<void(BodyPositionRecord&)>& spoil,
                            double result = 323.0) {
  Functions functions;
  functions.position = [&](const PositionCall&, BodyPositionRecord* record) {
    record->HelioLongitude = 100.0;
    record->Year = 2000;
    record->Month = record->Day = 1;
    record->Hour = 12;
    record->Minute = record->Second = 0;
    spoil(*record);
    return result;
  };
  return Check(OnePosition(), functions).first_failure;
}

TEST(Check, ComparesEveryFieldOfAPosition) {
  const std::string where = "file.tsv:3: 2451545, Mars: ";
  EXPECT_EQ(PositionFailure([](BodyPositionRecord&) {}), "");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord&) {}, 0.0), where + "Result is 0, not 323");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) { record.HelioLongitude = 99.5; }),
            where + "HelioLongitude is 99.5, not 100");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) { record.HelioLatitude = 0.0; }),
            where + "Field was touched: 0");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) { record.ReservedA[3] = 0.5; }),
            where + "Field was touched: 0.5");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) { record.Centuries = 2.0; }),
            where + "Field was touched: 2");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) { record.Second = 59; }),
            where + "Date is 2000-01-01 12:00:59, not 2000-01-01 12:00:00");
  EXPECT_EQ(PositionFailure([](BodyPositionRecord& record) {
              record.HelioLongitude = 99.5;
              record.Day = 2;
            }),
            where +
                "HelioLongitude is 99.5, not 100; Date is 2000-01-02 12:00:00, not 2000-01-01 "
                "12:00:00");
}

TEST(Check, ADateThatMustBeLeftAsItWasIsSeenWhenItIsNot) {
  GoldenFile file = OnePosition();
  file.positions[0].date = {"Date", true, {}};
  Functions functions;
  functions.position = [](const PositionCall&, BodyPositionRecord* record) {
    record->HelioLongitude = 100.0;
    return 323.0;
  };
  EXPECT_EQ(Check(file, functions).failures, 0);
  functions.position = [](const PositionCall&, BodyPositionRecord* record) {
    record->HelioLongitude = 100.0;
    record->Minute = 1;
    return 323.0;
  };
  EXPECT_EQ(Check(file, functions).first_failure,
            "file.tsv:3: 2451545, Mars: Date was touched: -777--777--777 -777:01:-777");
}

// A case in which an event function fills block 1, zeroes block 0 and leaves the others.
std::string EventFailure(const std::function<void(EventRecord&)>& spoil) {
  GoldenFile file;
  file.path = "file.tsv";
  EventCase event{5, "SUM_SOL, 2437665.5, 1", {}, {}, {}};
  event.result = {"Result", false, 2437837.5, 0.0};
  event.blocks[0].state = BlockState::kZeroed;
  event.blocks[1] = {BlockState::kFilled,
                     {"JuneSolstice", false, 2437837.5, 0.25},
                     {"JuneSolstice", false, {1962, 6, 22, 0, 0, 0}}};
  file.events.push_back(event);
  Functions functions;
  functions.event = [&](const EventCall&, EventRecord* record) {
    record->Blocks[0] = {};
    record->Blocks[1] = {2437837.5, 1962, 6, 22, 0, 0, 0};
    spoil(*record);
    return 2437837.5;
  };
  return Check(file, functions).first_failure;
}

TEST(Check, ComparesEveryBlockOfAnEvent) {
  const std::string where = "file.tsv:5: SUM_SOL, 2437665.5, 1: ";
  EXPECT_EQ(EventFailure([](EventRecord&) {}), "");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[0].JulianDay = -0.0; }),
            where + "block 0 is not zeroed");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[0] = UntouchedBlock(); }),
            where + "block 0 is not zeroed");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[1].JulianDay = 2437837.75; }), "");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[1].JulianDay = 2437838.0; }),
            where + "JuneSolstice is 2437838, not 2437837.5");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[1].Second = 1; }),
            where + "JuneSolstice is 1962-06-22 00:00:01, not 1962-06-22 00:00:00");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[18] = {}; }),
            where + "block 18 was touched");
  EXPECT_EQ(EventFailure([](EventRecord& record) { record.Blocks[2].Year = 0; }),
            where + "block 2 was touched");
}

TEST(Check, AFunctionThatIsNotGivenCannotBeChecked) {
  EXPECT_THROW(Check(OneRising(0.0, 0.0), Functions{}), std::bad_function_call);
}

TEST(FunctionsOf, HandOverTheArgumentsInTheirOrder) {
  ZenithorLibrary library{};
  library.ZENITHOR = [](double a, double b, double c, double d, double e, double f, BodyCode code,
                        BodyPositionRecord*) {
    return a + 10 * b + 100 * c + 1e3 * d + 1e4 * e + 1e5 * f + 1e6 * code;
  };
  library.GEO_RISE = [](double a, double b, double c, double d, double e, BodyCode code,
                        std::int32_t selector) {
    return a + 10 * b + 100 * c + 1e3 * d + 1e4 * e + 1e5 * code + 1e6 * selector;
  };
  library.FULL_MOON = [](double day, double, double, std::int32_t selector, EventRecord* record) {
    record->Blocks[0].Year = 1;
    return day + 10 * selector;
  };
  library.ALL_LE = [](double day, double, double, EventRecord* record) {
    record->Blocks[0].Year = 2;
    return day + 0.5;
  };
  library.TOTAL_SE = [](double day, EventRecord* record) {
    record->Blocks[0].Year = 3;
    return day + 0.25;
  };
  const Functions functions = FunctionsOf(library);
  BodyPositionRecord position{};
  EXPECT_EQ(functions.position({1, 2, 3, 4, 5, 6, 7}, &position), 7654321.0);
  EXPECT_EQ(functions.rising({1, 2, 3, 4, 5, 6, 7}), 7654321.0);
  EventRecord events{};
  EXPECT_EQ(functions.event({"FULL_MOON", 1.0, 2}, &events), 21.0);
  EXPECT_EQ(events.Blocks[0].Year, 1);
  EXPECT_EQ(functions.event({"ALL_LE", 1.0, 0}, &events), 1.5);
  EXPECT_EQ(events.Blocks[0].Year, 2);
  EXPECT_EQ(functions.event({"TOTAL_SE", 1.0, 0}, &events), 1.25);
  EXPECT_EQ(events.Blocks[0].Year, 3);
}

TEST(FunctionsOf, AnExportThatTheLibraryLacksMeetsNoAnswer) {
  const ZenithorLibrary library{};
  const Functions functions = FunctionsOf(library);
  EventRecord events{};
  EXPECT_TRUE(std::isnan(functions.rising({})));
  EXPECT_TRUE(std::isnan(functions.position({}, nullptr)));
  EXPECT_TRUE(std::isnan(functions.event({"TOTAL_SE", 0.0, 0}, &events)));
  EXPECT_TRUE(std::isnan(functions.event({"NO_SUCH", 0.0, 0}, &events)));
}

}  // namespace
}  // namespace zenithor::golden
