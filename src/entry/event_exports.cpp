// The exports of the events. Which search, selector and block belongs to each stands in
// events/event_table.h; here each passes the host boundary with the block that it reads back.

#include <string_view>

#include "entry/host_boundary.h"
#include "events/event_answer.h"
#include "events/event_table.h"
#include "zenithor/zenithor.h"

namespace {

constexpr int32_t kNoSelector = 0;  // eclipses read none

// The block that an export reads back. A name that the table lacks does not compile.
constexpr int BlockOf(std::string_view name) {
  const zenithor::EventExport* row = zenithor::kEventExports;
  while (row->name != name) {
    ++row;
  }
  return row->block;
}

}  // namespace

extern "C" {

ZENITHOR_EXPORT double ZENITHOR_CALL SPR_EQUX(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  constexpr int block = BlockOf("SPR_EQUX");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL SUM_SOL(double JulianDay, double /*Ignored1*/,
                                             double /*Ignored2*/, int32_t Selector,
                                             EventRecord* Record) {
  constexpr int block = BlockOf("SUM_SOL");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FALL_EQUX(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  constexpr int block = BlockOf("FALL_EQUX");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL WIN_SOL(double JulianDay, double /*Ignored1*/,
                                             double /*Ignored2*/, int32_t Selector,
                                             EventRecord* Record) {
  constexpr int block = BlockOf("WIN_SOL");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL NEW_MOON(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  constexpr int block = BlockOf("NEW_MOON");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FIRST_QTR(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  constexpr int block = BlockOf("FIRST_QTR");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL FULL_MOON(double JulianDay, double /*Ignored1*/,
                                               double /*Ignored2*/, int32_t Selector,
                                               EventRecord* Record) {
  constexpr int block = BlockOf("FULL_MOON");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL LAST_QTR(double JulianDay, double /*Ignored1*/,
                                              double /*Ignored2*/, int32_t Selector,
                                              EventRecord* Record) {
  constexpr int block = BlockOf("LAST_QTR");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, Selector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ALL_SE(double JulianDay, double /*Ignored1*/,
                                            double /*Ignored2*/, EventRecord* Record) {
  constexpr int block = BlockOf("ALL_SE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_SE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("TOTAL_SE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_SE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("ANNULAR_SE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_TSE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("ANNULAR_TSE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_NCSE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("TOTAL_NCSE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ANNULAR_NCSE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("ANNULAR_NCSE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PARTIAL_SE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("PARTIAL_SE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL ALL_LE(double JulianDay, double /*Ignored1*/,
                                            double /*Ignored2*/, EventRecord* Record) {
  constexpr int block = BlockOf("ALL_LE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL TOTAL_LE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("TOTAL_LE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PARTIAL_LE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("PARTIAL_LE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

ZENITHOR_EXPORT double ZENITHOR_CALL PENUM_LE(double JulianDay, EventRecord* Record) {
  constexpr int block = BlockOf("PENUM_LE");
  return zenithor::ThroughBoundary<zenithor::AnswerEvent>(block, JulianDay, kNoSelector, Record);
}

}  // extern "C"
