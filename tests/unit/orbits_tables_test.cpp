// The PLAN404 tables against the published numbers, and their sums against a direct evaluation.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
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
  std::vector<const double*> columns;
  std::size_t terms;
  std::uint64_t checksum;
};

// Checksums: FNV-1a over the codes of the stream and then, column by column, over every coefficient
// in units of 1e-5 as a 64-bit little-endian integer; made by another program from the published
// files.
const std::vector<TableCase>& Tables() {
  static const std::vector<TableCase> tables = {
      {"earth-moon-barycentre",
       kEarthMoonBarycentreSeries,
       {kEarthMoonBarycentreSeries.longitude, kEarthMoonBarycentreSeries.latitude,
        kEarthMoonBarycentreSeries.radius},
       233,
       0x5a64c6793003caafULL},
      {"pluto",
       kPlutoSeries,
       {kPlutoSeries.longitude, kPlutoSeries.latitude, kPlutoSeries.radius},
       173,
       0xd0b8196ee1bb5c6eULL},
      {"moon-longitude-radius",
       kMoonLongitudeSeries,
       {kMoonLongitudeSeries.longitude, kMoonLongitudeSeries.radius},
       632,
       0xcb75d6867d3f1a3bULL},
      {"moon-latitude",
       kMoonLatitudeSeries,
       {kMoonLatitudeSeries.latitude},
       361,
       0x12948fae5ed55871ULL},
  };
  return tables;
}

std::uint64_t Fnv(std::uint64_t hash, std::uint64_t value, int bytes) {
  for (int k = 0; k < bytes; ++k, value >>= 8) {
    hash = (hash ^ (value & 0xff)) * 0x100000001b3ULL;
  }
  return hash;
}

TEST(SeriesTables, HoldEveryPublishedNumber) {
  for (const TableCase& c : Tables()) {
    const std::vector<PublishedTerm> terms = PublishedTerms(c.file);
    EXPECT_EQ(terms.size(), c.terms) << c.file;
    const std::int8_t* code = c.table.arguments;
    std::vector<const double*> next = c.columns;
    for (const PublishedTerm& term : terms) {
      ASSERT_EQ(*code++, static_cast<int>(term.pairs.size() / 2)) << c.file;
      for (const int value : term.pairs) {
        ASSERT_EQ(*code++, value) << c.file;
      }
      ASSERT_EQ(*code++, term.power) << c.file;
      ASSERT_EQ(term.coefficients.size(), c.columns.size()) << c.file;
      for (std::size_t k = 0; k < next.size(); ++k) {
        for (const double value : term.coefficients[k]) {
          ASSERT_EQ(*next[k]++, value) << c.file;
        }
      }
    }
    EXPECT_EQ(*code, -1) << c.file;
  }
}

TEST(SeriesTables, HaveTheChecksumOfThePublishedFiles) {
  for (const TableCase& c : Tables()) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    std::size_t coefficients = 0;
    const std::int8_t* code = c.table.arguments;
    while (*code >= 0) {
      const int pairs = *code;
      for (int k = 0; k < 2 * pairs + 1; ++k) {
        hash = Fnv(hash, static_cast<std::uint8_t>(*code++), 1);
      }
      coefficients += static_cast<std::size_t>(*code + 1) * (pairs == 0 ? 1 : 2);
      hash = Fnv(hash, static_cast<std::uint8_t>(*code++), 1);
    }
    hash = Fnv(hash, 0xff, 1);
    for (const double* column : c.columns) {
      for (std::size_t k = 0; k < coefficients; ++k) {
        hash = Fnv(hash, static_cast<std::uint64_t>(std::llround(column[k] * 1e5)), 8);
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

TEST(SumPlanetSeries, IsTheDirectSum) {
  const double arguments[kArgumentLimit] = {0.1, 0.9, 1.7, 2.5, 3.3, 4.1, 4.9, 5.7, 0.4,
                                            1.2, 2.0, 2.8, 3.6, 4.4, 0.0, 0.0, 0.0, 0.0};
  for (const TableCase& c : Tables()) {
    SeriesScratch scratch;
    std::copy(std::begin(arguments), std::end(arguments), scratch.arguments);
    for (const double t : {-0.5, 0.0, 0.013, 0.1}) {
      FillRowsFromList(c.table, scratch);
      const SeriesSums sums =
          SumPlanetSeries(c.table, t, scratch.rows, LongitudePolynomial::kAsItStands);
      for (std::size_t k = 0; k < c.columns.size(); ++k) {
        const double sum = c.columns[k] == c.table.longitude  ? sums.longitude
                           : c.columns[k] == c.table.latitude ? sums.latitude
                                                              : sums.radius;
        // Angle addition costs some 1e-14 of coefficients whose sum is below 2e9.
        EXPECT_NEAR(sum, DirectSum(c, k, t, arguments, false), 2e-4) << c.file << " " << k;
      }
    }
  }
}

TEST(SumPlanetSeries, ReducesTheLongitudePolynomialOnlyWhereAsked) {
  SeriesScratch scratch;
  FillRowsFromList(kPlutoSeries, scratch);
  const TableCase& pluto = Tables()[1];
  const double t = 0.2;
  const SeriesSums reduced =
      SumPlanetSeries(kPlutoSeries, t, scratch.rows, LongitudePolynomial::kReduced);
  const SeriesSums whole =
      SumPlanetSeries(kPlutoSeries, t, scratch.rows, LongitudePolynomial::kAsItStands);
  EXPECT_NEAR(reduced.longitude, DirectSum(pluto, 0, t, scratch.arguments, true), 2e-4);
  EXPECT_NEAR(std::remainder(whole.longitude - reduced.longitude, 1296000.0), 0.0, 2e-4);
  EXPECT_GT(std::fabs(whole.longitude - reduced.longitude), 1296000.0);
}

}  // namespace
}  // namespace zenithor
