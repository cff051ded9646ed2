#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

#include "golden/golden_file.h"

namespace zenithor::golden {
namespace {

constexpr const char* kRisingHeading =
    "DayNumber [day]\tMinutes [min]\tZoneHours [h]\tObserverLongitude [deg]\t"
    "ObserverLatitude [deg]\tBody\tSelector\tResult [min]\n";

constexpr const char* kEventHeading =
    "Export\tJulianDay [day]\tSelector\tResult [day]\tMarchEquinox [day, date]\t"
    "JuneSolstice [day, date]\tSeptemberEquinox [day, date]\tDecemberSolstice [day, date]\t"
    "NewMoon [day, date]\tFirstQuarter [day, date]\tFullMoon [day, date]\t"
    "LastQuarter [day, date]\tSolarTotal [day, date]\tSolarAnnular [day, date]\t"
    "SolarAnnularTotal [day, date]\tSolarTotalNoncentral [day, date]\t"
    "SolarAnnularNoncentral [day, date]\tSolarPartial [day, date]\tSolarAny [day, date]\t"
    "LunarTotal [day, date]\tLunarPartial [day, date]\tLunarPenumbral [day, date]\t"
    "LunarAny [day, date]\n";

constexpr const char* kPositionHeading =
    "JulianDay [day]\tIgnored1\tIgnored2\tObserverLongitude [deg]\tObserverLatitude [deg]\t"
    "Ignored3\tBody\tResult\tHelioLongitude [deg]\tHelioLatitude [deg]\tHelioDistance [au]\t"
    "GeoLongitude [deg]\tGeoLatitude [deg]\tGeoDistance [au, Moon km]\tRightAscension [h]\t"
    "Declination [deg]\tMoonPhaseAngle [rad]\tMoonAxisPositionAngle [rad]\tReservedA0\t"
    "ReservedA1\tReservedA2\tReservedA3\tMoonIlluminatedFraction\tObliquity [rad]\t"
    "Centuries [36525 day]\tDate\n";

constexpr const char* kEarthRow =
    "2451545\t0.25\t-1.5\t11.439\t13.019\t7\tEarth\t323\t100.5\t-0.25\t0.5\t-\t-\t-\t-\t-\t-\t-\t-"
    "\t"
    "-\t-\t-\t-\t0.4\t0\t2000-01-01 12:00:00\n";

// The 19 blocks of an event that fills the June solstice and zeroes the other seasons.
constexpr const char* kSolstice =
    "0\t2437837.3924475 1962-06-21 21:25:07\t0\t0\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\n";

GoldenFile Read(const std::string& text) {
  std::istringstream stream(text);
  return ReadGoldenFile(stream, "file.tsv");
}

// What is said of a file that is refused.
std::string RefusalOf(const std::string& text) {
  try {
    Read(text);
  } catch (const Refused& refused) {
    return refused.what();
  }
  return "not refused";
}

// A file of risings, with these lines after the heading.
std::string Risings(int count, const std::string& lines) {
  return "# cases " + std::to_string(count) + "\n" + kRisingHeading + lines;
}

constexpr const char* kBlock = "# A sentence.\n# tolerance Result: 1e-6\n";
constexpr const char* kRow = "9941\t720\t0\t71.5\t42.25\tVenus\trise\t1234.5\n";

std::string RefusalOfRow(const std::string& row) {
  return RefusalOf(Risings(1, kBlock + row + "\n"));
}

TEST(GoldenFile, ReadsARising) {
  const GoldenFile file = Read(Risings(1, std::string(kBlock) + kRow));
  ASSERT_EQ(file.CaseCount(), 1U);
  const RisingCase& rising = file.risings.at(0);
  EXPECT_EQ(rising.line, 5);
  EXPECT_EQ(rising.words, "9941, 720, 0, 71.5, 42.25, Venus, rise");
  EXPECT_EQ(rising.call.day_number, 9941.0);
  EXPECT_EQ(rising.call.minutes, 720.0);
  EXPECT_EQ(rising.call.zone_hours, 0.0);
  EXPECT_EQ(rising.call.longitude_west, 71.5);
  EXPECT_EQ(rising.call.latitude, 42.25);
  EXPECT_EQ(rising.call.code, ZENITHOR_VENUS);
  EXPECT_EQ(rising.call.selector, ZENITHOR_RISE);
  EXPECT_EQ(rising.result.name, "Result");
  EXPECT_FALSE(rising.result.untouched);
  EXPECT_EQ(rising.result.value, 1234.5);
  EXPECT_EQ(rising.result.allowed, 1e-6);
}

TEST(GoldenFile, ReadsAPositionWithUntouchedFields) {
  const GoldenFile file = Read(std::string("# cases 1\n") + kPositionHeading +
                               "# The Earth.\n# tolerance all: 0\n"
                               "# tolerance HelioLongitude HelioDistance: 1e-9 or 1e-3 of the "
                               "value\n" +
                               kEarthRow);
  const PositionCase& position = file.positions.at(0);
  EXPECT_EQ(position.call.julian_day, 2451545.0);
  EXPECT_EQ(position.call.ignored1, 0.25);
  EXPECT_EQ(position.call.ignored2, -1.5);
  EXPECT_EQ(position.call.observer_longitude, 11.439);
  EXPECT_EQ(position.call.observer_latitude, 13.019);
  EXPECT_EQ(position.call.ignored3, 7.0);
  EXPECT_EQ(position.call.code, ZENITHOR_EARTH);
  EXPECT_EQ(position.result.value, 323.0);
  EXPECT_EQ(position.result.allowed, 0.0);
  EXPECT_EQ(position.doubles[0].value, 100.5);
  EXPECT_EQ(position.doubles[0].allowed, 0.1005);
  EXPECT_EQ(position.doubles[1].value, -0.25);
  EXPECT_EQ(position.doubles[1].allowed, 0.0);
  EXPECT_EQ(position.doubles[2].allowed, 0.0005);
  EXPECT_EQ(position.doubles[3].name, "GeoLongitude");
  EXPECT_TRUE(position.doubles[3].untouched);
  EXPECT_EQ(position.doubles[15].value, 0.4);
  EXPECT_EQ(position.doubles[16].value, 0.0);
  EXPECT_EQ(position.date.fields, (DateFields{2000, 1, 1, 12, 0, 0}));
}

TEST(GoldenFile, ReadsAnEventWithFilledZeroedAndUntouchedBlocks) {
  const GoldenFile file =
      Read(std::string("# cases 1\n") + kEventHeading + "# A solstice.\n# tolerance all: 2e-9\n" +
           "SUM_SOL\t2437665.5\t1\t2437837.3924475\t" + kSolstice);
  const EventCase& event = file.events.at(0);
  EXPECT_EQ(event.call.name, "SUM_SOL");
  EXPECT_EQ(event.call.julian_day, 2437665.5);
  EXPECT_EQ(event.call.selector, 1);
  EXPECT_EQ(event.result.value, 2437837.3924475);
  EXPECT_EQ(event.blocks[0].state, BlockState::kZeroed);
  EXPECT_EQ(event.blocks[1].state, BlockState::kFilled);
  EXPECT_EQ(event.blocks[1].julian_day.value, 2437837.3924475);
  EXPECT_EQ(event.blocks[1].julian_day.allowed, 2e-9);
  EXPECT_EQ(event.blocks[1].date.fields, (DateFields{1962, 6, 21, 21, 25, 7}));
  EXPECT_EQ(event.blocks[4].state, BlockState::kUntouched);
  EXPECT_EQ(event.blocks[18].state, BlockState::kUntouched);
}

TEST(GoldenFile, ReadsDatesBeforeTheYearZeroAndBeforeTheMonthsBegin) {
  const auto date_of = [](const std::string& date) {
    return Read(std::string("# cases 1\n") + kEventHeading + "# Early.\n# tolerance all: 0\n" +
                "TOTAL_SE\t0\t-\t0\t" + "-2000.5 " + date +
                "\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\t-\n")
        .events.at(0)
        .blocks[0]
        .date.fields;
  };
  EXPECT_EQ(date_of("-1537-04-04 18:25:43"), (DateFields{-1537, 4, 4, 18, 25, 43}));
  EXPECT_EQ(date_of("-4717--4--19 00:00:00"), (DateFields{-4717, -4, -19, 0, 0, 0}));
}

TEST(GoldenFile, ToleranceHoldsUntilAnotherIsGiven) {
  const GoldenFile file =
      Read(Risings(3, std::string(kBlock) + kRow + "\n# Another.\n" + kRow +
                          "\n# A third, met exactly.\n# tolerance Result: 0\n" + kRow));
  EXPECT_EQ(file.risings.at(0).result.allowed, 1e-6);
  EXPECT_EQ(file.risings.at(1).result.allowed, 1e-6);
  EXPECT_EQ(file.risings.at(2).result.allowed, 0.0);
}

TEST(GoldenFile, KnowsTheNamesOfBodiesAndSelectors) {
  const std::pair<const char*, BodyCode> bodies[] = {
      {"Sun", 0},    {"Mercury", 1}, {"Venus", 2},   {"Earth", 3}, {"Mars", 4}, {"Jupiter", 5},
      {"Saturn", 6}, {"Uranus", 7},  {"Neptune", 8}, {"Pluto", 9}, {"Moon", 10}};
  const std::pair<const char*, std::int32_t> selectors[] = {
      {"rise", 1}, {"transit", 2}, {"set", 3}};
  for (const auto& [body, code] : bodies) {
    for (const auto& [word, selector] : selectors) {
      const GoldenFile file =
          Read(Risings(1, std::string(kBlock) + "0\t0\t0\t0\t0\t" + body + "\t" + word + "\t0\n"));
      EXPECT_EQ(file.risings.at(0).call.code, code);
      EXPECT_EQ(file.risings.at(0).call.selector, selector);
    }
  }
}

TEST(GoldenFile, TakesABodyOrASelectorThatIsNoneAsANumber) {
  const GoldenFile file = Read(Risings(1, std::string(kBlock) + "0\t0\t0\t0\t0\t-1\t4\t0\n"));
  EXPECT_EQ(file.risings.at(0).call.code, -1);
  EXPECT_EQ(file.risings.at(0).call.selector, 4);
}

TEST(GoldenFile, TakesLinesThatEndAsOnWindows) {
  std::string text = Risings(1, std::string(kBlock) + kRow);
  for (std::size_t end = 0; (end = text.find('\n', end)) != std::string::npos; end += 2) {
    text.insert(end, "\r");
  }
  EXPECT_EQ(Read(text).risings.at(0).result.value, 1234.5);
}

TEST(GoldenFile, HoldsTheNumberOfCasesThatItSays) {
  EXPECT_EQ(RefusalOf(Risings(2, std::string(kBlock) + kRow)), "file.tsv:5: 1 case, not 2");
  EXPECT_EQ(RefusalOf(Risings(1, std::string(kBlock) + kRow + kRow)), "file.tsv:6: 2 cases, not 1");
  EXPECT_EQ(RefusalOf(kRisingHeading + std::string(kBlock) + kRow),
            "file.tsv:4: no line \"# cases 1\"");
  EXPECT_EQ(RefusalOf("# cases 1\n" + Risings(1, std::string(kBlock) + kRow)),
            "file.tsv:2: the number of cases stands here again");
  EXPECT_EQ(RefusalOf("# cases many\n"), "file.tsv:1: not a number of cases: \"many\"");
  EXPECT_EQ(RefusalOf("# cases 0\n"), "file.tsv:1: not a number of cases: \"0\"");
  EXPECT_EQ(RefusalOf(Risings(1, "")), "file.tsv:2: no case");
}

TEST(GoldenFile, RefusesAnotherHeading) {
  EXPECT_EQ(RefusalOf(""), "file.tsv: no heading");
  EXPECT_EQ(RefusalOf("P 2451545 0 0 0 0 0 1\t323\n"),
            "file.tsv:1: not the heading of a file of golden answers: it begins with "
            "\"P 2451545 0 0 0 0 0 1\"");
  EXPECT_EQ(RefusalOf("DayNumber [day]\tMinutes [min]\n"), "file.tsv:1: 2 columns, not 8");
  std::string heading = kRisingHeading;
  heading.replace(heading.find("[h]"), 3, "[min]");
  EXPECT_EQ(RefusalOf(heading),
            "file.tsv:1: column 3 is headed \"ZoneHours [min]\", not \"ZoneHours [h]\"");
}

TEST(GoldenFile, RefusesABlockWithoutASentence) {
  const std::string said = ": a block of cases begins with a sentence that says why it exists";
  EXPECT_EQ(RefusalOf(Risings(1, std::string("# tolerance Result: 0\n") + kRow)),
            "file.tsv:4" + said);
  EXPECT_EQ(RefusalOf(Risings(2, std::string(kBlock) + kRow + "\n" + kRow)), "file.tsv:7" + said);
  EXPECT_EQ(
      RefusalOf("# Of the file.\n" + Risings(1, std::string("# tolerance Result: 0\n") + kRow)),
      "file.tsv:5" + said);
  EXPECT_EQ(RefusalOf(Risings(2, std::string(kBlock) + kRow + "\n#\n" + kRow)),
            "file.tsv:8" + said);
}

TEST(GoldenFile, RefusesAToleranceThatIsMissingOrCannotBeRead) {
  const auto refusal_of = [](const std::string& tolerance) {
    return RefusalOf(Risings(1, "# A sentence.\n" + tolerance + kRow));
  };
  EXPECT_EQ(refusal_of(""), "file.tsv:4: no tolerance is given for Result");
  EXPECT_EQ(refusal_of("# tolerance Answer: 0\n"),
            "file.tsv:4: a tolerance of \"Answer\", which is no column of the answer");
  EXPECT_EQ(refusal_of("# tolerance Result 0\n"),
            "file.tsv:4: a tolerance is written \"# tolerance COLUMN...: NUMBER\"");
  for (const std::string wrong :
       {"1e-6 min", "-1", "x", "nan", "inf", "1e-6 or 1e-6", "", "1 or x of the value",
        "1 or -1 of the value", "1 or 2 of a value"}) {
    EXPECT_EQ(refusal_of("# tolerance Result: " + wrong + "\n"),
              "file.tsv:4: not a tolerance: \"" + wrong + "\"");
  }
  EXPECT_EQ(RefusalOf(std::string("# tolerance Result: 0\n") + kRisingHeading),
            "file.tsv:1: a tolerance before the heading");
}

TEST(GoldenFile, ADateIsMetExactly) {
  EXPECT_EQ(RefusalOf(std::string("# cases 1\n") + kPositionHeading +
                      "# The Earth.\n# tolerance all: 1e-9\n" + kEarthRow),
            "file.tsv:5: column 26, Date: a date is met exactly, so its tolerance is 0");
}

TEST(GoldenFile, RefusesACellThatCannotBeReadAndSaysWhichOne) {
  EXPECT_EQ(RefusalOfRow("9941\t720\t0"), "file.tsv:5: 3 columns, not 8");
  EXPECT_EQ(RefusalOfRow("9941\t720\t0\t71.5\t42.25\tVenus\trise\t1234.5\t0"),
            "file.tsv:5: 9 columns, not 8");
  EXPECT_EQ(RefusalOfRow("9941x\t720\t0\t71.5\t42.25\tVenus\trise\t1234.5"),
            "file.tsv:5: column 1, DayNumber: \"9941x\" is not a number");
  EXPECT_EQ(RefusalOfRow("9941\t-\t0\t71.5\t42.25\tVenus\trise\t1234.5"),
            "file.tsv:5: column 2, Minutes: \"-\" is not a number");
  EXPECT_EQ(RefusalOfRow("9941\t720\tnan\t71.5\t42.25\tVenus\trise\t1234.5"),
            "file.tsv:5: column 3, ZoneHours: \"nan\" is not a number");
  EXPECT_EQ(RefusalOfRow("9941\t720\t0\t71.5\t42.25\tVulcan\trise\t1234.5"),
            "file.tsv:5: column 6, Body: \"Vulcan\" is no body");
  EXPECT_EQ(RefusalOfRow("9941\t720\t0\t71.5\t42.25\tVenus\tup\t1234.5"),
            "file.tsv:5: column 7, Selector: \"up\" is no selector");
  EXPECT_EQ(RefusalOfRow("9941\t720\t0\t71.5\t42.25\tVenus\trise\t"),
            "file.tsv:5: column 8, Result: \"\" is not a number");
}

TEST(GoldenFile, RefusesAnEventThatCannotBeRead) {
  const auto refusal_of = [](const std::string& row) {
    return RefusalOf(std::string("# cases 1\n") + kEventHeading +
                     "# A solstice.\n# tolerance all: 2e-9\n" + row);
  };
  EXPECT_EQ(refusal_of(std::string("GEO_RISE\t0\t1\t0\t") + kSolstice),
            "file.tsv:5: column 1, Export: \"GEO_RISE\" is no export of events");
  EXPECT_EQ(refusal_of(std::string("SUM_SOL\t0\t-\t0\t") + kSolstice),
            "file.tsv:5: column 3, Selector: \"-\" is no selector of this export");
  EXPECT_EQ(refusal_of(std::string("TOTAL_SE\t0\t1\t0\t") + kSolstice),
            "file.tsv:5: column 3, Selector: \"1\" is no selector of this export");
  const std::pair<std::string, std::string> wrong_blocks[] = {
      {"2437837.5", "\"2437837.5\" is not a Julian day and its date"},
      {"", "\"\" is not a Julian day and its date"},
      {"x 1962-06-21 21:25:07", "\"x\" is not a number"},
      {"1 2 3", "\"2 3\" is not a date such as 2000-01-01 12:00:00"}};
  for (const auto& [wrong, said] : wrong_blocks) {
    std::string row = std::string("SUM_SOL\t0\t1\t0\t") + kSolstice;
    row.replace(row.find("2437837.3924475 1962-06-21 21:25:07"), 35, wrong);
    EXPECT_EQ(refusal_of(row), "file.tsv:5: column 6, JuneSolstice: " + said);
  }
  for (const std::string wrong :
       {"1962-6-21 21:25:07", "1962-06-21", "1962-06-21 21:25:07 ", "21:25:07", ""}) {
    std::string row = std::string("SUM_SOL\t0\t1\t0\t") + kSolstice;
    row.replace(row.find("1962-06-21 21:25:07"), 19, wrong);
    EXPECT_EQ(refusal_of(row), "file.tsv:5: column 6, JuneSolstice: \"" + wrong +
                                   "\" is not a date such as 2000-01-01 12:00:00");
  }
}

TEST(GoldenFile, SaysThatAFileCannotBeRead) {
  try {
    ReadGoldenFile(std::string("absent.tsv"));
    FAIL() << "not refused";
  } catch (const std::runtime_error& problem) {
    EXPECT_STREQ(problem.what(), "absent.tsv: cannot be read");
  }
}

}  // namespace
}  // namespace zenithor::golden
