// R calls functions whose arguments are all pointers, so each function that it shall call has one
// here. sample.R says how this is compiled.
#include <string.h>

#include "zenithor/values.h"
#include "zenithor/zenithor.h"

// date takes year, month, day; longitude is NaN where nothing was written.
void zenithor_position(const double* julian_day, const int* body, double* done, int* date,
                       double* longitude) {
  BodyPositionRecord record;
  *done = ZENITHOR(*julian_day, 0, 0, 0, 0, 0, *body, &record);
  if (*done == ZENITHOR_DONE) {
    date[0] = record.Year;
    date[1] = record.Month;
    date[2] = record.Day;
    *longitude = record.GeoLongitude;
  }
}

// The Julian days of the 19 blocks, and the date of the block of any kind: year to minute.
void zenithor_solar_eclipse(const double* julian_day, double* julian_days, int* date) {
  EventRecord record;
  int block;
  memset(&record, 0, sizeof record);
  ALL_SE(*julian_day, 0, 0, &record);
  for (block = 0; block < ZENITHOR_BLOCK_COUNT; ++block) {
    julian_days[block] = record.Blocks[block].JulianDay;
  }
  memcpy(date, &record.Blocks[ZENITHOR_BLOCK_SOLAR_ANY].Year, 5 * sizeof *date);
}

void zenithor_rising(const double* day_number, const double* zone_hours, const double* longitude,
                     const double* latitude, const int* body, const int* selector,
                     double* minutes) {
  *minutes = GEO_RISE(*day_number, 0, *zone_hours, *longitude, *latitude, *body, *selector);
}

void zenithor_values(const int* body, const int* field, const double* julian_days, const int* count,
                     double* values, int* numbers) {
  *numbers = ZenithorValues(*body, *field, julian_days, *count, values);
}

void zenithor_calendar(const double* julian_day, const double* round_to, int* date, int* code) {
  *code = ZenithorCalendar(*julian_day, *round_to, date, NULL);
}

void zenithor_next_event(const int* kinds, const double* after, int* kind, double* julian_day) {
  *julian_day = ZenithorNextEventOfKinds(*kinds, *after, kind);
}

void zenithor_kind_name(const int* kind, const char** name) { *name = ZenithorKindName(*kind); }

void zenithor_daily_time(const int* body, const int* which, const double* julian_day,
                         const double* zone_hours, const double* longitude, const double* latitude,
                         double* answer) {
  *answer = ZenithorDailyTime(*body, *which, *julian_day, *zone_hours, *longitude, *latitude);
}
