#include "golden/library_functions.h"

#include <limits>

namespace zenithor::golden {

namespace {

constexpr double kNoAnswer = std::numeric_limits<double>::quiet_NaN();

// Arguments that no event function reads.
constexpr double kIgnored1 = 0.25;
constexpr double kIgnored2 = -1.5;

template <class Function, class... Arguments>
double Answer(Function function, Arguments... arguments) {
  return function == nullptr ? kNoAnswer : function(arguments...);
}

double AnswerEvent(const ZenithorLibrary& library, const EventCall& call, EventRecord* record) {
#define EXPORT_SELECTED_EVENT(export_, block)                                                     \
  if (call.name == #export_) {                                                                    \
    return Answer(library.export_, call.julian_day, kIgnored1, kIgnored2, call.selector, record); \
  }
#define EXPORT_ANY_ECLIPSE(export_, block)                                         \
  if (call.name == #export_) {                                                     \
    return Answer(library.export_, call.julian_day, kIgnored1, kIgnored2, record); \
  }
#define EXPORT_ECLIPSE_OF_KIND(export_, block)               \
  if (call.name == #export_) {                               \
    return Answer(library.export_, call.julian_day, record); \
  }
#include "entry/export_list.inc"
  return kNoAnswer;
}

}  // namespace

Functions FunctionsOf(const ZenithorLibrary& library) {
  Functions functions;
  functions.position = [&library](const PositionCall& call, BodyPositionRecord* record) {
    return Answer(library.ZENITHOR, call.julian_day, call.ignored1, call.ignored2,
                  call.observer_longitude, call.observer_latitude, call.ignored3, call.code,
                  record);
  };
  functions.event = [&library](const EventCall& call, EventRecord* record) {
    return AnswerEvent(library, call, record);
  };
  functions.rising = [&library](const RisingCall& call) {
    return Answer(library.GEO_RISE, call.day_number, call.minutes, call.zone_hours,
                  call.longitude_west, call.latitude, call.code, call.selector);
  };
  return functions;
}

}  // namespace zenithor::golden
