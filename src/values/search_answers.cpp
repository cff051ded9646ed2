#include "host/process_state.h"
#include "host/thread_state.h"
#include "values/answers.h"
#include "values/aspects.h"
#include "values/crossings.h"
#include "values/stations.h"
#include "values/values_state.h"

namespace zenithor {

namespace {

SearchStores Stores() {
  const EphemerisStore& guide = values_state.guide;
  return {&process_state.store, IsLoaded(guide, kEarthSlot) ? &guide : nullptr};
}

}  // namespace

int32_t AnswerDirectedCrossings(int32_t body, int32_t field, double target, double from, double to,
                                double* days, int32_t* directions, int32_t capacity) {
  CallState state;
  return FindCrossings(Stores(), state.Get(), body, field, target, from, to, days, directions,
                       capacity);
}

int32_t AnswerDirectedStations(int32_t body, int32_t field, double from, double to, double* days,
                               int32_t* directions, int32_t capacity) {
  CallState state;
  return FindStations(Stores(), state.Get(), body, field, from, to, days, directions, capacity);
}

int32_t AnswerDirectedAspects(int32_t body, int32_t other, int32_t field, double angle, double from,
                              double to, double* days, int32_t* directions, int32_t capacity) {
  CallState state;
  return FindAspects(Stores(), state.Get(), body, other, field, angle, from, to, days, directions,
                     capacity);
}

int32_t AnswerCrossings(int32_t body, int32_t field, double target, double from, double to,
                        double* days, int32_t capacity) {
  return AnswerDirectedCrossings(body, field, target, from, to, days, nullptr, capacity);
}

int32_t AnswerStations(int32_t body, int32_t field, double from, double to, double* days,
                       int32_t capacity) {
  return AnswerDirectedStations(body, field, from, to, days, nullptr, capacity);
}

int32_t AnswerAspects(int32_t body, int32_t other, int32_t field, double angle, double from,
                      double to, double* days, int32_t capacity) {
  return AnswerDirectedAspects(body, other, field, angle, from, to, days, nullptr, capacity);
}

double AnswerNextCrossing(int32_t body, int32_t field, double target, double after) {
  CallState state;
  return NextCrossingAfter(Stores(), state.Get(), body, field, target, after);
}

double AnswerNextStation(int32_t body, int32_t field, double after) {
  CallState state;
  return NextStationAfter(Stores(), state.Get(), body, field, after);
}

double AnswerNextAspect(int32_t body, int32_t other, int32_t field, double angle, double after) {
  CallState state;
  return NextAspectAfter(Stores(), state.Get(), body, other, field, angle, after);
}

}  // namespace zenithor
