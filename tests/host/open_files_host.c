/* Loads the library where the data file cannot be used, so that the load leaves the files it opened
 * open, and looks that no program that the host starts would inherit them.
 *   open_files_host LIBRARY INDEX DATA */
#if !defined(_WIN32)
#define _GNU_SOURCE
#include <fcntl.h>
#include <sys/stat.h>
#endif

#include "host.h"

/* An index whose counts add up to less than nothing. */
static void SpoilIndex(const char* name) {
  static unsigned char bytes[648];
  FILE* const file = fopen(name, "r+b");
  CHECK(file != NULL);
  if (file != NULL) {
    memset(bytes, 0xFF, sizeof bytes);
    CHECK(fwrite(bytes, sizeof bytes, 1, file) == 1 && fclose(file) == 0);
  }
}

#if defined(_WIN32)

typedef BY_HANDLE_FILE_INFORMATION Identity;

static int IdentityOf(HANDLE handle, Identity* identity) {
  return GetFileType(handle) == FILE_TYPE_DISK && GetFileInformationByHandle(handle, identity);
}

static int OpenedFiles(const char* name, int* inherited) {
  Identity wanted;
  Identity found;
  UINT_PTR number;
  int count = 0;
  const HANDLE file = CreateFileA(name, 0, 7, NULL, OPEN_EXISTING, 0, NULL);
  CHECK(IdentityOf(file, &wanted));
  CloseHandle(file);
  for (number = 4; number < 8192; number += 4) {
    DWORD flags = 0;
    if (IdentityOf((HANDLE)number, &found) && found.nFileIndexLow == wanted.nFileIndexLow &&
        found.nFileIndexHigh == wanted.nFileIndexHigh) {
      ++count;
      CHECK(GetHandleInformation((HANDLE)number, &flags));
      *inherited += (flags & HANDLE_FLAG_INHERIT) != 0;
    }
  }
  return count;
}

#else

static int OpenedFiles(const char* name, int* inherited) {
  struct stat wanted;
  struct stat found;
  int count = 0;
  int descriptor;
  CHECK(stat(name, &wanted) == 0);
  for (descriptor = 0; descriptor < 1024; ++descriptor) {
    if (fstat(descriptor, &found) == 0 && found.st_dev == wanted.st_dev &&
        found.st_ino == wanted.st_ino) {
      ++count;
      *inherited += (fcntl(descriptor, F_GETFD) & FD_CLOEXEC) == 0;
    }
  }
  return count;
}

#endif

int main(int count, char** words) {
  ZenithorLibrary library;
  int inherited = 0;
  int index_count;
  int data_count;
  if (count < 4) {
    fprintf(stderr, "usage: open_files_host LIBRARY INDEX DATA\n");
    return EXIT_FAILURE;
  }
  SpoilIndex(words[2]);
  CHECK(OpenLibrary(&library, words[1]));
  index_count = OpenedFiles(words[2], &inherited);
  data_count = OpenedFiles(words[3], &inherited);
  printf("left open: %d times the index, %d times the data; inherited: %d\n", index_count,
         data_count, inherited);
  CHECK(index_count > 0 && data_count > 0);
  CHECK(inherited == 0);
  return HOST_RESULT;
}
