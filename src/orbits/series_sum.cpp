#include "orbits/series_sum.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "numerics/angles.h"
#include "numerics/sine_cosine.h"

namespace zenithor {

namespace {

// Two moments are two lanes of a vector.
typedef double TwoMoments __attribute__((vector_size(sizeof(double) * kMomentsOfEarth)));

template <class Real>
constexpr std::size_t kLanes = kMomentsOfEarth;
template <>
constexpr std::size_t kLanes<double> = 1;

template <class Real>
struct AngleOf {
  Real sine, cosine;
};

template <class Real>
Real FromLanes(const double* lanes) {
  Real value;
  std::memcpy(&value, lanes, sizeof value);
  return value;
}

template <class Real>
Real InEveryLane(double value) {
  return value - Real{};
}

// The angles of one walk, by their numbers.
template <class Real>
class Angles {
 public:
  explicit Angles(double* room) : next_(room), first_(room) {}

  AngleOf<Real> operator[](std::int16_t number) const {
    const double* const at = first_ + 2 * kLanes<Real> * static_cast<std::size_t>(number);
    return {FromLanes<Real>(at), FromLanes<Real>(at + kLanes<Real>)};
  }
  void Append(const AngleOf<Real>& angle) {
    std::memcpy(next_, &angle.sine, sizeof angle.sine);
    std::memcpy(next_ + kLanes<Real>, &angle.cosine, sizeof angle.cosine);
    next_ += 2 * kLanes<Real>;
  }
  // The argument, counted from 1, of each lane's list.
  void AppendArgument(const ArgumentList* lists, int argument) {
    for (std::size_t lane = 0; lane < kLanes<Real>; ++lane) {
      const CosineSine turned = CosineAndSine(lists[lane][argument - 1]);
      next_[lane] = turned.sine;
      next_[kLanes<Real> + lane] = turned.cosine;
    }
    next_ += 2 * kLanes<Real>;
  }
  void AppendSum(AngleProduct of) {
    const AngleOf<Real> a = (*this)[of.first];
    const AngleOf<Real> b = (*this)[of.second];
    Append({a.sine * b.cosine + a.cosine * b.sine, a.cosine * b.cosine - a.sine * b.sine});
  }

 private:
  double* next_;
  const double* first_;
};

// `lists` holds the arguments of each lane; `made` is empty at first.
template <class Real>
Angles<Real> AnglesOf(const SeriesAngles& angles, const ArgumentList* lists, Angles<Real> made) {
  made.Append({InEveryLane<Real>(0.0), InEveryLane<Real>(1.0)});
  for (const std::int8_t argument : angles.arguments) {
    made.AppendArgument(lists, argument);
  }
  for (const AngleProduct product : angles.multiples) {
    made.AppendSum(product);
  }
  for (const std::int16_t number : angles.opposites) {
    const AngleOf<Real> angle = made[number];
    made.Append({-angle.sine, angle.cosine});
  }
  for (const AngleProduct product : angles.products) {
    made.AppendSum(product);
  }
  return made;
}

// The polynomial's coordinates by Horner's rule in T; moves `coefficients` past it.
template <class Real>
void AddPolynomial(int power, std::size_t coordinates, Real t, const double*& coefficients,
                   Real* sums) {
  for (std::size_t k = 0; k < coordinates; ++k) {
    sums[k] = InEveryLane<Real>(coefficients[k]);
  }
  coefficients += coordinates;
  for (int p = 0; p < power; ++p, coefficients += coordinates) {
    for (std::size_t k = 0; k < coordinates; ++k) {
      sums[k] = sums[k] * t + coefficients[k];
    }
  }
}

// The coordinates of a periodic term likewise.
template <std::size_t kCoordinates, class Real>
[[gnu::always_inline]] inline void AddPeriodicTerm(int power, Real t, const AngleOf<Real>& angle,
                                                   const double*& coefficients, Real* sums) {
  Real c[kCoordinates];
  Real s[kCoordinates];
#pragma GCC unroll 3
  for (std::size_t k = 0; k < kCoordinates; ++k) {
    c[k] = InEveryLane<Real>(coefficients[2 * k]);
    s[k] = InEveryLane<Real>(coefficients[2 * k + 1]);
  }
  coefficients += 2 * kCoordinates;
  for (int p = 0; p < power; ++p, coefficients += 2 * kCoordinates) {
#pragma GCC unroll 3
    for (std::size_t k = 0; k < kCoordinates; ++k) {
      c[k] = c[k] * t + coefficients[2 * k];
      s[k] = s[k] * t + coefficients[2 * k + 1];
    }
  }
#pragma GCC unroll 3
  for (std::size_t k = 0; k < kCoordinates; ++k) {
    sums[k] += c[k] * angle.cosine + s[k] * angle.sine;
  }
}

// Calls add(the table's number of coordinates, as a constant).
template <class Add>
void ForCoordinates(const PlanetSeriesTable& table, const Add& add) {
  switch (table.coordinates.count) {
    case 1:
      return add(std::integral_constant<std::size_t, 1>());
    case 2:
      return add(std::integral_constant<std::size_t, 2>());
    default:
      return add(std::integral_constant<std::size_t, 3>());
  }
}

// What a walk along `angles.terms` adds to the polynomial.
template <class Real>
void AddTerms(const PlanetSeriesTable& table, Real t, const Angles<Real>& angles,
              const double* coefficients, Real* sums) {
  ForCoordinates(table, [&](auto coordinates) {
    for (const TermAngle& term : table.angles.terms) {
      AddPeriodicTerm<coordinates>(term.power, t, angles[term.angle], coefficients, sums);
    }
  });
}

SeriesSums Named(const PlanetSeriesTable& table, const double* sums) {
  SeriesSums named{0.0, 0.0, 0.0};
  for (const Coordinate coordinate : table.coordinates) {
    (coordinate == Coordinate::kLongitude  ? named.longitude
     : coordinate == Coordinate::kLatitude ? named.latitude
                                           : named.radius) = *sums++;
  }
  return named;
}

// Starts the sums of one moment with the polynomial; returns the coefficients that follow.
const double* Start(const PlanetSeriesTable& table, double t, LongitudePolynomial polynomial,
                    double* sums) {
  const double* coefficients = table.coefficients;
  AddPolynomial(table.arguments[1], table.coordinates.count, t, coefficients, sums);
  if (polynomial == LongitudePolynomial::kReduced &&
      table.coordinates.entries[0] == Coordinate::kLongitude) {
    sums[0] = ReduceArcseconds(sums[0]);
  }
  return coefficients;
}

}  // namespace

SeriesSums SumPlanetSeries(const PlanetSeriesTable& table, double t, const ArgumentList& arguments,
                           LongitudePolynomial polynomial, SeriesRoom& room) {
  for (std::size_t k = 0; k < table.argument_count; ++k) {
    if (table.highest_harmonic[k] > 0) {
      FillMultiples(arguments[k], table.highest_harmonic[k], room.rows[k]);
    }
  }
  double sums[kCoordinateLimit];
  const double* coefficients = Start(table, t, polynomial, sums);
  ForCoordinates(table, [&](auto coordinates) {
    const std::int8_t* code = table.arguments + 2;
    for (int pairs = *code++; pairs >= 0; pairs = *code++) {
      AngleSum sum;
      for (int k = 0; k < pairs; ++k, code += 2) {
        AddMultiple(code[0], room.rows[code[1] - 1], sum);
      }
      const int power = *code++;
      AddPeriodicTerm<coordinates>(power, t, AngleOf<double>{sum.sine, sum.cosine}, coefficients,
                                   sums);
    }
  });
  return Named(table, sums);
}

SeriesSums SumMovingArguments(const PlanetSeriesTable& table, double t,
                              const ArgumentList& arguments, LongitudePolynomial polynomial,
                              SeriesRoom& room) {
  double sums[kCoordinateLimit];
  const double* const coefficients = Start(table, t, polynomial, sums);
  AddTerms(table, t, AnglesOf(table.angles, &arguments, Angles<double>(room.sines_cosines)),
           coefficients, sums);
  return Named(table, sums);
}

bool OthersStandStill(const PlanetSeriesTable& table, const ArgumentList& arguments) {
  const ListOf<std::int8_t>& moving = table.angles.arguments;
  for (int k = 0; k < table.argument_count; ++k) {
    if (table.highest_harmonic[static_cast<std::size_t>(k)] > 0 && arguments[k] != 0.0 &&
        std::find(moving.begin(), moving.end(), k + 1) == moving.end()) {
      return false;
    }
  }
  return true;
}

SeriesSums SumSeries(const PlanetSeriesTable& table, double t, const ArgumentList& arguments,
                     LongitudePolynomial polynomial, SeriesRoom& room) {
  return OthersStandStill(table, arguments)
             ? SumMovingArguments(table, t, arguments, polynomial, room)
             : SumPlanetSeries(table, t, arguments, polynomial, room);
}

void SumTwoMoments(const PlanetSeriesTable& table, const double (&t)[kMomentsOfEarth],
                   const ArgumentList (&arguments)[kMomentsOfEarth], double* room,
                   SeriesSums (&sums)[kMomentsOfEarth]) {
  const TwoMoments both_t = FromLanes<TwoMoments>(t);
  TwoMoments both[kCoordinateLimit];
  const double* coefficients = table.coefficients;
  AddPolynomial(table.arguments[1], table.coordinates.count, both_t, coefficients, both);
  AddTerms(table, both_t, AnglesOf(table.angles, arguments, Angles<TwoMoments>(room)), coefficients,
           both);
  for (std::size_t moment = 0; moment < kMomentsOfEarth; ++moment) {
    double of_moment[kCoordinateLimit] = {};
    for (std::size_t k = 0; k < table.coordinates.count; ++k) {
      of_moment[k] = both[k][moment];
    }
    sums[moment] = Named(table, of_moment);
  }
}

}  // namespace zenithor
