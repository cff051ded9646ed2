/* A host for Microsoft's linker without any C library: its exit code is 0 where the linked function
 * answers. */
#include "zenithor/zenithor.h"

int _fltused = 0;

int Start(void) {
  static BodyPositionRecord venus;
  const double result = ZENITHOR(2451545.0, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_VENUS, &venus);
  if (result != ZENITHOR_DONE) {
    return 1;
  }
  return venus.GeoLongitude > 241.57670364 && venus.GeoLongitude < 241.57670365 ? 0 : 2;
}
