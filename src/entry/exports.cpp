// The exported functions. Each passes the host boundary and does nothing else here.

#include "entry/host_boundary.h"
#include "entry/position_export.h"
#include "entry/rising_export.h"
#include "zenithor/zenithor.h"

extern "C" {

ZENITHOR_EXPORT double ZENITHOR_CALL ZENITHOR(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, double ObserverLongitude,
                                              double ObserverLatitude, double /*Ignored3*/,
                                              BodyCode Body, BodyPositionRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerPosition>(JulianDay, ObserverLongitude,
                                                             ObserverLatitude, Body, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL GEO_RISE(double DayNumber, double Minutes, double ZoneHours,
                                              double ObserverLongitude, double ObserverLatitude,
                                              BodyCode Body, int32_t Selector) {
  return zenithor::ThroughBoundary<zenithor::AnswerRising>(
      DayNumber, Minutes, ZoneHours, ObserverLongitude, ObserverLatitude, Body, Selector);
}

}  // extern "C"
