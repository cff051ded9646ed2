#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace zenithor {

// A continuous function of time, handed in by the caller. A moment may be in any unit; the comments
// of this room say day.

// Writes the function's values at times[0] to times[count - 1]. Several at once, because some
// functions cost less per value that way. The value of a moment must depend on the moment alone:
// the same bits in give the same bits out, whatever is asked with it.
struct TimeFunction {
  void (*evaluate)(void* context, const double* times, std::int32_t count, double* values);
  void* context;
};

constexpr std::int32_t kValuesAtOnce = 8;  // the largest count that this room asks for

// The function that calls `callable(t)`, which must outlive it.
template <class Callable>
TimeFunction FunctionOf(Callable& callable) {
  return {[](void* context, const double* times, std::int32_t count, double* values) {
            for (std::int32_t i = 0; i < count; ++i) {
              values[i] = (*static_cast<Callable*>(context))(times[i]);
            }
          },
          const_cast<std::remove_const_t<Callable>*>(&callable)};
}

// The values at up to kValuesAtOnce moments. A moment without a value (NaN) takes that of the next
// representable moment that has one, up to the third: a function may have no value at single
// moments, such as those at which an angle is 0 to the last bit.
inline void ValuesAt(const TimeFunction& function, const double* times, std::int32_t count,
                     double* values) {
  constexpr int kNeighbours = 3;
  function.evaluate(function.context, times, count, values);
  for (std::int32_t i = 0; i < count; ++i) {
    double t = times[i];
    for (int tried = 0; std::isnan(values[i]) && tried < kNeighbours; ++tried) {
      t = std::nextafter(t, std::numeric_limits<double>::infinity());
      function.evaluate(function.context, &t, 1, &values[i]);
    }
  }
}

inline double ValueAt(const TimeFunction& function, double t) {
  double value;
  ValuesAt(function, &t, 1, &value);
  return value;
}

// The greatest power of two that is not above x; x positive and normal.
inline double PowerOfTwoBelow(double x) {
  int exponent;
  std::frexp(x, &exponent);
  return std::ldexp(1.0, exponent - 1);
}

// x - target brought into -period/2 to period/2; unchanged when period is 0.
inline double Departure(double x, double target, double period) {
  return period > 0.0 ? std::remainder(x - target, period) : x - target;
}

}  // namespace zenithor
