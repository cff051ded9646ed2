/* A host that is linked with the import library (with -lzenithor_values on Linux). */
#include <stdio.h>
#include <stdlib.h>

#include "zenithor/values.h"

int main(void) {
  double days[20];
  int32_t kind = -1;
  /* tests/golden/positions.tsv */
  const double venus = ZenithorValue(ZENITHOR_BODY_VENUS, ZENITHOR_FIELD_GEO_LONGITUDE, 2451545.0);
  if (!(venus > 241.57670364 && venus < 241.57670365)) {
    fprintf(stderr, "values_linked_host: Venus at %.17g\n", venus);
    return EXIT_FAILURE;
  }
  if (ZenithorEvents(ZENITHOR_KIND_NEW_MOON, 2451544.5, 2451910.5, days, 20) != 13 ||
      !(ZenithorNextEventOfKinds(ZENITHOR_KINDS_SEASONS, 2451544.5, &kind) > days[0]) ||
      kind != ZENITHOR_KIND_MARCH_EQUINOX) {
    fprintf(stderr, "values_linked_host: no events\n");
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
