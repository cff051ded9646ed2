#pragma once

#include <gtest/gtest.h>

#include "support/text_files.h"

namespace zenithor::testing {

// A value computed by the library, in the unit of tests/published/worked-examples.csv, against the
// one that the book prints: no farther away than that file allows.
inline void ExpectPublished(const char* example, const char* quantity, double actual) {
  const PublishedValue book = Published(example, quantity);
  EXPECT_NEAR(actual, book.value, book.allowed) << example << " " << quantity;
}

}  // namespace zenithor::testing
