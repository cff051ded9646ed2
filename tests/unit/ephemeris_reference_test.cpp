// The sums over the series against a deliberately naive second method: quadruple precision,
// straight from the coefficient files, sharing no code with the library.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "ephemeris/series.h"
#include "support/full_store.h"
#include "support/text_files.h"

#if defined(__SIZEOF_FLOAT128__) && !defined(_WIN32)

namespace zenithor {
namespace {

__extension__ using Quad = __float128;

// "-12.345" exactly: digits as an integer, divided by a power of ten once.
Quad Decimal(const std::string& text) {
  Quad digits = 0;
  Quad scale = 1;
  bool fraction = false;
  for (const char c : text) {
    if (c == '.') {
      fraction = true;
    } else if (c != '-') {
      digits = digits * 10 + (c - '0');
      scale = fraction ? scale * 10 : scale;
    }
  }
  return (text[0] == '-' ? -digits : digits) / scale;
}

// Reduced to one turn, then Taylor's series until its terms vanish.
Quad Cosine(Quad x) {
  static const Quad kTurn = 2 * Decimal("3.14159265358979323846264338327950288419716939937510");
  const auto turns = static_cast<std::int64_t>(x / kTurn + (x < 0 ? -0.5 : 0.5));
  x -= static_cast<Quad>(turns) * kTurn;
  Quad term = 1;
  Quad sum = 1;
  for (int n = 1; n < 60 && (term > 1e-36 || term < -1e-36); ++n) {
    term *= -x * x / ((2 * n - 1) * (2 * n));
    sum += term;
  }
  return sum;
}

struct QuadTerm {
  int coordinate;
  int power;
  Quad amplitude, phase, frequency;
};

std::vector<QuadTerm> TermsOf(const char* name) {
  std::vector<QuadTerm> terms;
  for (const std::string& line : testing::LinesOf(std::string("data/vsop87/") + name + ".csv")) {
    const auto field = testing::Split(line, ',');
    if (field.at(0) != "coordinate") {
      terms.push_back({static_cast<int>(std::string("LBR").find(field[0])), std::stoi(field.at(1)),
                       Decimal(field.at(2)), Decimal(field.at(3)), Decimal(field.at(4))});
    }
  }
  return terms;
}

struct Errors {
  double value[3] = {};  // [rad], [rad], [au]
};

// The differences of SumStoredSeries from the reference, the largest over some moments within
// `reach` centuries of J2000.0. The moments are multiples of 1/64, so that they are exact in both.
Errors LargestErrors(int slot, const std::vector<QuadTerm>& terms, double reach, int moments) {
  Errors largest;
  for (int k = 0; k < moments; ++k) {
    const double fraction = std::fmod(0.5 + k * 0.6180339887498949, 1.0);
    const double t = std::round((2.0 * fraction - 1.0) * reach * 64.0) / 64.0;
    const Quad millennia = static_cast<Quad>(t) / 10;
    Quad reference[3] = {0, 0, 0};
    for (const QuadTerm& term : terms) {
      Quad value = term.amplitude * Cosine(term.phase + term.frequency * millennia);
      for (int p = 0; p < term.power; ++p) {
        value *= millennia;
      }
      reference[term.coordinate] += value;
    }
    const Spherical place = SumStoredSeries(testing::FullStore(), slot, t);
    const double sums[3] = {place.longitude, place.latitude, place.radius};
    for (int c = 0; c < 3; ++c) {
      largest.value[c] =
          std::max(largest.value[c],
                   std::fabs(static_cast<double>(static_cast<Quad>(sums[c]) - reference[c])));
    }
  }
  return largest;
}

struct Bound {
  const char* source;
  // Within 5 centuries of J2000.0, and within 50.
  Errors near, far;
};

// Measured at 400 moments each (ZENITHOR_REFERENCE_MOMENTS=400 prints them), with a third to spare.
// The longitude is summed unreduced (Mercury: 26088 rad a millennium), so its last bits are lost
// with its size.
constexpr Bound kBounds[] = {
    {"vsop87b-earth", {{7.7e-12, 5.5e-16, 1.2e-14}}, {{7.8e-11, 4.7e-14, 1.0e-13}}},
    {"vsop87d-mercury", {{7.3e-11, 3.8e-13, 1.5e-13}}, {{7.4e-10, 4.3e-12, 2.0e-12}}},
    {"vsop87d-venus", {{1.4e-11, 5.5e-14, 4.6e-15}}, {{1.1e-10, 7.3e-13, 6.5e-14}}},
    {"vsop87d-earth", {{6.6e-12, 1.6e-17, 1.5e-14}}, {{8.4e-11, 3.1e-16, 1.1e-13}}},
    {"vsop87d-mars", {{5.4e-12, 1.1e-14, 4.9e-14}}, {{4.2e-11, 1.2e-13, 4.5e-13}}},
    {"vsop87d-jupiter", {{1.1e-12, 1.4e-15, 3.8e-14}}, {{1.1e-11, 1.6e-14, 2.0e-13}}},
    {"vsop87d-saturn", {{3.9e-13, 9.6e-16, 7.3e-14}}, {{2.8e-12, 8.4e-15, 1.2e-13}}},
    {"vsop87d-uranus", {{1.5e-13, 1.6e-16, 1.5e-13}}, {{1.5e-12, 1.6e-15, 1.3e-13}}},
    {"vsop87d-neptune", {{4.3e-14, 1.6e-16, 1.3e-13}}, {{4.0e-13, 1.5e-15, 1.0e-13}}},
};

void ExpectWithin(const Errors& errors, const Errors& bound, const char* source) {
  for (int c = 0; c < 3; ++c) {
    EXPECT_LE(errors.value[c], bound.value[c]) << source << " "
                                               << "LBR"[c];
  }
}

TEST(SumStoredSeries, StaysWithinItsErrorBoundsAgainstQuadruplePrecision) {
  const char* const asked = std::getenv("ZENITHOR_REFERENCE_MOMENTS");
  const int moments = asked == nullptr ? 8 : std::atoi(asked);
  int slot = 0;
  for (const Bound& bound : kBounds) {
    const std::vector<QuadTerm> terms = TermsOf(bound.source);
    const Errors near = LargestErrors(slot, terms, 5.0, moments);
    const Errors far = LargestErrors(slot, terms, 50.0, moments);
    if (asked != nullptr) {
      std::printf("%s near %.2g %.2g %.2g far %.2g %.2g %.2g\n", bound.source, near.value[0],
                  near.value[1], near.value[2], far.value[0], far.value[1], far.value[2]);
    }
    ExpectWithin(near, bound.near, bound.source);
    ExpectWithin(far, bound.far, bound.source);
    ++slot;
  }
}

}  // namespace
}  // namespace zenithor

#endif
