#pragma once

#include <cstdio>

namespace zenithor {

// Files by narrow name. On Windows a name is taken in the ANSI code page first; where no file has
// that name it is taken as UTF-8, the form in which the load passes a path that the code page
// cannot express.

// Whether something of that name exists; it need not be readable, nor an ordinary file.
bool FileExists(const char* name);

// Opens an ordinary file for binary reading; null when that fails, also for a directory. Programs
// that the host starts do not inherit it.
std::FILE* OpenForReading(const char* name);

}  // namespace zenithor
