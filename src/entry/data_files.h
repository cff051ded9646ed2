#pragma once

namespace zenithor {

// What the environment says of the folders for application data (XDG Base Directory Specification):
// null where a variable is not set, and where the environment is not followed, as in a process that
// runs with more rights than its caller.
struct DataEnvironment {
  const char* data_home;  // XDG_DATA_HOME: the user's folder
  const char* home;       // HOME, below which that lies in .local/share where it is not set
  const char* data_dirs;  // XDG_DATA_DIRS: the system's folders, in order, with colons between them
};

// Full paths on the heap; null where there is no such folder, and where memory is short.
struct DataFiles {
  char* index_path;
  char* data_path;
};

// Where the index and the data file are on Linux: in tavvin_files/archive of the user's folder
// where both are there, else in the first of the system's folders that has both. Without
// XDG_DATA_DIRS these are /usr/local/share and /usr/share. Where no folder has both, the paths are
// those in the user's, which are null where there is none. Relative folders count as not given. The
// files of two folders are never mixed. `file_exists` is asked for the index first, and for the
// data file where the index is there. The caller frees the paths.
DataFiles FindDataFiles(const DataEnvironment& environment, bool (*file_exists)(const char* path));

}  // namespace zenithor
