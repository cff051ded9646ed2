// Library load on Linux: the data are looked for in the user's folder for application data and then
// in the system's, with the same two levels below it as on Windows; the warning goes to standard
// error.

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "entry/data_files.h"
#include "entry/library_load.h"
#include "ephemeris/file_open.h"
#include "host/boundary.h"
#include "host/process_state.h"

namespace {

// Whether descriptor 2 can be standard error, and a line on it neither overwrites something, nor
// waits, nor ends the process. A descriptor that the program was started with is not close-on-exec;
// a log is written at its end, while of a host's own file that got the number 2 the end is rarely
// where it stands.
bool CanWarn() {
  const int descriptor_flags = fcntl(STDERR_FILENO, F_GETFD);
  const int status_flags = fcntl(STDERR_FILENO, F_GETFL);
  struct stat status = {};
  if (descriptor_flags < 0 || (descriptor_flags & FD_CLOEXEC) != 0 || status_flags < 0 ||
      fstat(STDERR_FILENO, &status) != 0) {
    return false;
  }
  if (S_ISREG(status.st_mode)) {
    return (status_flags & O_ACCMODE) != O_RDONLY &&
           ((status_flags & O_APPEND) != 0 || lseek(STDERR_FILENO, 0, SEEK_CUR) == status.st_size);
  }
  if (!S_ISFIFO(status.st_mode) && isatty(STDERR_FILENO) == 0) {
    return false;
  }
  pollfd written = {STDERR_FILENO, POLLOUT, 0};  // not where the pipe is full or has no reader
  return poll(&written, 1, 0) == 1 && written.revents == POLLOUT;
}

// The host's FILE for standard error may be closed or buffered, so it is not used.
void WarnMissingFile() {
  char line[128];
  const int length = std::snprintf(line, sizeof line, "%s: %s\n", zenithor::kMissingFileCaption,
                                   zenithor::kMissingFileText);
  if (CanWarn()) {
    [[maybe_unused]] const ssize_t written =
        write(STDERR_FILENO, line, static_cast<std::size_t>(length));
  }
}

__attribute__((constructor)) void LoadFromApplicationData() {
  const zenithor::HostBoundary boundary;
  // The environment of a process that runs with more rights than its caller is not followed.
  const zenithor::DataFiles files = zenithor::FindDataFiles(
      {secure_getenv("XDG_DATA_HOME"), secure_getenv("HOME"), secure_getenv("XDG_DATA_DIRS")},
      zenithor::FileExists);
  zenithor::LoadEphemeris(zenithor::process_state.store, {files.index_path, files.data_path,
                                                          zenithor::FileExists, WarnMissingFile});
  std::free(files.index_path);
  std::free(files.data_path);
}

}  // namespace
