#include "values/record_field.h"

#include <limits>

#include "zenithor/values.h"

namespace zenithor {

double RecordField(const BodyPositionRecord& record, int field) {
  switch (field) {
    case ZENITHOR_FIELD_HELIO_LONGITUDE:
      return record.HelioLongitude;
    case ZENITHOR_FIELD_HELIO_LATITUDE:
      return record.HelioLatitude;
    case ZENITHOR_FIELD_HELIO_DISTANCE:
      return record.HelioDistance;
    case ZENITHOR_FIELD_GEO_LONGITUDE:
      return record.GeoLongitude;
    case ZENITHOR_FIELD_GEO_LATITUDE:
      return record.GeoLatitude;
    case ZENITHOR_FIELD_GEO_DISTANCE:
      return record.GeoDistance;
    case ZENITHOR_FIELD_RIGHT_ASCENSION:
      return record.RightAscension;
    case ZENITHOR_FIELD_DECLINATION:
      return record.Declination;
    case ZENITHOR_FIELD_MOON_PHASE_ANGLE:
      return record.MoonPhaseAngle;
    case ZENITHOR_FIELD_MOON_AXIS_ANGLE:
      return record.MoonAxisPositionAngle;
    case ZENITHOR_FIELD_MOON_ILLUMINATION:
      return record.MoonIlluminatedFraction;
    case ZENITHOR_FIELD_OBLIQUITY:
      return record.Obliquity;
    case ZENITHOR_FIELD_CENTURIES:
      return record.Centuries;
    case ZENITHOR_FIELD_YEAR:
      return record.Year;
    case ZENITHOR_FIELD_MONTH:
      return record.Month;
    case ZENITHOR_FIELD_DAY:
      return record.Day;
    case ZENITHOR_FIELD_HOUR:
      return record.Hour;
    case ZENITHOR_FIELD_MINUTE:
      return record.Minute;
    case ZENITHOR_FIELD_SECOND:
      return record.Second;
    default:
      return std::numeric_limits<double>::quiet_NaN();
  }
}

}  // namespace zenithor
