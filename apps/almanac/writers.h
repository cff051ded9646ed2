#pragma once

#include <memory>

#include "report.h"

namespace zenithor::almanac {

// Aligned columns. `width` 0 is no limit; where a table is wider, moments lose their seconds and
// numbers some decimals, and then the last columns are left out, which a note says.
std::unique_ptr<Writer> NewTextWriter(const Clock& clock, std::size_t width, bool colour);

// RFC 4180, "Common Format and MIME Type for CSV Files", 2005, with line feeds between the lines.
// One heading line "name [unit]". With notes, the head and the notes are lines that begin with #.
std::unique_ptr<Writer> NewCsvWriter(const Clock& clock, bool notes);

// An object with head, tables and notes; a row is an object keyed by column name, an empty cell is
// null, numbers are in full.
std::unique_ptr<Writer> NewJsonWriter(const Clock& clock);

// One such row a line.
std::unique_ptr<Writer> NewJsonLinesWriter(const Clock& clock);

}  // namespace zenithor::almanac
