#include "search/roots.h"

#include <cmath>
#include <limits>

#include "search/bracket.h"

namespace zenithor {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kFarthestMultiple = 1099511627776.0;  // 2^40 steps from moment 0

bool HasGuide(const RootProblem& problem) { return problem.guide.evaluate != nullptr; }

// The width [day] below which cells near t are not halved: a quarter of that at which the bend
// within the cell equals the noise, and nothing that t cannot hold.
double NarrowestCell(const RootProblem& problem, double t) {
  const double resolved = 0.25 * std::sqrt(8.0 * problem.noise / problem.bend);
  const double held = std::fmax(std::ldexp(std::fabs(t), -49), std::ldexp(problem.step, -50));
  return std::fmin(std::fmax(resolved, held), problem.step);
}

double FiniteDeparture(const RootProblem& problem, double x) {
  const double y = Departure(x, problem.target, problem.period);
  return std::isfinite(y) ? y : kNaN;
}

double FunctionDeparture(RootWalk& walk, double t) {
  --walk.values_left;
  return FiniteDeparture(walk.problem, ValueAt(walk.problem.function, t));
}

double GuideDeparture(const RootProblem& problem, double t) {
  return FiniteDeparture(problem, ValueAt(HasGuide(problem) ? problem.guide : problem.function, t));
}

SearchNode NodeOf(const RootProblem& problem, double t, double guide) {
  return {t, guide, guide, !HasGuide(problem)};
}

SearchNode NodeAt(RootWalk& walk, double t) {
  --walk.values_left;
  return NodeOf(walk.problem, t, GuideDeparture(walk.problem, t));
}

double ValueOf(RootWalk& walk, SearchNode& node) {
  if (!node.known) {
    node.value = FunctionDeparture(walk, node.t);
    node.known = true;
  }
  return node.value;
}

// 1 or -1; 0 counts as positive. The guide's sign where it is certain. Both cells that meet at a
// node see the same sign, so a root at the node is in one of them.
double SignAt(RootWalk& walk, SearchNode& node) {
  const bool certain =
      std::fabs(node.guide) > walk.problem.guide_error + walk.problem.noise || node.known;
  const double y = certain && !node.known ? node.guide : ValueOf(walk, node);
  return y >= 0.0 ? 1.0 : -1.0;
}

// The multiple of the period that brings yb next to ya.
double Unwrapping(const RootProblem& problem, double ya, double yb) {
  if (problem.period > 0.0) {
    const double half = 0.5 * problem.period;
    if (yb - ya > half) {
      return -problem.period;
    }
    if (ya - yb > half) {
      return problem.period;
    }
  }
  return 0.0;
}

enum class Verdict { kNoRoot, kMonotone, kUndecided, kHalve };

// What the values at the ends of a cell prove, when each may be wrong by `slack`; yb is unwrapped.
// `bulge` is bend w^2 / 2.
Verdict Judge(double ya, double yb, double bulge, double slack) {
  const double change = std::fabs(yb - ya);
  if (change > bulge + 2.0 * slack) {
    return Verdict::kMonotone;
  }
  if ((ya >= 0.0) == (yb >= 0.0)) {
    // The lowest point of near + change x - bulge x (1 - x), x being 0 at the nearer end.
    const double near = std::fmin(std::fabs(ya), std::fabs(yb));
    const double below = bulge > change ? (bulge - change) * (bulge - change) / (4.0 * bulge) : 0.0;
    if (near - below > slack) {
      return Verdict::kNoRoot;
    }
  }
  return Verdict::kUndecided;
}

// What the function has more than the guide near a root: a straight line through what was found at
// the last two moments.
struct GuideRest {
  double t;  // the last
  double value;
  double slope;
};

double CorrectedGuide(const RootProblem& problem, const GuideRest& rest, double t) {
  return GuideDeparture(problem, t) + rest.value + rest.slope * (t - rest.t);
}

// The root of the corrected guide near rest.t, where its value is y; by secants, the first of the
// given slope, which becomes that of the last. NaN when they lead out of the cell or nowhere.
double CorrectedRoot(const RootProblem& problem, const SearchNode& a, const SearchNode& b,
                     const GuideRest& rest, double y, double& slope) {
  constexpr int kMostSteps = 8;
  double t = rest.t;
  double last_size = kInfinity;
  for (int step = 0; step < kMostSteps; ++step) {
    const double move = -y / slope;
    const double size = std::fabs(move);
    t += move;
    if (!(t >= a.t && t <= b.t)) {
      return kNaN;
    }
    // What does not shrink any more is the rounding of t and of the guide.
    if (size <= 0.25 * problem.tolerance || !(size < last_size)) {
      return size <= problem.tolerance ? t : kNaN;
    }
    const double next_y = CorrectedGuide(problem, rest, t);
    if (std::fabs(next_y - y) > 1e3 * problem.noise) {
      slope = (next_y - y) / move;
    }
    y = next_y;
    last_size = size;
  }
  return kNaN;
}

// What the straight line is wrong by at most, `move` beyond the last moment: a slope that is not
// known after the first (the moment before is infinitely far away), or the bend.
double RestError(const RootProblem& problem, double move, double distance) {
  if (std::isinf(distance)) {
    return problem.guide_rate_error > 0.0 ? problem.guide_rate_error * move : kInfinity;
  }
  if (!(2.0 * move <= distance)) {
    return kInfinity;  // the noise of the two values would grow
  }
  const double bend =
      problem.guide_bend_error > 0.0 ? problem.guide_bend_error : 2.0 * problem.bend;
  return 0.5 * bend * move * (move + distance);
}

// The root of a cell on which the function is monotone and changes sign; the guide leads to it.
// The function is asked there, the guide corrected by what it lacks, and so on until what it may
// still lack is not worth a value. NaN when the guide leads astray.
double GuidedRoot(RootWalk& walk, const SearchNode& a, const SearchNode& b) {
  constexpr int kMostValues = 6;
  const RootProblem& problem = walk.problem;
  if ((a.guide >= 0.0) == (b.guide >= 0.0)) {
    return kNaN;
  }
  const double chord_slope = (b.guide - a.guide) / (b.t - a.t);
  const double reach = problem.guide_error / std::fabs(chord_slope);
  double t = RootInBracket({a.t, a.guide}, {b.t, b.guide},
                           std::fmax(0.125 * problem.tolerance, 0.001 * reach),
                           [&problem](double moment) { return GuideDeparture(problem, moment); });
  const double span =
      std::fmin(std::fmax(reach, std::ldexp(problem.step, -12)), 0.25 * (b.t - a.t));
  double slope =
      (GuideDeparture(problem, t + span) - GuideDeparture(problem, t - span)) / (2.0 * span);
  GuideRest rest{};
  for (int values = 1; values <= kMostValues && slope * chord_slope > 0.0; ++values) {
    const double y = FunctionDeparture(walk, t);
    const double lack = y - GuideDeparture(problem, t);
    const double distance = values == 1 ? kInfinity : std::fabs(t - rest.t);
    rest = {t, lack, values == 1 ? 0.0 : (lack - rest.value) / (t - rest.t)};
    const double next = CorrectedRoot(problem, a, b, rest, y, slope);
    if (std::isnan(next)) {
      return kNaN;
    }
    const double move = std::fabs(next - t);
    const double error = RestError(problem, move, distance);
    const double least_slope = std::fabs(slope) - problem.guide_rate_error - problem.bend * move;
    const bool certain =
        least_slope > 0.0 &&
        error <= std::fmax(0.125 * problem.noise, 0.5 * problem.tolerance * least_slope);
    if (certain || std::fabs(y) <= 2.0 * problem.noise ||
        (values > 1 && move <= 0.5 * problem.tolerance)) {
      return next;
    }
    t = next;
  }
  return kNaN;
}

// The root between two nodes of different sign; NaN when there is none after all.
double RootOfCell(RootWalk& walk, SearchNode& a, SearchNode& b) {
  if (HasGuide(walk.problem)) {
    const double t = GuidedRoot(walk, a, b);
    if (!std::isnan(t)) {
      return t;
    }
  }
  const double ya = ValueOf(walk, a);
  const double yb = ValueOf(walk, b);
  if (std::isnan(ya) || std::isnan(yb) || (ya >= 0.0) == (yb >= 0.0)) {
    return kNaN;
  }
  return RootInBracket({a.t, ya}, {b.t, yb}, 0.5 * walk.problem.tolerance,
                       [&walk](double t) { return FunctionDeparture(walk, t); });
}

// The turning point near t, by parabolas through three values `spacing` apart.
double VertexNear(RootWalk& walk, double t) {
  const RootProblem& problem = walk.problem;
  const double spacing = std::fmin(
      std::fmax(LongestContact(problem, t), std::ldexp(problem.step, -14)), 0.25 * problem.step);
  for (int round = 0; round < 3; ++round) {
    const double before = FunctionDeparture(walk, t - spacing);
    const double here = FunctionDeparture(walk, t);
    const double after = FunctionDeparture(walk, t + spacing);
    const double move = 0.5 * spacing * (before - after) / ((before - here) + (after - here));
    if (!(std::fabs(move) <= spacing)) {
      break;
    }
    t += move;
  }
  return t;
}

// Whether what was found continues the group: too close to be told apart, or close and the function
// stays within the noise between the two.
bool BelongsTogether(RootWalk& walk, const ContactGroup& group, const ContactGroup& next) {
  const double gap = next.first - group.last;
  if (gap <= SeparableWidth(walk.problem, group.last)) {
    return true;
  }
  return gap <= LongestContact(walk.problem, group.last) &&
         std::fabs(FunctionDeparture(walk, group.last + 0.5 * gap)) <= walk.problem.noise;
}

// Adds what the last cell gave to the group before it, or begins a group with it.
void TakeFound(RootWalk& walk) {
  ContactGroup& group = walk.group;
  ContactGroup& found = walk.found;
  if (group.open) {
    group.last = found.last;
    group.sign_after = found.sign_after;
    group.crossings += found.crossings;
    if (found.crossings > 0) {
      group.crossing = found.crossing;
    }
  } else {
    group = found;
  }
  found.open = false;
}

bool IsLong(const RootWalk& walk) {
  const ContactGroup& group = walk.group;
  return group.last - group.first > LongestContact(walk.problem, group.first);
}

// What a short group amounts to; false when its turning point stays clear of the target after all.
bool RootOfGroup(RootWalk& walk, Root& root) {
  const ContactGroup group = walk.group;
  const double middle = group.first + 0.5 * (group.last - group.first);
  if (group.sign_before != group.sign_after) {
    root = {group.crossings == 1 ? group.crossing : middle, group.sign_after > 0.0 ? 1 : -1};
    return true;
  }
  const double narrowest = NarrowestCell(walk.problem, middle);
  const double vertex = VertexNear(walk, middle);
  const bool inside = vertex >= group.first - narrowest && vertex <= group.last + narrowest;
  root = {inside ? vertex : middle, 0};
  if (group.crossings > 0) {
    return true;
  }
  const double y = FunctionDeparture(walk, vertex);
  return inside && (std::fabs(y) <= walk.problem.noise || (y >= 0.0) != (group.sign_after > 0.0));
}

// Closes or reports the group of contacts where that is due; true with a root of the span.
bool ReportGroup(RootWalk& walk, Root& root) {
  ContactGroup& group = walk.group;
  if (!group.open) {
    return false;
  }
  const bool ended = walk.found.open
                         ? !BelongsTogether(walk, group, walk.found)
                         : walk.left.t - group.last > LongestContact(walk.problem, group.last);
  bool found = false;
  if (!group.reported && IsLong(walk)) {
    group.reported = true;
    root = {group.first, 0};
    found = true;
  } else if (ended && !group.reported) {
    found = RootOfGroup(walk, root);
  }
  if (ended) {
    group.open = false;
  }
  return found && root.moment >= walk.from && root.moment < walk.to;
}

// Whether the function stays within the noise on a whole cell.
bool IsFlat(RootWalk& walk, SearchNode& a, SearchNode& b) {
  const double noise = walk.problem.noise;
  if (!(std::fabs(ValueOf(walk, a)) <= noise && std::fabs(ValueOf(walk, b)) <= noise)) {
    return false;
  }
  for (const double part : {0.25, 0.5, 0.75}) {
    if (!(std::fabs(FunctionDeparture(walk, a.t + part * (b.t - a.t))) <= noise)) {
      return false;
    }
  }
  return true;
}

// The next multiple of the step, evaluated some at once as long as the span needs them; a guide,
// which is cheap, as it is needed.
SearchNode NextMultiple(RootWalk& walk) {
  if (walk.ahead_used == walk.ahead_count) {
    const RootProblem& problem = walk.problem;
    const std::int32_t at_once = HasGuide(problem) ? 1 : kValuesAtOnce;
    double times[kValuesAtOnce];
    double values[kValuesAtOnce];
    std::int32_t count = 0;
    do {
      times[count] = static_cast<double>(walk.next_multiple) * problem.step;
      ++count;
      ++walk.next_multiple;
    } while (count < at_once && walk.next_multiple <= walk.last_multiple);
    ValuesAt(HasGuide(problem) ? problem.guide : problem.function, times, count, values);
    for (std::int32_t i = 0; i < count; ++i) {
      walk.ahead[static_cast<std::size_t>(i)] =
          NodeOf(problem, times[i], FiniteDeparture(problem, values[i]));
    }
    walk.ahead_count = count;
    walk.ahead_used = 0;
  }
  return walk.ahead[static_cast<std::size_t>(walk.ahead_used++)];
}

// What is known of a cell, or that its halves have to be looked at. A cell that may not be halved,
// or on which the function is flat, may stay undecided.
Verdict JudgeCell(RootWalk& walk, SearchNode& a, SearchNode& b, bool may_halve) {
  const RootProblem& problem = walk.problem;
  if (std::isnan(a.guide) || std::isnan(b.guide)) {
    return may_halve && std::isnan(a.guide) != std::isnan(b.guide) ? Verdict::kHalve
                                                                   : Verdict::kNoRoot;
  }
  const double bulge = 0.5 * problem.bend * (b.t - a.t) * (b.t - a.t);
  const double guide_error = HasGuide(problem) ? problem.guide_error : 0.0;
  double lift = Unwrapping(problem, a.guide, b.guide);
  Verdict verdict = Judge(a.guide, b.guide + lift, bulge, problem.noise + guide_error);
  if (verdict == Verdict::kUndecided && HasGuide(problem)) {
    // Narrower cells may let the guide decide, until its error is what hinders it.
    if (may_halve && bulge > 2.0 * guide_error) {
      return Verdict::kHalve;
    }
    lift = Unwrapping(problem, ValueOf(walk, a), ValueOf(walk, b));
    verdict = Judge(a.value, b.value + lift, bulge, problem.noise);
  }
  if (verdict == Verdict::kUndecided && may_halve && !IsFlat(walk, a, b)) {
    return Verdict::kHalve;
  }
  // A cell that holds half a period from the target is too far away for a root.
  return lift == 0.0 ? verdict : Verdict::kNoRoot;
}

// Notes the root of a cell, or that the whole cell may be one. `resolved`: the cell is undecided
// because the noise hides what is in it, not because its share of values is used up.
void NoteContact(RootWalk& walk, SearchNode& a, SearchNode& b, Verdict verdict, bool resolved) {
  const double sign_before = SignAt(walk, a);
  const double sign_after = SignAt(walk, b);
  const double root = sign_before != sign_after ? RootOfCell(walk, a, b) : kNaN;
  if (!std::isnan(root)) {
    walk.found = {true, false, 1, root, root, root, sign_before, sign_after};
  } else if (verdict == Verdict::kUndecided && resolved) {
    walk.found = {true, false, 0, kNaN, a.t, b.t, sign_before, sign_after};
  }
}

// Looks at the cell from walk.left to the nearest pending node: either it is done with, or it is
// halved.
void StepOn(RootWalk& walk) {
  SearchNode& a = walk.left;
  SearchNode& b = walk.pending[static_cast<std::size_t>(walk.pending_count - 1)];
  const bool narrow = b.t - a.t <= NarrowestCell(walk.problem, b.t);
  const bool may_halve = !narrow && walk.values_left > 0 &&
                         walk.pending_count < static_cast<std::int32_t>(walk.pending.size());
  const Verdict verdict = JudgeCell(walk, a, b, may_halve);
  if (verdict == Verdict::kHalve) {
    const double middle = a.t + 0.5 * (b.t - a.t);
    walk.pending[static_cast<std::size_t>(walk.pending_count)] = NodeAt(walk, middle);
    ++walk.pending_count;
    return;
  }
  if (verdict != Verdict::kNoRoot) {
    NoteContact(walk, a, b, verdict, narrow || may_halve);
  }
  walk.left = b;
  --walk.pending_count;
}

}  // namespace

double SeparableWidth(const RootProblem& problem, double t) {
  return 4.0 * NarrowestCell(problem, t);
}

double LongestContact(const RootProblem& problem, double t) {
  return 256.0 * NarrowestCell(problem, t);
}

bool BeginRoots(RootWalk& walk, const RootProblem& problem, double from, double to) {
  walk = {};
  walk.from = 0.0;
  walk.to = 0.0;
  const bool sound =
      problem.function.evaluate != nullptr && std::isfinite(problem.target) &&
      problem.period >= 0.0 && std::isfinite(problem.period) && problem.bend > 0.0 &&
      std::isfinite(problem.bend) && problem.noise >= 0.0 && std::isfinite(problem.noise) &&
      std::isnormal(problem.step) && problem.step > 0.0 && problem.tolerance > 0.0 &&
      (!HasGuide(problem) || (problem.guide_error >= 0.0 && std::isfinite(problem.guide_error)));
  if (!sound || !std::isfinite(from) || !std::isfinite(to)) {
    return false;
  }
  walk.problem = problem;
  walk.problem.step = PowerOfTwoBelow(problem.step);
  const double step = walk.problem.step;
  const double farthest = step * kFarthestMultiple;
  if (!(std::fabs(from) <= farthest && std::fabs(to) <= farthest)) {
    return false;
  }
  if (!(from < to)) {
    return true;
  }
  if ((to - from) / step > static_cast<double>(kLongestSearch)) {
    return false;
  }
  walk.from = from;
  walk.to = to;
  // A contact that belongs into the span may be found in the cell before it, or a short group of
  // contacts begin there.
  const double margin = 2.0 * LongestContact(walk.problem, from);
  walk.next_multiple = static_cast<std::int64_t>(std::floor((from - margin) / step)) - 1;
  walk.last_multiple = static_cast<std::int64_t>(std::ceil(to / step));
  walk.left = NextMultiple(walk);
  return true;
}

void SkipRootsBefore(RootWalk& walk, double t) {
  const double multiple = std::floor(t / walk.problem.step);
  if (!(walk.from < walk.to) || walk.group.open || walk.found.open ||
      !(multiple > static_cast<double>(walk.next_multiple))) {
    return;
  }
  walk.pending_count = 0;
  walk.ahead_count = 0;
  walk.ahead_used = 0;
  walk.next_multiple = multiple < static_cast<double>(walk.last_multiple)
                           ? static_cast<std::int64_t>(multiple)
                           : walk.last_multiple;
  walk.left = NextMultiple(walk);
}

bool NextRoot(RootWalk& walk, Root& root) {
  if (!(walk.from < walk.to)) {
    return false;
  }
  for (;;) {
    if (ReportGroup(walk, root)) {
      return true;
    }
    if (walk.found.open) {
      TakeFound(walk);
      continue;
    }
    if (walk.left.t >= walk.to && (!walk.group.open || walk.group.reported)) {
      return false;
    }
    if (walk.pending_count == 0) {
      walk.pending[0] = NextMultiple(walk);
      walk.pending_count = 1;
      walk.values_left = kValuesPerCell;
    }
    StepOn(walk);
  }
}

std::int32_t FindRoots(const RootProblem& problem, double from, double to, Root* roots,
                       std::int32_t capacity) {
  RootWalk walk;
  if (!BeginRoots(walk, problem, from, to)) {
    return -1;
  }
  std::int32_t count = 0;
  Root root;
  while (NextRoot(walk, root)) {
    if (count < capacity) {
      roots[count] = root;
    }
    ++count;
  }
  return count;
}

}  // namespace zenithor
