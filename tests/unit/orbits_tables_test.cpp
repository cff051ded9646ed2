// The PLAN404 tables against the published numbers, and their sums against a direct evaluation.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "orbits/series_sum.h"
#include "support/text_files.h"

namespace zenithor {
namespace {

using testing::LinesOf;
using testing::Split;

struct PublishedTerm {
  std::vector<int> pairs;  // multiplier, argument, multiplier, ...
  int power = 0;
  std::vector<std::vector<double>> coefficients;  // per column of the file
};

std::vector<double> Numbers(const std::string& text) {
  std::istringstream words(text);
  std::vector<double> numbers;
  for (std::string word; words >> word;) {
    numbers.push_back(std::stod(word));
  }
  return numbers;
}

std::vector<PublishedTerm> PublishedTerms(const std::string& name) {
  std::vector<PublishedTerm> terms;
  for (const std::string& line : LinesOf("data/plan404/" + name + ".txt")) {
    const std::vector<std::string> column = Split(line, '|');
    PublishedTerm term;
    std::string pairs = column.at(1);
    std::replace(pairs.begin(), pairs.end(), ':', ' ');
    for (const double number : Numbers(pairs)) {
      term.pairs.push_back(static_cast<int>(number));
    }
    term.power = std::stoi(column.at(2));
    for (std::size_t k = 3; k < column.size(); ++k) {
      term.coefficients.push_back(Numbers(column[k]));
    }
    terms.push_back(term);
  }
  return terms;
}

struct TableCase {
  const char* file;
  const PlanetSeriesTable& table;
  std::size_t terms;
  std::uint64_t checksum;
};

// Checksums: FNV-1a over the codes of the stream and then, coordinate by coordinate, over every
// coefficient in units of 1e-5 as a 64-bit little-endian integer; made by another program from the
// published files.
const TableCase kTables[] = {
    {"earth-moon-barycentre", kEarthMoonBarycentreSeries, 233, 0x5a64c6793003caafULL},
    {"pluto", kPlutoSeries, 173, 0xd0b8196ee1bb5c6eULL},
    {"moon-longitude-radius", kMoonLongitudeSeries, 632, 0xcb75d6867d3f1a3bULL},
    {"moon-latitude", kMoonLatitudeSeries, 361, 0x12948fae5ed55871ULL},
};

// The table's own coefficients of each coordinate, one after the other.
std::vector<std::vector<double>> ColumnsOf(const PlanetSeriesTable& table) {
  std::vector<std::vector<double>> columns(table.coordinates.count);
  const double* next = table.coefficients;
  for (const std::int8_t* code = table.arguments; *code >= 0;) {
    const int pairs = *code;
    code += 2 * pairs + 1;
    for (int power = *code++; power >= 0; --power) {
      for (std::vector<double>& column : columns) {
        column.insert(column.end(), next, next + (pairs == 0 ? 1 : 2));
        next += pairs == 0 ? 1 : 2;
      }
    }
  }
  return columns;
}

std::uint64_t Fnv(std::uint64_t hash, std::uint64_t value, int bytes) {
  for (int k = 0; k < bytes; ++k, value >>= 8) {
    hash = (hash ^ (value & 0xff)) * 0x100000001b3ULL;
  }
  return hash;
}

TEST(SeriesTables, HoldEveryPublishedNumber) {
  for (const TableCase& c : kTables) {
    const std::vector<PublishedTerm> terms = PublishedTerms(c.file);
    EXPECT_EQ(terms.size(), c.terms) << c.file;
    const std::int8_t* code = c.table.arguments;
    std::vector<std::vector<double>> columns(c.table.coordinates.count);
    for (const PublishedTerm& term : terms) {
      ASSERT_EQ(*code++, static_cast<int>(term.pairs.size() / 2)) << c.file;
      for (const int value : term.pairs) {
        ASSERT_EQ(*code++, value) << c.file;
      }
      ASSERT_EQ(*code++, term.power) << c.file;
      ASSERT_EQ(term.coefficients.size(), columns.size()) << c.file;
      for (std::size_t k = 0; k < columns.size(); ++k) {
        columns[k].insert(columns[k].end(), term.coefficients[k].begin(),
                          term.coefficients[k].end());
      }
    }
    EXPECT_EQ(*code, -1) << c.file;
    EXPECT_EQ(ColumnsOf(c.table), columns) << c.file;
  }
}

TEST(SeriesTables, HaveTheChecksumOfThePublishedFiles) {
  for (const TableCase& c : kTables) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    const std::int8_t* code = c.table.arguments;
    while (*code >= 0) {
      const int pairs = *code;
      for (int k = 0; k < 2 * pairs + 2; ++k) {
        hash = Fnv(hash, static_cast<std::uint8_t>(*code++), 1);
      }
    }
    hash = Fnv(hash, 0xff, 1);
    for (const std::vector<double>& column : ColumnsOf(c.table)) {
      for (const double coefficient : column) {
        hash = Fnv(hash, static_cast<std::uint64_t>(std::llround(coefficient * 1e5)), 8);
      }
    }
    EXPECT_EQ(hash, c.checksum) << c.file;
  }
}

// The sum of one coordinate straight from the published file: one cosine and one sine per term.
double DirectSum(const TableCase& c, std::size_t column, double t, const double* arguments,
                 bool reduced) {
  double sum = 0.0;
  for (const PublishedTerm& term : PublishedTerms(c.file)) {
    const std::vector<double>& values = term.coefficients.at(column);
    if (term.pairs.empty()) {
      double value = 0.0;
      for (const double coefficient : values) {
        value = value * t + coefficient;
      }
      sum += reduced ? value - 1296000.0 * std::floor(value / 1296000.0) : value;
      continue;
    }
    double angle = 0.0;
    for (std::size_t k = 0; k < term.pairs.size(); k += 2) {
      angle += term.pairs[k] * arguments[term.pairs[k + 1] - 1];
    }
    double cosine = 0.0;
    double sine = 0.0;
    for (std::size_t k = 0; k < values.size(); k += 2) {
      cosine = cosine * t + values[k];
      sine = sine * t + values[k + 1];
    }
    sum += cosine * std::cos(angle) + sine * std::sin(angle);
  }
  return sum;
}

double SumOf(Coordinate coordinate, const SeriesSums& sums) {
  return coordinate == Coordinate::kLongitude  ? sums.longitude
         : coordinate == Coordinate::kLatitude ? sums.latitude
                                               : sums.radius;
}

TEST(SumPlanetSeries, IsTheDirectSum) {
  const ArgumentList arguments = {0.1, 0.9, 1.7, 2.5, 3.3, 4.1, 4.9, 5.7, 0.4,
                                  1.2, 2.0, 2.8, 3.6, 4.4, 0.0, 0.0, 0.0, 0.0};
  SeriesRoom room;
  for (const TableCase& c : kTables) {
    for (const double t : {-0.5, 0.0, 0.013, 0.1}) {
      const SeriesSums sums =
          SumPlanetSeries(c.table, t, arguments, LongitudePolynomial::kAsItStands, room);
      for (std::size_t k = 0; k < c.table.coordinates.count; ++k) {
        // Angle addition costs some 1e-14 of coefficients whose sum is below 2e9.
        EXPECT_NEAR(SumOf(c.table.coordinates.entries[k], sums),
                    DirectSum(c, k, t, arguments, false), 2e-4)
            << c.file << " " << k;
      }
    }
  }
}

TEST(SumPlanetSeries, ReducesTheLongitudePolynomialOnlyWhereAsked) {
  const ArgumentList arguments = {};
  SeriesRoom room;
  const TableCase& pluto = kTables[1];
  const double t = 0.2;
  const SeriesSums reduced =
      SumPlanetSeries(kPlutoSeries, t, arguments, LongitudePolynomial::kReduced, room);
  const SeriesSums whole =
      SumPlanetSeries(kPlutoSeries, t, arguments, LongitudePolynomial::kAsItStands, room);
  EXPECT_NEAR(reduced.longitude, DirectSum(pluto, 0, t, arguments, true), 2e-4);
  EXPECT_NEAR(std::remainder(whole.longitude - reduced.longitude, 1296000.0), 0.0, 2e-4);
  EXPECT_GT(std::fabs(whole.longitude - reduced.longitude), 1296000.0);
}

void ExpectSameBits(const SeriesSums& a, const SeriesSums& b, const std::string& what) {
  EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0)
      << what << ": " << a.longitude - b.longitude << " " << a.latitude - b.latitude << " "
      << a.radius - b.radius;
}

// The quick walks against the plain one, whose arguments but the moving ones are 0.
TEST(SumMovingArguments, IsThePlainSumToTheBit) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> angle(-4e6, 4e6);
  std::uniform_real_distribution<double> time(-30.0, 30.0);
  SeriesRoom room;
  double room_of_two[kRoomOfTwo];
  for (const TableCase& c : kTables) {
    for (int round = 0; round < 300; ++round) {
      ArgumentList lists[kMomentsOfEarth] = {};
      double t[kMomentsOfEarth];
      for (std::size_t moment = 0; moment < kMomentsOfEarth; ++moment) {
        for (const std::int8_t argument : c.table.angles.arguments) {
          lists[moment][argument - 1] = round == 0 ? 0.0 : angle(random);
        }
        t[moment] = time(random);
      }
      SeriesSums two[kMomentsOfEarth];
      SumTwoMoments(c.table, t, lists, room_of_two, two);
      for (std::size_t moment = 0; moment < kMomentsOfEarth; ++moment) {
        for (const auto polynomial :
             {LongitudePolynomial::kAsItStands, LongitudePolynomial::kReduced}) {
          const SeriesSums plain =
              SumPlanetSeries(c.table, t[moment], lists[moment], polynomial, room);
          ExpectSameBits(SumMovingArguments(c.table, t[moment], lists[moment], polynomial, room),
                         plain, c.file);
          if (polynomial == LongitudePolynomial::kAsItStands) {
            ExpectSameBits(two[moment], plain, c.file);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace zenithor
