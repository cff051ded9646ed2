#include "entry/answers.h"

#include "host/process_state.h"
#include "host/thread_state.h"
#include "positions/position.h"
#include "rising/rising.h"

namespace zenithor {

double AnswerPosition(double julian_day, double observer_longitude, double observer_latitude,
                      BodyCode code, BodyPositionRecord* record) {
  CallState state;
  return ComputePosition(process_state.store, state.WithAnswers(), julian_day, observer_longitude,
                         observer_latitude, code, record);
}

double AnswerRising(double day_number, double minutes, double zone_hours, double longitude_west,
                    double latitude, BodyCode code, int32_t selector) {
  CallState state;
  return ComputeRising(process_state.store, state.Get().moment,
                       {day_number, minutes, zone_hours, longitude_west, latitude, code}, selector);
}

}  // namespace zenithor
