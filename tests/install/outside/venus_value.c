/* The geocentric longitude of Venus at J2000.0, degrees, from the values library. */
#include <stdio.h>
#include <zenithor/values.h>

int main(void) {
  printf("%.17g\n", ZenithorValue(ZENITHOR_BODY_VENUS, ZENITHOR_FIELD_GEO_LONGITUDE, 2451545.0));
  return 0;
}
