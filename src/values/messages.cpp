#include "values/messages.h"

#include "zenithor/values.h"

namespace zenithor {

const char* MessageOf(std::int32_t code) {
  if (code >= 0) {
    return "No error.";
  }
  switch (code) {
    case ZENITHOR_ERROR_ARRAY:
      return "An array is missing that has to be read or written.";
    case ZENITHOR_ERROR_COUNT:
      return "A count, capacity or stride is negative.";
    case ZENITHOR_ERROR_BODY:
      return "There is no such body, or the question makes no sense for it.";
    case ZENITHOR_ERROR_FIELD:
      return "There is no such field, the body does not have it, or it cannot be searched so.";
    case ZENITHOR_ERROR_KIND:
      return "There is no such kind of event.";
    case ZENITHOR_ERROR_SPAN:
      return "The span is not between the years -2000 and 4000, or too long for this field.";
    case ZENITHOR_ERROR_ANGLE:
      return "An angle or zone is not finite, or a latitude is beyond 90 degrees.";
    case ZENITHOR_ERROR_DAY:
      return "The day is not finite, or has no calendar date.";
    default:
      return "Unknown error code.";
  }
}

}  // namespace zenithor
