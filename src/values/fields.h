#pragma once

#include "zenithor/values.h"

namespace zenithor {

// What is known of a field without computing it.

bool IsBody(int body);

// Whether there is a field of that number: 1 to 10, 15 to 23 and 101 to 106.
bool IsField(int field);

// Whether the body has the field; not for what is no body or field.
bool HasField(int body, int field);

// 360 for longitudes [deg], 24 for right ascension [h], 0 for what does not come round; NaN when
// there is no such field.
double PeriodOfField(int field);

// The texts of values.h; null where it says so.
const char* BodyName(int body);
const char* FieldName(int field);
const char* FieldUnit(int body, int field);

}  // namespace zenithor
