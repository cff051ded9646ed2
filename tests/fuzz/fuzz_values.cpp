// A function of the values library, named by the program's own name (fuzz_ZenithorValue), with any
// bytes as its arguments: it ends, writes nothing beside what it may, gives the same bits again,
// and answers within its contract: no unknown error code, moments in the span and in order.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include "hash_of.h"
#include "support/value_calls.h"
#include "values/data.h"

namespace {

// In the order of the numbers of value_calls.h.
constexpr const char* kNames[] = {"Value",
                                  "Values",
                                  "Table",
                                  "Events",
                                  "EventsOfKinds",
                                  "NextEvent",
                                  "NextEventOfKinds",
                                  "Daily",
                                  "DailyTime",
                                  "DailyStatus",
                                  "ClockToDynamical",
                                  "DynamicalToClock",
                                  "DynamicalLessClock",
                                  "JulianDay",
                                  "Calendar",
                                  "Version",
                                  "VersionNumber",
                                  "DataFingerprint",
                                  "BodyName",
                                  "FieldName",
                                  "FieldUnit",
                                  "FieldPeriod",
                                  "HasField",
                                  "KindName",
                                  "Crossings",
                                  "Stations",
                                  "Aspects",
                                  "DirectedCrossings",
                                  "DirectedStations",
                                  "DirectedAspects",
                                  "NextCrossing",
                                  "NextStation",
                                  "NextAspect",
                                  "Message"};
static_assert(std::size(kNames) == kValueFunctions, "one name a function");

int fuzzed_function = -1;
ZenithorValuesLibrary functions;

[[noreturn]] void Report(const char* what) {
  std::fprintf(stderr, "Zenithor%s: %s\n", kNames[fuzzed_function], what);
  std::abort();
}

void LinkFunctions() {
#define VALUES_EXPORT(answer, name, parameters, arguments) functions.name = Zenithor##name;
#include "values/export_list.inc"
}

bool IsDayOfSpan(double day) { return day >= ZENITHOR_FIRST_DAY && day <= ZENITHOR_LAST_DAY; }

// A day that a search or a span can begin with, for inputs that would seldom have one.
double DayWithin(double day) {
  const double width = ZENITHOR_LAST_DAY - ZENITHOR_FIRST_DAY;
  return ZENITHOR_FIRST_DAY + std::fabs(std::fmod(day, width));
}

// A search of six thousand years takes a minute here. Of 256 inputs one may search for ten years,
// the others for a season at most; of spans that are none every fourth stays as it is.
void LimitSpan(std::uint64_t hash, ValueArguments& arguments) {
  double& from = arguments.doubles[0];
  double& to = arguments.doubles[1];
  const double longest = hash % 256 == 0 ? 3653.0 : 100.0;  // [day]
  const bool is_next = fuzzed_function >= 30 && fuzzed_function <= 32;
  const bool is_span = IsDayOfSpan(from) && (is_next || IsDayOfSpan(to));
  if (!is_span && hash % 4 == 1) {
    return;
  }
  from = is_next ? ZENITHOR_LAST_DAY - std::fabs(std::fmod(from, longest)) : DayWithin(from);
  if (!is_next) {
    to = from + std::fmod(to, longest);
  }
}

constexpr double kUntouched = -12345.0;

// Exactly the elements that may be written, so that the address sanitizer sees the first beside
// them.
struct Arrays {
  explicit Arrays(const ValueArguments& arguments) {
    MayWrite(fuzzed_function, &arguments, &double_count, &integer_count);
    doubles.reset(new double[static_cast<std::size_t>(double_count)]);
    integers.reset(new std::int32_t[static_cast<std::size_t>(integer_count)]);
    std::fill_n(doubles.get(), double_count, kUntouched);
    std::fill_n(integers.get(), integer_count, kHostsByte);
  }
  int double_count = 0;
  int integer_count = 0;
  std::unique_ptr<double[]> doubles;
  std::unique_ptr<std::int32_t[]> integers;
};

// Those that fill an array with the moments of a span.
bool FillsMoments() {
  return (fuzzed_function >= 24 && fuzzed_function <= 29) || fuzzed_function == 3 ||
         fuzzed_function == 4;
}

// Whether two contacts may have one moment: events of several kinds, and the two sides of an aspect
// whose angle is 0 or 180 degrees but for rounding.
bool MayCoincide(const ValueArguments& arguments) {
  constexpr double kRounding = 1e-6;  // [deg]
  const bool is_aspect = fuzzed_function == 26 || fuzzed_function == 29;
  return fuzzed_function == 4 ||
         (is_aspect && std::fabs(std::remainder(arguments.doubles[2], 180.0)) < kRounding);
}

void CheckContract(const ValueArguments& arguments, const ValueAnswer& answer,
                   const Arrays& arrays) {
  if (answer.integer < ZENITHOR_ERROR_DAY) {
    Report("an error code that the header does not have");
  }
  if (!FillsMoments()) {
    return;
  }
  const double* const days = arrays.doubles.get();
  const bool is_null = (arguments.nulls & 1) != 0;
  const int written = is_null ? 0 : std::clamp(answer.integer, 0, arrays.double_count);
  for (int k = 0; k < written; ++k) {
    if (!(days[k] >= arguments.doubles[0] && days[k] < arguments.doubles[1])) {
      Report("a moment outside the span");
    }
    if (k > 0 && !(days[k] > days[k - 1] || (MayCoincide(arguments) && days[k] == days[k - 1]))) {
      Report("moments out of order");
    }
  }
  if (std::any_of(days + written, days + arrays.double_count,
                  [](double day) { return day != kUntouched; })) {
    Report("an element written that has no moment");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** words) {
  const char* name = std::strrchr((*words)[0], '/');
  name = name == nullptr ? (*words)[0] : name + 1;
  for (int k = 0; k < kValueFunctions; ++k) {
    char expected[64];
    std::snprintf(expected, sizeof expected, "fuzz_Zenithor%s", kNames[k]);
    if (std::strcmp(name, expected) == 0) {
      fuzzed_function = k;
    }
  }
  if (fuzzed_function < 0) {
    std::fprintf(stderr, "%s: no function of that name\n", name);
    std::exit(1);
  }
  zenithor::LoadLinkedData();
  LinkFunctions();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ValueArguments arguments{};
  std::memcpy(&arguments, data, std::min(size, sizeof arguments));
  arguments.length = std::clamp(arguments.length, -2, static_cast<int>(kArrayLength));
  arguments.nulls &= 3;
  if (IsSearch(fuzzed_function) || fuzzed_function == 3 || fuzzed_function == 4) {
    LimitSpan(HashOf(data, size), arguments);
  }
  Arrays first(arguments);
  Arrays second(arguments);
  ValueAnswer answer{};
  ValueAnswer again{};
  CallValueOf(&functions, fuzzed_function, &arguments, &answer, first.doubles.get(),
              first.integers.get());
  CallValueOf(&functions, fuzzed_function, &arguments, &again, second.doubles.get(),
              second.integers.get());
  const auto same = [](const void* a, const void* b, std::size_t bytes) {
    return bytes == 0 || std::memcmp(a, b, bytes) == 0;
  };
  if (!same(&answer.number, &again.number, sizeof answer.number) ||
      answer.integer != again.integer || answer.text != again.text ||
      !same(first.doubles.get(), second.doubles.get(),
            static_cast<std::size_t>(first.double_count) * sizeof(double)) ||
      !same(first.integers.get(), second.integers.get(),
            static_cast<std::size_t>(first.integer_count) * sizeof(std::int32_t))) {
    Report("the same call gave other bits");
  }
  CheckContract(arguments, answer, first);
  return 0;
}
