// The exported functions. Each passes the host boundary and does nothing else here.

#include "entry/host_boundary.h"
#include "entry/position_export.h"
#include "zenithor/zenithor.h"

extern "C" {

ZENITHOR_EXPORT double ZENITHOR_CALL ZENITHOR(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, double ObserverLongitude,
                                              double ObserverLatitude, double /*Ignored3*/,
                                              BodyCode Body, BodyPositionRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerPosition>(JulianDay, ObserverLongitude,
                                                             ObserverLatitude, Body, Record);
}

}  // extern "C"
