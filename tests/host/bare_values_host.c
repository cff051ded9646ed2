/* A host for Microsoft's linker without any C library: its exit code is 0 where the linked
 * functions answer. */
#include "zenithor/values.h"

int _fltused = 0;

int Start(void) {
  const double venus = ZenithorValue(ZENITHOR_BODY_VENUS, ZENITHOR_FIELD_GEO_LONGITUDE, 2451545.0);
  if (!(venus > 241.57670364 && venus < 241.57670365)) {
    return 1;
  }
  return ZenithorVersionNumber() == 10000 ? 0 : 2;
}
