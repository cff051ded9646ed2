#include "zodiac.h"

#include <fmt/core.h>

#include <cmath>

namespace zenithor::almanac {

namespace {

struct Sign {
  const char* name;
  const char* abbreviation;
};

constexpr Sign kSignNames[kSigns] = {
    {"Aries", "Ari"},       {"Taurus", "Tau"},    {"Gemini", "Gem"},   {"Cancer", "Cnc"},
    {"Leo", "Leo"},         {"Virgo", "Vir"},     {"Libra", "Lib"},    {"Scorpio", "Sco"},
    {"Sagittarius", "Sgr"}, {"Capricorn", "Cap"}, {"Aquarius", "Aqr"}, {"Pisces", "Psc"}};

constexpr long kArcsecPerSign = 30 * 3600;

}  // namespace

const char* SignName(int sign) { return kSignNames[(sign % kSigns + kSigns) % kSigns].name; }

std::string SignText(double longitude) {
  const long arcsec = std::lround(longitude * 3600.0) % (kSigns * kArcsecPerSign);
  const long within = arcsec % kArcsecPerSign;
  return fmt::format("{:02} {} {:02}'{:02}\"", within / 3600,
                     kSignNames[arcsec / kArcsecPerSign].abbreviation, within / 60 % 60,
                     within % 60);
}

}  // namespace zenithor::almanac
