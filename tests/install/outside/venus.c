/* The geocentric longitude of Venus at J2000.0, degrees, from the main library. */
#include <stdio.h>
#include <zenithor/zenithor.h>

int main(void) {
  BodyPositionRecord venus;
  if (ZENITHOR(2451545.0, 0, 0, 0, 0, 0, ZENITHOR_VENUS, &venus) != ZENITHOR_DONE) {
    fprintf(stderr, "no data for Venus\n");
    return 1;
  }
  printf("%.17g\n", venus.GeoLongitude);
  return 0;
}
