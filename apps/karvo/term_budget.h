#pragma once

#include "body_terms.h"

namespace zenithor::karvo {

// Drops terms of a body as long as its heliocentric place stays within the budget over the years
// -2000 to +6000; returns the largest error then measured [arcsec].
//
// The error at a moment is the displacement of the place as seen from the Sun: the root of the
// squares of (error in L) cos B, of the error in B and of (error in R) / R. Terms are tried in
// rising order of their largest effect in those years, and each is dropped that can be; so none of
// the dropped ones is larger than it must be, and what is kept is as few as this order gives. Terms
// are chosen at 8192 moments spread evenly and irregularly over the years; the error is then
// measured at these and 8192 others, and where it exceeds the budget the search is repeated with a
// smaller one, up to four times; the fewest terms that held the budget are kept.
//
// The arithmetic is IEEE addition and multiplication alone, so that the same terms are kept on
// every machine.
double KeepWithinBudget(double max_error_arcsec, BodyTerms& body);

}  // namespace zenithor::karvo
