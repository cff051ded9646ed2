#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "search/roots.h"
#include "search/turning_points.h"

// Functions for the tests of the search room, with bounds that follow from their coefficients, and
// a plain scan to compare with that shares no code with the room.

namespace zenithor::testing {

constexpr double kEpoch = 2451545.0;

// drift (t - epoch) + sum of amplitude cos(frequency (t - epoch) + phase)
struct TrigonometricSum {
  struct Term {
    double amplitude;
    double frequency;
    double phase;
  };
  double drift = 0.0;
  std::vector<Term> terms;
  mutable std::int64_t calls = 0;

  // The derivative of that order.
  double Derivative(int order, double t) const {
    double sum = order == 0 ? drift * (t - kEpoch) : (order == 1 ? drift : 0.0);
    for (const Term& term : terms) {
      double factor = term.amplitude;
      for (int i = 0; i < order; ++i) {
        factor *= term.frequency;
      }
      const double quarter_turns = 1.5707963267948966 * order;
      sum += factor * std::cos(term.frequency * (t - kEpoch) + term.phase + quarter_turns);
    }
    return sum;
  }

  double operator()(double t) const {
    ++calls;
    return Derivative(0, t);
  }

  double Bound(int order) const {
    double sum = 0.0;
    for (const Term& term : terms) {
      sum += std::fabs(term.amplitude) * std::pow(term.frequency, order);
    }
    return sum;
  }

  // Twice what cosines of a few thousand radians and the sum can lose.
  double Noise(double farthest) const {
    return 4e-16 * (std::fabs(drift) * farthest + Bound(0) + Bound(1) * farthest);
  }
};

inline std::size_t IndexBelow(std::mt19937_64& random, std::size_t size) {
  return static_cast<std::size_t>(random() % size);
}

inline TrigonometricSum RandomSum(std::mt19937_64& random, int terms, double drift) {
  std::uniform_real_distribution<double> amplitude(-1.0, 1.0);
  std::uniform_real_distribution<double> period(20.0, 400.0);
  std::uniform_real_distribution<double> phase(0.0, 6.283185307179586);
  TrigonometricSum sum;
  sum.drift = drift;
  for (int i = 0; i < terms; ++i) {
    sum.terms.push_back({amplitude(random), 6.283185307179586 / period(random), phase(random)});
  }
  return sum;
}

// The moments at which a continuous function changes sign between neighbours of an even grid, by
// bisection.
template <class Callable>
std::vector<Root> ScannedRoots(Callable y_of, double from, double to, int steps) {
  std::vector<Root> roots;
  double a = from;
  double ya = y_of(a);
  for (int i = 1; i <= steps; ++i) {
    const double b = from + (to - from) * i / steps;
    const double yb = y_of(b);
    if ((ya >= 0.0) != (yb >= 0.0)) {
      double low = a;
      double high = b;
      for (int halving = 0; halving < 80; ++halving) {
        const double middle = low + 0.5 * (high - low);
        ((y_of(middle) >= 0.0) == (ya >= 0.0) ? low : high) = middle;
      }
      roots.push_back({low + 0.5 * (high - low), yb >= 0.0 ? 1 : -1});
    }
    a = b;
    ya = yb;
  }
  return roots;
}

inline std::vector<Root> AllRoots(const RootProblem& problem, double from, double to) {
  std::vector<Root> roots(
      static_cast<std::size_t>(std::max(FindRoots(problem, from, to, nullptr, 0), 0)));
  FindRoots(problem, from, to, roots.data(), static_cast<std::int32_t>(roots.size()));
  return roots;
}

inline std::vector<Root> AllTurningPoints(const TurningProblem& problem, double from, double to) {
  std::vector<Root> turns(
      static_cast<std::size_t>(std::max(FindTurningPoints(problem, from, to, nullptr, 0), 0)));
  FindTurningPoints(problem, from, to, turns.data(), static_cast<std::int32_t>(turns.size()));
  return turns;
}

}  // namespace zenithor::testing
