#include "ephemeris/file_open.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdlib>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zenithor {

#ifdef _WIN32

namespace {

// Calls use(wide name) on the name taken as UTF-8; `failure` where it is not UTF-8.
template <class Result, class Use>
Result WithWideName(const char* name, Result failure, Use use) {
  const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, name, -1, nullptr, 0);
  if (length <= 0) {
    return failure;
  }
  auto* const wide =
      static_cast<wchar_t*>(std::malloc(static_cast<std::size_t>(length) * sizeof(wchar_t)));
  if (wide == nullptr) {
    return failure;
  }
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, name, -1, wide, length);
  const Result result = use(wide);
  std::free(wide);
  return result;
}

}  // namespace

bool FileExists(const char* name) {
  return GetFileAttributesA(name) != INVALID_FILE_ATTRIBUTES ||
         WithWideName(name, false, [](const wchar_t* wide) {
           return GetFileAttributesW(wide) != INVALID_FILE_ATTRIBUTES;
         });
}

std::FILE* OpenForReading(const char* name) {
  // N: child processes do not inherit it.
  if (std::FILE* const file = std::fopen(name, "rbN")) {
    return file;
  }
  return WithWideName(name, static_cast<std::FILE*>(nullptr),
                      [](const wchar_t* wide) { return _wfopen(wide, L"rbN"); });
}

#else

bool FileExists(const char* name) {
  struct stat status = {};
  return stat(name, &status) == 0;
}

std::FILE* OpenForReading(const char* name) {
  // Without O_NONBLOCK a pipe would wait until somebody writes; a directory opens for reading here,
  // but cannot be read. What was opened is what is looked at: the name may be another's by then.
  const int descriptor = open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) {
    return nullptr;
  }
  struct stat status = {};
  std::FILE* const file = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
                              ? fdopen(descriptor, "rbe")
                              : nullptr;
  if (file == nullptr) {
    close(descriptor);
  }
  return file;
}

#endif

}  // namespace zenithor
