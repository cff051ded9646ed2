/* A host that is linked with the import library (with -lzenithor on Linux). */
#include <stdio.h>
#include <stdlib.h>

#include "zenithor/zenithor.h"

int main(void) {
  BodyPositionRecord venus;
  const double result = ZENITHOR(2451545.0, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_VENUS, &venus);
  if (result != ZENITHOR_DONE) {
    fprintf(stderr, "linked_host: ZENITHOR returned %g\n", result);
    return EXIT_FAILURE;
  }
  /* tests/golden/positions.tsv */
  if (!(venus.GeoLongitude > 241.57670364 && venus.GeoLongitude < 241.57670365)) {
    fprintf(stderr, "linked_host: Venus at %.17g\n", venus.GeoLongitude);
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
