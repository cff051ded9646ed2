#pragma once

namespace zenithor {

// Sums and products of doubles without error, as pairs: a number is high + low, low at most half an
// ulp of high. Only additions, subtractions and multiplications of IEEE doubles in a fixed order,
// so the bits are the same everywhere (T. J. Dekker, A floating-point technique for extending the
// available precision, Numerische Mathematik 18, 1971; Knuth, The Art of Computer Programming 2,
// section 4.2.2).
struct Pair {
  double high, low;
};

inline Pair Negative(Pair a) { return {-a.high, -a.low}; }
inline double Sum(Pair a) { return a.high + a.low; }

// a + b without error; any a and b whose sum does not overflow.
inline Pair TwoSum(double a, double b) {
  const double sum = a + b;
  const double of_b = sum - a;
  return {sum, (a - (sum - of_b)) + (b - of_b)};
}

// The same where a = 0 or |a| >= |b|.
inline Pair QuickTwoSum(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

// a + b to within 2^-104 of the larger, low at most an ulp of high.
inline Pair Plus(Pair a, double b) {
  const Pair sum = TwoSum(a.high, b);
  return QuickTwoSum(sum.high, sum.low + a.low);
}

// The first 26 bits of a, and the rest; |a| below 2^996.
inline Pair SplitInHalves(double a) {
  const double scaled = 134217729.0 * a;  // 2^27 + 1
  const double high = scaled - (scaled - a);
  return {high, a - high};
}

// a b without error, where the product is between 2^-960 and 2^996 in size, or 0.
inline Pair TwoProduct(double a, double b) {
  const double product = a * b;
  const Pair of_a = SplitInHalves(a);
  const Pair of_b = SplitInHalves(b);
  return {product,
          ((of_a.high * of_b.high - product) + of_a.high * of_b.low + of_a.low * of_b.high) +
              of_a.low * of_b.low};
}

// a / b to within 2^-100 of itself, for a and b between 2^-480 and 2^430 in size, or a = 0.
inline Pair Quotient(Pair a, Pair b) {
  const double first = a.high / b.high;
  const Pair product = TwoProduct(first, b.high);
  const double rest = ((a.high - product.high) - product.low) + (a.low - first * b.low);
  return QuickTwoSum(first, rest / b.high);
}

}  // namespace zenithor
