// The exports of the events. Which search, selector and block belongs to each stands in
// events/event_table.h; here each passes the host boundary with the block that it reads back.

#include "entry/host_boundary.h"
#include "events/event_answer.h"
#include "zenithor/zenithor.h"

namespace {

constexpr int32_t kNoSelector = 0;  // eclipses read none

}  // namespace

extern "C" {

ZENITHOR_EXPORT double ZENITHOR_CALL SPR_EQUX(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_MARCH_EQUINOX, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL SUM_SOL(double JulianDay, double /*Ignored1*/,
                                             double /*Ignored2*/, int32_t Selector,
                                             EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_JUNE_SOLSTICE, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FALL_EQUX(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SEPTEMBER_EQUINOX,
                                                          JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL WIN_SOL(double JulianDay, double /*Ignored1*/,
                                             double /*Ignored2*/, int32_t Selector,
                                             EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_DECEMBER_SOLSTICE,
                                                          JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL NEW_MOON(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_NEW_MOON, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FIRST_QTR(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_FIRST_QUARTER, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FULL_MOON(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_FULL_MOON, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL LAST_QTR(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_LAST_QUARTER, JulianDay,
                                                          Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ALL_SE(double JulianDay, double /*Ignored1*/,
                                            double /*Ignored2*/, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_ANY, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_SE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_TOTAL, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_SE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_ANNULAR, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_TSE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_ANNULAR_TOTAL,
                                                          JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_NCSE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_TOTAL_NONCENTRAL,
                                                          JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_NCSE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_ANNULAR_NONCENTRAL,
                                                          JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PARTIAL_SE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_SOLAR_PARTIAL, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ALL_LE(double JulianDay, double /*Ignored1*/,
                                            double /*Ignored2*/, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_LUNAR_ANY, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_LE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_LUNAR_TOTAL, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PARTIAL_LE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_LUNAR_PARTIAL, JulianDay,
                                                          kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PENUM_LE(double JulianDay, EventRecord* Record) {
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(ZENITHOR_BLOCK_LUNAR_PENUMBRAL, JulianDay,
                                                          kNoSelector, Record);
}

}  // extern "C"
