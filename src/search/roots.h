#pragma once

#include <array>
#include <cstdint>

#include "search/time_function.h"

namespace zenithor {

// All moments of a span at which a function takes a target, grazing contacts included.
//
// How none is missed. On a cell of width w, with y the function less the target and
// |y''| <= bend, the function lies within bend (t - a)(b - t) / 2 of the chord between its ends.
// So the values at the two ends alone can prove that the cell holds no root (the chord stays
// farther from 0 than that), or that y is monotone (|y(b) - y(a)| > bend w^2 / 2: at most one root,
// present when the signs differ). A cell that proves neither is halved. What is left at the width
// at which the bend disappears in the rounding noise is a contact that the noise cannot resolve.
//
// What holds if the caller's statements (RootProblem) hold:
// - Every root is found, once. Roots are good to `tolerance` of where the values change sign.
// - A turning point whose value is within `noise` of the target is a root with direction 0 (a
//   grazing contact, or one missed by less than the values can tell). Two roots closer together
//   than SeparableWidth, or between which the function stays within the noise, are one such
//   contact, at the turning point between them.
// - A stretch on which the values stay within `noise` of the target is one root: at its first
//   moment, with direction 0. If it is no longer than LongestContact it is like other contacts.
// - Cells are multiples of the step, counted from moment 0, whatever span is asked for. So a moment
//   has the same bits in every span that holds it, and a search begun again just after its last
//   moment, or at any moment between two, goes on with the rest.
// Whatever the caller's statements are: a search ends after at most kLongestSearch cells of
// kValuesPerCell values; where the function has no value there is no root; a jump across the target
// is a root at the moment of the jump, but the wrap of a periodic value at half a period from the
// target is none.

struct RootProblem {
  TimeFunction function;
  double target;     // [unit of the function]
  double period;     // the function counts modulo this: 360 for degrees; 0 when it does not
  double bend;       // [unit / day^2] no second derivative is larger in magnitude; > 0
  double noise;      // [unit] no value is farther from the smooth function's; >= 0
  double step;       // [day] widest cell; cut down to a power of two. Within it a periodic function
                     // moves by less than a quarter of its period
  double tolerance;  // [day] > 0; what a Julian day cannot hold is not asked for

  // A cheap function that is never farther than guide_error from `function`; evaluate is null when
  // there is none. Cells are then judged by the guide as far as that is certain, and `function` is
  // asked near the roots only, once or twice for each.
  TimeFunction guide;
  double guide_error;

  // How far the guide's first and second derivative are off at most; 0 when that is not known. The
  // better they are known, the earlier it is certain that a root needs no further value.
  double guide_rate_error;  // [unit / day]
  double guide_bend_error;  // [unit / day^2]
};

struct Root {
  double moment;           // [day]
  std::int32_t direction;  // 1 the function rises through the target, -1 it falls, 0 it touches or
                           // stays
};

constexpr std::int64_t kLongestSearch = std::int64_t{1} << 24;  // cells
constexpr std::int32_t kValuesPerCell = 4096;  // then cells are taken to be monotone as they are

// [day] Roots closer together than this cannot be told from one contact, near moment t:
// 2 sqrt(2 noise / bend), that is four of the narrowest cells.
double SeparableWidth(const RootProblem& problem, double t);

// [day] 64 times that: contacts that are longer are plateaus.
double LongestContact(const RootProblem& problem, double t);

// A moment with the values that are known there. With a guide, `value` is the function's once
// `known`; without, it is always known.
struct SearchNode {
  double t;
  double guide;  // departure of the guide, or of the function itself, from the target
  double value;
  bool known;
};

// Contacts that are too close together to be told apart.
struct ContactGroup {
  bool open;
  bool reported;           // it is long: its first moment has been given
  std::int32_t crossings;  // changes of sign with a moment of their own
  double crossing;         // the last of these
  double first;
  double last;
  double sign_before;
  double sign_after;
};

// A search under way. Not to be looked into.
struct RootWalk {
  RootProblem problem;
  double from;
  double to;
  std::int64_t next_multiple;  // of the step: the next to be evaluated
  std::int64_t last_multiple;  // the first at or after `to`
  std::int32_t values_left;    // of the present cell's share
  SearchNode left;
  std::array<SearchNode, 64> pending;  // right ends of the cells that follow, nearest last
  std::int32_t pending_count;
  ContactGroup found;  // by the last cell, not yet in the group
  ContactGroup group;
  std::array<SearchNode, kValuesAtOnce> ahead;  // the next multiples of the step
  std::int32_t ahead_count;
  std::int32_t ahead_used;
};

// Begins a search of from <= t < to. False, and nothing will be found, when a bound of the span is
// not finite or the span has more than kLongestSearch cells, or when the problem's numbers are not
// as stated. An empty or reversed span is one without roots.
bool BeginRoots(RootWalk& walk, const RootProblem& problem, double from, double to);

// The next root in the order of time; false when there are no more.
bool NextRoot(RootWalk& walk, Root& root);

// For a caller who knows that there is no root between the one that was found last and t: the cells
// before t are not looked at. Finds what would have been found otherwise.
void SkipRootsBefore(RootWalk& walk, double t);

// The roots of from <= t < to in the order of time. Writes the first `capacity` of them, fewer when
// there are not as many, and returns how many there are in the span; -1 where BeginRoots says
// false. `roots` may be null when capacity is 0.
std::int32_t FindRoots(const RootProblem& problem, double from, double to, Root* roots,
                       std::int32_t capacity);

}  // namespace zenithor
