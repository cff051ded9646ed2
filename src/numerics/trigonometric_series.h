#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

#include "numerics/sincos.h"

namespace zenithor {

// The sum of a trigonometric series over the rows of a table, in its order. The compiler alone
// reads the table: each row becomes code of its own with its multipliers and coefficients as
// constants, and no table is left to be walked at run time.
//
// A row is a record whose member `multipliers` holds an integer for each angle of the series. The
// argument of a row [rad] is the sum of the multiples of the angles, in the order of the angles;
// what is multiplied by 0 is left out.

// Adds one multiple to an argument.
template <int multiplier>
void AddToArgument(double angle, double& argument) {
  if constexpr (multiplier != 0) {
    argument += multiplier * angle;
  }
}

template <const auto& table, std::size_t row, std::size_t... index>
double RowArgument(const double* angles, std::index_sequence<index...> /*all angles*/) {
  double argument = 0.0;
  (AddToArgument<table[row].multipliers[index]>(angles[index], argument), ...);
  return argument;
}

template <class Sums, const auto& table, class AngleIndices, class AddRow, std::size_t... row>
Sums SumTheseRows(const double* angles, AddRow add_row, std::index_sequence<row...> /*all rows*/) {
  const double arguments[] = {RowArgument<table, row>(angles, AngleIndices())...};
  double cosine_sine[2 * sizeof...(row)];
  CosinesAndSines(arguments, static_cast<int>(sizeof...(row)), cosine_sine);
  Sums sums{};
  (add_row(table[row], cosine_sine[2 * row], cosine_sine[2 * row + 1], sums), ...);
  return sums;
}

// Calls add_row(row, cosine, sine, sums) for each row of `table`, the cosine and sine being those
// of its argument, and gives what was added to `sums`, which begin at zero. add_row is compiled
// into every row, so what it asks about a row costs nothing; it must not capture the sums. A
// function of its own, so that the table's name is found in the object code.
template <class Sums, const auto& table, std::size_t angle_count, class AddRow>
[[gnu::noinline, gnu::flatten]] Sums SumRows(const double (&angles)[angle_count], AddRow add_row) {
  static_assert(std::size(table[0].multipliers) == angle_count, "a multiplier for each angle");
  return SumTheseRows<Sums, table, std::make_index_sequence<angle_count>>(
      angles, add_row, std::make_index_sequence<std::size(table)>());
}

}  // namespace zenithor
