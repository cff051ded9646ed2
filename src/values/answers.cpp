#include "values/answers.h"

#include <cmath>
#include <limits>

#include "host/process_state.h"
#include "host/thread_state.h"
#include "time/clock.h"
#include "values/civil_time.h"
#include "values/daily.h"
#include "values/data.h"
#include "values/events_of_span.h"
#include "values/field_values.h"
#include "values/fields.h"
#include "values/messages.h"
#include "values/table.h"

namespace zenithor {

namespace {

constexpr double kNoAnswer = std::numeric_limits<double>::quiet_NaN();

// Whether arrays that are read or written are there; one of no elements need not be.
bool IsThere(const void* array, std::int64_t count) { return array != nullptr || count == 0; }

std::int32_t EventsInto(std::int32_t kind_set, double from, double to, MomentArray& moments) {
  if (kind_set == kNoKinds) {
    return ZENITHOR_ERROR_KIND;
  }
  const std::int32_t error = SpanError(from, to, moments.julian_days, moments.capacity);
  if (error != 0) {
    return error;
  }
  EventsOfSpan(kind_set, from, to, moments);
  return moments.count;
}

}  // namespace

double AnswerValue(int32_t body, int32_t field, double day) {
  CallState state;
  double value = 0.0;
  FieldValues(process_state.store, state.Get(), body, field, &day, 1, &value);
  return value;
}

int32_t AnswerValues(int32_t body, int32_t field, const double* days, int32_t count,
                     double* values) {
  if (count < 0) {
    return ZENITHOR_ERROR_COUNT;
  }
  if (!IsThere(days, count) || !IsThere(values, count)) {
    return ZENITHOR_ERROR_ARRAY;
  }
  CallState state;
  FieldValues(process_state.store, state.Get(), body, field, days, count, values);
  if (!IsBody(body)) {
    return ZENITHOR_ERROR_BODY;
  }
  if (!IsField(field)) {
    return ZENITHOR_ERROR_FIELD;
  }
  int32_t numbers = 0;
  for (int32_t k = 0; k < count; ++k) {
    numbers += std::isnan(values[k]) ? 0 : 1;
  }
  return numbers;
}

int32_t AnswerTable(const int32_t* bodies, int32_t body_count, const int32_t* fields,
                    int32_t field_count, const double* days, int32_t day_count, double* values,
                    int32_t day_stride, int32_t body_stride, int32_t field_stride) {
  if (body_count < 0 || field_count < 0 || day_count < 0 || day_stride < 0 || body_stride < 0 ||
      field_stride < 0) {
    return ZENITHOR_ERROR_COUNT;
  }
  const bool cells = body_count > 0 && field_count > 0 && day_count > 0;
  if (!cells) {
    return 0;
  }
  if (bodies == nullptr || fields == nullptr || days == nullptr || values == nullptr) {
    return ZENITHOR_ERROR_ARRAY;
  }
  if (day_stride == 0 && body_stride == 0 && field_stride == 0) {
    const std::int64_t a_day = std::int64_t{body_count} * field_count;
    if (a_day > std::numeric_limits<int32_t>::max()) {
      return ZENITHOR_ERROR_COUNT;
    }
    day_stride = static_cast<int32_t>(a_day);
    body_stride = field_count;
    field_stride = 1;
  }
  CallState state;
  return FillTable(process_state.store, state.Get(),
                   {bodies, body_count, fields, field_count, days, day_count, values, day_stride,
                    body_stride, field_stride});
}

// They are written through the record that takes them.
// NOLINTBEGIN(readability-non-const-parameter)
int32_t AnswerEvents(int32_t kind, double from, double to, double* days, int32_t capacity) {
  MomentArray moments{days, nullptr, capacity};
  return EventsInto(KindSetOf(kind), from, to, moments);
}

int32_t AnswerEventsOfKinds(int32_t kind_set, double from, double to, double* days, int32_t* kinds,
                            int32_t capacity) {
  MomentArray moments{days, kinds, capacity};
  return EventsInto(SingleKinds(kind_set), from, to, moments);
}
// NOLINTEND(readability-non-const-parameter)

double AnswerNextEvent(int32_t kind, double after) {
  return EventAfter(KindSetOf(kind), after).julian_day;
}

double AnswerNextEventOfKinds(int32_t kind_set, double after, int32_t* kind) {
  const NextEvent next = EventAfter(SingleKinds(kind_set), after);
  if (kind != nullptr && !std::isnan(next.julian_day)) {
    *kind = next.kind;
  }
  return next.julian_day;
}

int32_t AnswerDaily(int32_t body, double day, double zone, double longitude, double latitude,
                    double* days, int32_t* statuses) {
  if (days == nullptr) {
    return ZENITHOR_ERROR_ARRAY;
  }
  const DailyRequest request{body, day, zone, longitude, latitude};
  const int32_t error = DailyError(request);
  if (error != 0) {
    return error;
  }
  CallState state;
  const DailyEvents events = EventsOfDay(process_state.store, state.Get(), request);
  int32_t times = 0;
  for (int k = 0; k < kDailyEvents; ++k) {
    days[k] = events.julian_days[k];
    if (statuses != nullptr) {
      statuses[k] = events.statuses[k];
    }
    times += events.statuses[k] == ZENITHOR_DAILY_HAPPENS ? 1 : 0;
  }
  return times;
}

double AnswerDailyTime(int32_t body, int32_t which, double day, double zone, double longitude,
                       double latitude) {
  double days[kDailyEvents] = {kNoAnswer, kNoAnswer, kNoAnswer};
  if (which < ZENITHOR_DAILY_RISE || which > ZENITHOR_DAILY_SET ||
      AnswerDaily(body, day, zone, longitude, latitude, days, nullptr) < 0) {
    return kNoAnswer;
  }
  return days[which - ZENITHOR_DAILY_RISE];
}

int32_t AnswerDailyStatus(int32_t body, int32_t which, double day, double zone, double longitude,
                          double latitude) {
  double days[kDailyEvents] = {};
  int32_t statuses[kDailyEvents] = {};
  if (which < ZENITHOR_DAILY_RISE || which > ZENITHOR_DAILY_SET) {
    return ZENITHOR_ERROR_KIND;
  }
  const int32_t times = AnswerDaily(body, day, zone, longitude, latitude, days, statuses);
  return times < 0 ? times : statuses[which - ZENITHOR_DAILY_RISE];
}

double AnswerClockToDynamical(double clock_day) { return ClockToDynamical(clock_day); }
double AnswerDynamicalToClock(double dynamical_day) { return DynamicalToClock(dynamical_day); }
double AnswerDynamicalLessClock(double clock_day) { return DynamicalLessClock(clock_day); }

double AnswerJulianDay(int32_t year, int32_t month, int32_t day, int32_t hour, int32_t minute,
                       double second) {
  return JulianDayOf({year, month, day, hour, minute, second});
}

int32_t AnswerCalendar(double day, double round_to, int32_t* date, double* second) {
  if (date == nullptr) {
    return ZENITHOR_ERROR_ARRAY;
  }
  CivilTime time{};
  if (!CivilTimeOf(day, round_to, time)) {
    return ZENITHOR_ERROR_DAY;
  }
  date[0] = time.year;
  date[1] = time.month;
  date[2] = time.day;
  date[3] = time.hour;
  date[4] = time.minute;
  if (second != nullptr) {
    *second = time.second;
  }
  return 0;
}

const char* AnswerVersion() { return ZENITHOR_VALUES_VERSION_STRING; }

int32_t AnswerVersionNumber() {
  return ZENITHOR_VALUES_VERSION_MAJOR * 10000 + ZENITHOR_VALUES_VERSION_MINOR * 100 +
         ZENITHOR_VALUES_VERSION_PATCH;
}

const char* AnswerDataFingerprint() { return LinkedDataFingerprint(); }
const char* AnswerBodyName(int32_t body) { return BodyName(body); }
const char* AnswerFieldName(int32_t field) { return FieldName(field); }
const char* AnswerFieldUnit(int32_t body, int32_t field) { return FieldUnit(body, field); }
double AnswerFieldPeriod(int32_t field) { return PeriodOfField(field); }
int32_t AnswerHasField(int32_t body, int32_t field) { return HasField(body, field) ? 1 : 0; }
const char* AnswerKindName(int32_t kind) { return KindName(kind); }
const char* AnswerMessage(int32_t code) { return MessageOf(code); }

}  // namespace zenithor
