#pragma once

#include <cstdint>
#include <cstdio>

namespace zenithor {

// Files by narrow name. On Windows a name is taken in the ANSI code page first; where no file has
// that name it is taken as UTF-8, the form in which the load passes a path that the code page
// cannot express.

// Whether something of that name exists; it need not be readable, nor an ordinary file.
bool FileExists(const char* name);

// Opens an ordinary file for binary reading; null when that fails, also for a directory. A file
// that has just been renamed into its place opens, too. Programs that the host starts do not
// inherit it.
std::FILE* OpenForReading(const char* name);

// Which file is open, and in what state: another one under the same name has another identity, one
// that was written to since another size or time. All zero for none, and where the system does not
// tell.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;    // the system's number of it; 0 where it was not asked for
  std::uint64_t size = 0;    // [bytes]
  std::int64_t seconds = 0;  // of the last change, as the system counts it
  std::int64_t fraction = 0;
};

// Size and time must agree, and the numbers where both are known.
inline bool MayBeTheSame(const FileIdentity& a, const FileIdentity& b) {
  const bool numbers_known = a.file != 0 && b.file != 0;
  return a.size == b.size && a.seconds == b.seconds && a.fraction == b.fraction &&
         (!numbers_known || (a.volume == b.volume && a.file == b.file));
}

// Without `ask_number` the number is left out where it costs more than the rest: Wine takes several
// times as long for it as for opening a file.
FileIdentity IdentityOf(std::FILE* file, bool ask_number);

}  // namespace zenithor
