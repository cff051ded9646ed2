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
  std::uint64_t file = 0;
  std::uint64_t size = 0;    // [bytes]
  std::int64_t seconds = 0;  // of the last change, as the system counts it
  std::int64_t fraction = 0;
};

inline bool operator==(const FileIdentity& a, const FileIdentity& b) {
  return a.volume == b.volume && a.file == b.file && a.size == b.size && a.seconds == b.seconds &&
         a.fraction == b.fraction;
}

FileIdentity IdentityOf(std::FILE* file);

}  // namespace zenithor
