#pragma once

#include <string>

namespace zenithor {

// The SHA-256 digest of `bytes`, as 64 lower-case hexadecimal digits. Any length is taken, none
// included; it never fails. National Institute of Standards and Technology, FIPS 180-4, "Secure
// Hash Standard", 2015, sections 5 and 6.2.
std::string Sha256(const std::string& bytes);

}  // namespace zenithor
