/* A host that asks the values library for the rise, transit and set of every day of a table that an
 * independent program made: the times within 2 minutes up to latitude 60, and the same days without
 * one, above or below the horizon all day.
 *   values_daily_host ZENITHOR_VALUES RISE_TRANSIT_SET.csv ROWS */
#include <math.h>

#include "host.h"
#include "support/open_values.h"

enum { kEvents = 3, kMostColumns = 8 };
static const double kAllowed = 2.0; /* [min] */

/* The cells of a line, which is cut into pieces; their number. */
static int CutCells(char* line, char* cells[kMostColumns]) {
  int count = 0;
  char* cell = strtok(line, ",\r\n");
  for (; cell != NULL && count < kMostColumns; cell = strtok(NULL, ",\r\n")) {
    cells[count] = cell;
    ++count;
  }
  return count;
}

/* What the table says of an event in words; HAPPENS where it gives the minutes. */
static int32_t StatusOf(const char* cell) {
  return strcmp(cell, "none") == 0   ? ZENITHOR_DAILY_NONE
         : strcmp(cell, "up") == 0   ? ZENITHOR_DAILY_ALWAYS_UP
         : strcmp(cell, "down") == 0 ? ZENITHOR_DAILY_NEVER_UP
                                     : ZENITHOR_DAILY_HAPPENS;
}

/* The row's greatest difference [min]. */
static double CheckRow(const ZenithorValuesLibrary* values, char* cells[kMostColumns]) {
  const int32_t body = (int32_t)strtol(cells[0], NULL, 10);
  const double zone = strtod(cells[2], NULL);
  const double start = strtod(cells[1], NULL) - zone / 24.0;
  const double longitude = strtod(cells[3], NULL);
  const double latitude = strtod(cells[4], NULL);
  const double inside = start + 0.4;
  double days[kEvents] = {0.0, 0.0, 0.0};
  int32_t statuses[kEvents] = {-1, -1, -1};
  const int32_t times = values->Daily(body, inside, zone, longitude, latitude, days, statuses);
  int expected_times = 0;
  double greatest = 0.0;
  for (int k = 0; k < kEvents; ++k) {
    const char* const cell = cells[5 + k];
    const int32_t status = StatusOf(cell);
    const double alone = values->DailyTime(body, k + 1, inside, zone, longitude, latitude);
    CHECK(statuses[k] == status);
    CHECK(values->DailyStatus(body, k + 1, inside, zone, longitude, latitude) == status);
    if (status == ZENITHOR_DAILY_HAPPENS) {
      const double difference = fabs((days[k] - start) * 1440.0 - strtod(cell, NULL));
      CHECK(difference <= kAllowed);
      CHECK(alone == days[k]);
      greatest = difference > greatest ? difference : greatest;
      ++expected_times;
    } else {
      CHECK(days[k] != days[k]);
      CHECK(alone != alone);
    }
  }
  CHECK(times == expected_times);
  return greatest;
}

int main(int count, char** words) {
  ZenithorValuesLibrary values;
  char line[256];
  int rows = 0;
  double greatest = 0.0;
  FILE* file = NULL;
  if (count != 4 || !OpenValues(&values, words[1])) {
    fprintf(stderr, "usage: values_daily_host ZENITHOR_VALUES RISE_TRANSIT_SET.csv ROWS\n");
    return 2;
  }
  file = fopen(words[2], "r");
  CHECK(file != NULL);
  while (file != NULL && fgets(line, sizeof line, file) != NULL) {
    char* cells[kMostColumns];
    if (line[0] != '#') {
      const int columns = CutCells(line, cells);
      CHECK(columns == kMostColumns);
      if (columns == kMostColumns) {
        const double difference = CheckRow(&values, cells);
        greatest = difference > greatest ? difference : greatest;
        ++rows;
      }
    }
  }
  if (file != NULL) {
    fclose(file);
  }
  CHECK(rows == atoi(words[3]));
  printf("%d days, the times within %.2f minutes\n", rows, greatest);
  ZenithorValuesClose(&values);
  return HOST_RESULT;
}
