// The exported functions: each passes the host boundary and does nothing else here.

#include "entry/answers.h"
#include "events/event_answer.h"
#include "host/boundary.h"
#include "zenithor/zenithor.h"

using zenithor::ThroughBoundary;

namespace {

constexpr int32_t kNoSelector = 0;  // eclipses read none

}  // namespace

#define EXPORT_POSITION(name)                                                                    \
  ZENITHOR_EXPORT double ZENITHOR_CALL name(                                                     \
      double JulianDay, double /*Ignored1*/, double /*Ignored2*/, double ObserverLongitude,      \
      double ObserverLatitude, double /*Ignored3*/, BodyCode Body, BodyPositionRecord* Record) { \
    return ThroughBoundary<zenithor::AnswerPosition>(JulianDay, ObserverLongitude,               \
                                                     ObserverLatitude, Body, Record);            \
  }

#define EXPORT_SELECTED_EVENT(name, block)                                                      \
  ZENITHOR_EXPORT double ZENITHOR_CALL name(double JulianDay, double /*Ignored1*/,              \
                                            double /*Ignored2*/, int32_t Selector,              \
                                            EventRecord* Record) {                              \
    return ThroughBoundary<zenithor::AnswerEvent>(static_cast<int>(block), JulianDay, Selector, \
                                                  Record);                                      \
  }

#define EXPORT_ANY_ECLIPSE(name, block)                                                            \
  ZENITHOR_EXPORT double ZENITHOR_CALL name(double JulianDay, double /*Ignored1*/,                 \
                                            double /*Ignored2*/, EventRecord* Record) {            \
    return ThroughBoundary<zenithor::AnswerEvent>(static_cast<int>(block), JulianDay, kNoSelector, \
                                                  Record);                                         \
  }

#define EXPORT_ECLIPSE_OF_KIND(name, block)                                                        \
  ZENITHOR_EXPORT double ZENITHOR_CALL name(double JulianDay, EventRecord* Record) {               \
    return ThroughBoundary<zenithor::AnswerEvent>(static_cast<int>(block), JulianDay, kNoSelector, \
                                                  Record);                                         \
  }

#define EXPORT_RISING(name)                                                                     \
  ZENITHOR_EXPORT double ZENITHOR_CALL name(double DayNumber, double Minutes, double ZoneHours, \
                                            double ObserverLongitude, double ObserverLatitude,  \
                                            BodyCode Body, int32_t Selector) {                  \
    return ThroughBoundary<zenithor::AnswerRising>(                                             \
        DayNumber, Minutes, ZoneHours, ObserverLongitude, ObserverLatitude, Body, Selector);    \
  }

extern "C" {

#include "entry/export_list.inc"

}  // extern "C"
