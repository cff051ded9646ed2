#pragma once

#include <array>
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "golden/table.h"
#include "zenithor/zenithor.h"

namespace zenithor::golden {

// The cases of a file of golden answers: calls of the library with the answers that are expected.
// A file is of one kind: positions, events or risings.

// The arguments, in the units of zenithor.h.
struct PositionCall {
  double julian_day;
  double ignored1, ignored2;
  double observer_longitude, observer_latitude;
  double ignored3;
  BodyCode code;
};

struct EventCall {
  std::string name;  // of the export, without its underscore
  double julian_day;
  std::int32_t selector;  // 0 where the export takes none
};

struct RisingCall {
  double day_number, minutes, zone_hours;
  double longitude_west, latitude;
  BodyCode code;
  std::int32_t selector;
};

// A number of the answer: how far it may be off, or that it is to be left as it was.
struct ExpectedNumber {
  std::string name;  // of the column
  bool untouched = false;
  double value = 0.0;
  double allowed = 0.0;
};

// Year, month, day, hour, minute, second.
using DateFields = std::array<std::int32_t, 6>;

// As the files have it: 2000-01-01 12:00:00. Before the count of days begins, months and days of
// the month are negative.
std::string TextOf(const DateFields& date);

// A calendar moment of the answer, met exactly.
struct ExpectedDate {
  std::string name;
  bool untouched = false;
  DateFields fields{};
};

enum class BlockState { kUntouched, kZeroed, kFilled };

// A block of the event record: left as it was, zero in every bit, or an event.
struct ExpectedBlock {
  BlockState state = BlockState::kUntouched;
  ExpectedNumber julian_day;
  ExpectedDate date;
};

constexpr std::size_t kPositionDoubles = 17;

struct PositionCase {
  int line;
  std::string words;  // the arguments as the file has them
  PositionCall call;
  ExpectedNumber result;
  std::array<ExpectedNumber, kPositionDoubles> doubles;  // field 1 first
  ExpectedDate date;
};

struct EventCase {
  int line;
  std::string words;
  EventCall call;
  ExpectedNumber result;
  std::array<ExpectedBlock, ZENITHOR_BLOCK_COUNT> blocks;
};

struct RisingCase {
  int line;
  std::string words;
  RisingCall call;
  ExpectedNumber result;
};

struct GoldenFile {
  std::string path;
  std::vector<PositionCase> positions;
  std::vector<EventCase> events;
  std::vector<RisingCase> risings;

  std::size_t CaseCount() const { return positions.size() + events.size() + risings.size(); }
};

// Reads a file; `path` is what messages call it. Throws Refused, which says where and why, when it
// cannot be read as a file of golden answers to the last cell.
GoldenFile ReadGoldenFile(std::istream& text, const std::string& path);
GoldenFile ReadGoldenFile(const std::string& path);

}  // namespace zenithor::golden
