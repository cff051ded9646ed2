#include "ephemeris/file_open.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdint>
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

// A file that the run-time reads from a handle; null where there is none.
std::FILE* ReadFrom(HANDLE handle) {
  if (handle == INVALID_HANDLE_VALUE) {
    return nullptr;
  }
  const int descriptor =
      _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_RDONLY | _O_NOINHERIT);
  std::FILE* const file = descriptor < 0 ? nullptr : _fdopen(descriptor, "rb");
  if (file == nullptr) {
    if (descriptor < 0) {
      CloseHandle(handle);
    } else {
      _close(descriptor);
    }
  }
  return file;
}

}  // namespace

bool FileExists(const char* name) {
  return GetFileAttributesA(name) != INVALID_FILE_ATTRIBUTES ||
         WithWideName(name, false, [](const wchar_t* wide) {
           return GetFileAttributesW(wide) != INVALID_FILE_ATTRIBUTES;
         });
}

std::FILE* OpenForReading(const char* name) {
  // Whoever puts a new file in place of an old one by renaming still has it open for a moment, with
  // the right to delete it. Only who shares that right, as fopen does not, can open the file then.
  // No security attributes: programs that the host starts do not inherit the handle.
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const auto open_wide = [](const wchar_t* wide) {
    return CreateFileW(wide, GENERIC_READ, kShared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
  };
  HANDLE handle = CreateFileA(name, GENERIC_READ, kShared, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    handle = WithWideName(name, handle, open_wide);
  }
  return ReadFrom(handle);
}

FileIdentity IdentityOf(std::FILE* file, bool ask_number) {
  // The C library keeps the handle as a number.
  auto* const handle =
      reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));  // NOLINT(performance-no-int-to-ptr)
  LARGE_INTEGER size = {};
  FILETIME written = {};
  if (GetFileSizeEx(handle, &size) == FALSE ||
      GetFileTime(handle, nullptr, nullptr, &written) == FALSE) {
    return {};
  }
  const auto joined = [](DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
  };
  FileIdentity identity;
  identity.size = static_cast<std::uint64_t>(size.QuadPart);
  identity.seconds =
      static_cast<std::int64_t>(joined(written.dwHighDateTime, written.dwLowDateTime));
  BY_HANDLE_FILE_INFORMATION found = {};
  if (ask_number && GetFileInformationByHandle(handle, &found) != FALSE) {
    identity.volume = found.dwVolumeSerialNumber;
    identity.file = joined(found.nFileIndexHigh, found.nFileIndexLow);
  }
  return identity;
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

FileIdentity IdentityOf(std::FILE* file, bool /*ask_number*/) {
  struct stat found = {};
  if (fstat(fileno(file), &found) != 0) {
    return {};
  }
  return {found.st_dev, found.st_ino, static_cast<std::uint64_t>(found.st_size),
          found.st_mtim.tv_sec, found.st_mtim.tv_nsec};
}

#endif

}  // namespace zenithor
