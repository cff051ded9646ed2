#include "positions/answer_memory.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "time/julian_day.h"
#include "time/obliquity.h"

namespace zenithor {

namespace {

// The fields that a body fills, besides those that follow from the day.
using Field = double BodyPositionRecord::*;

constexpr std::size_t kFields = sizeof(KeptAnswer::fields) / sizeof(double);

struct FieldList {
  const Field* first;
  std::size_t count;
};

constexpr Field kOfPlanets[kFields] = {
    &BodyPositionRecord::HelioLongitude, &BodyPositionRecord::HelioLatitude,
    &BodyPositionRecord::HelioDistance,  &BodyPositionRecord::GeoLongitude,
    &BodyPositionRecord::GeoLatitude,    &BodyPositionRecord::GeoDistance,
    &BodyPositionRecord::RightAscension, &BodyPositionRecord::Declination};

constexpr Field kOfMoon[kFields] = {
    &BodyPositionRecord::GeoLongitude,          &BodyPositionRecord::GeoLatitude,
    &BodyPositionRecord::GeoDistance,           &BodyPositionRecord::RightAscension,
    &BodyPositionRecord::Declination,           &BodyPositionRecord::MoonPhaseAngle,
    &BodyPositionRecord::MoonAxisPositionAngle, &BodyPositionRecord::MoonIlluminatedFraction};

constexpr std::size_t kHeliocentricFields = 3;

FieldList FieldsOf(BodyCode code) {
  switch (code) {
    case ZENITHOR_MOON:
      return {kOfMoon, kFields};
    case ZENITHOR_SUN:
      return {kOfPlanets + kHeliocentricFields, kFields - kHeliocentricFields};
    case ZENITHOR_EARTH:
      return {kOfPlanets, kHeliocentricFields};
    default:
      return {kOfPlanets, kFields};
  }
}

// From the first to the last of these days a date has a month and a day (time/julian_day.h).
constexpr double kFirstDate = -1401.0;
constexpr double kLastDate = 2147483647.0;

// The body and fields 19 to 23, each in its bits.
constexpr unsigned kSecondBits = 6;
constexpr unsigned kMinuteBits = 6;
constexpr unsigned kHourBits = 5;
constexpr unsigned kDayBits = 5;
constexpr unsigned kMonthBits = 4;

std::uint32_t Packed(BodyCode code, const BodyPositionRecord& record) {
  auto packed = static_cast<std::uint32_t>(code);
  packed = packed << kMonthBits | static_cast<std::uint32_t>(record.Month);
  packed = packed << kDayBits | static_cast<std::uint32_t>(record.Day);
  packed = packed << kHourBits | static_cast<std::uint32_t>(record.Hour);
  packed = packed << kMinuteBits | static_cast<std::uint32_t>(record.Minute);
  return packed << kSecondBits | static_cast<std::uint32_t>(record.Second);
}

// The lowest bits of `packed`, which they leave.
std::int32_t Unpacked(unsigned bits, std::uint32_t& packed) {
  const std::uint32_t value = packed & ((std::uint32_t{1} << bits) - 1);
  packed >>= bits;
  return static_cast<std::int32_t>(value);
}

BodyCode BodyOf(const KeptAnswer& answer) {
  return static_cast<BodyCode>(answer.rest >>
                               (kMonthBits + kDayBits + kHourBits + kMinuteBits + kSecondBits));
}

std::uint64_t BitsOf(double number) {
  std::uint64_t bits;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

// A hash of day and body: the steps of xor, shift and multiplication with which MurmurHash3 ends
// (A. Appleby), under which no two 64-bit numbers have the same. The three lowest bits are those of
// the whole day, so that eight days on end of one body stand side by side in the index: a line of
// the processor's cache that one of them brings serves the others, too.
std::uint32_t HashOf(double julian_day, BodyCode code) {
  constexpr std::uint64_t kGolden = 0x9E3779B97F4A7C15;
  constexpr unsigned kMantissaBits = 52;
  constexpr std::uint64_t kSideBySide = 7;
  const std::uint64_t bits = BitsOf(julian_day);
  const std::uint64_t exponent = (bits >> kMantissaBits & 0x7FF) - 1023;
  const std::uint64_t day_bit = exponent <= kMantissaBits ? kMantissaBits - exponent : 0;
  const std::uint64_t side = bits >> day_bit & kSideBySide;
  std::uint64_t hash = (bits ^ side << day_bit) + kGolden * static_cast<std::uint64_t>(code);
  hash = (hash ^ hash >> 33) * 0xFF51AFD7ED558CCD;
  hash = (hash ^ hash >> 33) * 0xC4CEB9FE1A85EC53;
  return (static_cast<std::uint32_t>(hash >> 32) & ~static_cast<std::uint32_t>(kSideBySide)) |
         static_cast<std::uint32_t>(side);
}

// A slot of the index holds a number of an answer in its lower bits and, above them, as many bits
// of the hash as there is room for, so that other answers are seldom looked at.
constexpr std::uint32_t kNumberMask = 2 * kMostAnswers - 1;

std::uint32_t SlotFor(std::uint32_t number, std::uint32_t hash) {
  return (hash & ~kNumberMask) | (number + 1);
}

std::uint32_t NumberIn(std::uint32_t slot) { return (slot & kNumberMask) - 1; }

std::uint32_t IndexMask(const AnswerMemory& memory) { return 2 * memory.capacity - 1; }

// The slot of the index at which the search for an answer with this hash begins.
std::uint32_t HomeOf(std::uint32_t hash, const AnswerMemory& memory) {
  return hash & IndexMask(memory);
}

void AddToIndex(std::uint32_t number, std::uint32_t hash, AnswerMemory& memory) {
  std::uint32_t place = HomeOf(hash, memory);
  while (memory.index[place] != 0) {
    place = (place + 1) & IndexMask(memory);
  }
  memory.index[place] = SlotFor(number, hash);
}

std::uint32_t HashOfNumber(std::uint32_t number, const AnswerMemory& memory) {
  const KeptAnswer& answer = memory.answers[number];
  return HashOf(answer.julian_day, BodyOf(answer));
}

// Takes an answer out of the index; those behind it that were pushed on move up (D. Knuth, The Art
// of Computer Programming, volume 3, section 6.4, algorithm R).
void RemoveFromIndex(std::uint32_t number, AnswerMemory& memory) {
  const std::uint32_t mask = IndexMask(memory);
  const std::uint32_t hash = HashOfNumber(number, memory);
  std::uint32_t hole = HomeOf(hash, memory);
  while (memory.index[hole] != SlotFor(number, hash)) {
    hole = (hole + 1) & mask;
  }
  for (std::uint32_t place = (hole + 1) & mask; memory.index[place] != 0;
       place = (place + 1) & mask) {
    const std::uint32_t home = HomeOf(HashOfNumber(NumberIn(memory.index[place]), memory), memory);
    if (((place - home) & mask) >= ((place - hole) & mask)) {
      memory.index[hole] = memory.index[place];
      hole = place;
    }
  }
  memory.index[hole] = 0;
}

bool Is(const KeptAnswer& answer, double julian_day, BodyCode code) {
  return BitsOf(answer.julian_day) == BitsOf(julian_day) && BodyOf(answer) == code;
}

constexpr std::uint32_t kNone = 0xFFFFFFFF;

std::uint32_t Find(const AnswerMemory& memory, double julian_day, BodyCode code) {
  if (memory.following < memory.count && Is(memory.answers[memory.following], julian_day, code)) {
    return memory.following;
  }
  if (memory.count == 0) {
    return kNone;
  }
  const std::uint32_t hash = HashOf(julian_day, code);
  for (std::uint32_t place = HomeOf(hash, memory);; place = (place + 1) & IndexMask(memory)) {
    const std::uint32_t slot = memory.index[place];
    if (slot == 0) {
      return kNone;
    }
    const std::uint32_t number = NumberIn(slot);
    if (slot == SlotFor(number, hash) && Is(memory.answers[number], julian_day, code)) {
      return number;
    }
  }
}

bool Within(std::int32_t value, std::int32_t first, std::int32_t last) {
  return first <= value && value <= last;
}

bool HasOrdinaryDate(const BodyPositionRecord& record) {
  return Within(record.Month, 1, 12) && Within(record.Day, 1, 31) && Within(record.Hour, 0, 23) &&
         Within(record.Minute, 0, 59) && Within(record.Second, 0, 59);
}

}  // namespace

void SetRoom(void* room, std::uint32_t capacity, AnswerMemory& memory) {
  auto* const answers = static_cast<KeptAnswer*>(room);
  if (memory.count > 0) {
    std::memcpy(answers, memory.answers, memory.count * sizeof(KeptAnswer));
  }
  memory.answers = answers;
  memory.index = reinterpret_cast<std::uint32_t*>(answers + capacity);
  memory.capacity = capacity;
  memory.oldest = 0;
  std::memset(memory.index, 0, 2 * std::size_t{capacity} * sizeof(std::uint32_t));
  for (std::uint32_t number = 0; number < memory.count; ++number) {
    AddToIndex(number, HashOfNumber(number, memory), memory);
  }
}

BodyPositionRecord UnwrittenRecord() {
  BodyPositionRecord record = {};
  for (const Field field : kOfPlanets) {
    record.*field = std::numeric_limits<double>::quiet_NaN();
  }
  for (const Field field : kOfMoon) {
    record.*field = std::numeric_limits<double>::quiet_NaN();
  }
  return record;
}

bool IsComplete(BodyCode code, const BodyPositionRecord& record) {
  const FieldList fields = FieldsOf(code);
  for (std::size_t k = 0; k < fields.count; ++k) {
    if (std::isnan(record.*fields.first[k])) {
      return false;
    }
  }
  return HasOrdinaryDate(record);
}

void CopyAnswer(BodyCode code, const BodyPositionRecord& from, BodyPositionRecord& record) {
  const FieldList fields = FieldsOf(code);
  for (std::size_t k = 0; k < fields.count; ++k) {
    record.*fields.first[k] = from.*fields.first[k];
  }
  if (code < ZENITHOR_PLUTO) {
    record.Obliquity = from.Obliquity;
    record.Centuries = from.Centuries;
  }
  record.Year = from.Year;
  record.Month = from.Month;
  record.Day = from.Day;
  record.Hour = from.Hour;
  record.Minute = from.Minute;
  record.Second = from.Second;
}

bool CanBeKept(double julian_day, BodyCode code) {
  return julian_day >= kFirstDate && julian_day <= kLastDate &&
         !(code == ZENITHOR_PLUTO && julian_day == -1.0);
}

bool Recall(AnswerMemory& memory, double julian_day, BodyCode code, BodyPositionRecord& record) {
  const std::uint32_t number = Find(memory, julian_day, code);
  if (number == kNone) {
    return false;
  }
  memory.following = number + 1;
  const KeptAnswer& answer = memory.answers[number];
  const FieldList fields = FieldsOf(code);
  for (std::size_t k = 0; k < fields.count; ++k) {
    record.*fields.first[k] = answer.fields[k];
  }
  if (code < ZENITHOR_PLUTO) {
    record.Centuries = JulianCenturies(julian_day);
    record.Obliquity = MeanObliquity(record.Centuries);
  }
  std::uint32_t rest = answer.rest;
  record.Year = answer.year;
  record.Second = Unpacked(kSecondBits, rest);
  record.Minute = Unpacked(kMinuteBits, rest);
  record.Hour = Unpacked(kHourBits, rest);
  record.Day = Unpacked(kDayBits, rest);
  record.Month = Unpacked(kMonthBits, rest);
  return true;
}

void Keep(double julian_day, BodyCode code, const BodyPositionRecord& record,
          AnswerMemory& memory) {
  if (memory.capacity == 0) {
    return;
  }
  std::uint32_t number = memory.count;
  if (memory.count == memory.capacity) {
    memory.skip = !memory.skip;
    if (memory.skip) {
      return;
    }
    number = memory.oldest;
    memory.oldest = (memory.oldest + 1) & (memory.capacity - 1);
    RemoveFromIndex(number, memory);
  } else {
    ++memory.count;
  }
  KeptAnswer& answer = memory.answers[number];
  answer.julian_day = julian_day;
  const FieldList fields = FieldsOf(code);
  for (std::size_t k = 0; k < fields.count; ++k) {
    answer.fields[k] = record.*fields.first[k];
  }
  answer.year = record.Year;
  answer.rest = Packed(code, record);
  AddToIndex(number, HashOf(julian_day, code), memory);
  memory.following = number + 1;
}

}  // namespace zenithor
