/* A program that asks for the library by its plain name while the current directory and PATH hold a
 * planted one of that name: it is not loaded.
 *   planted_host LIBRARY PLANTED_FOLDER
 * On Windows the program stands in a folder of its own, into which it copies the library. */
#if defined(_WIN32)
#include <direct.h>
#else
#include <unistd.h>
#endif

#include "host.h"

static int IsPlanted(const ZenithorLibrary* library) {
#if defined(_WIN32)
  return GetProcAddress((HMODULE)library->Handle, "planted") != NULL;
#else
  return dlsym(library->Handle, "planted") != NULL;
#endif
}

static int OpenByName(void) {
  ZenithorLibrary library;
  BodyPositionRecord record;
  const int opened = ZenithorOpen(&library, NULL);
  if (opened) {
    CHECK(!IsPlanted(&library));
    CHECK(library.ZENITHOR(2451545.0, 0, 0, 0, 0, 0, ZENITHOR_MARS, &record) == ZENITHOR_DONE);
    ZenithorClose(&library);
  }
  return opened;
}

#if defined(_WIN32)

/* What a plain LoadLibrary would have come to: without it the test would show nothing. */
static void CheckThatTheTrapIsSet(void) {
  const HMODULE handle = LoadLibraryW(ZENITHOR_LIBRARY_NAME);
  CHECK(handle != NULL && GetProcAddress(handle, "planted") != NULL);
  FreeLibrary(handle);
}

static void TryTheProgramsFolder(const char* library_path) {
  char beside[2048];
  HMODULE handle;
  GetModuleFileNameA(NULL, beside, sizeof beside - 16);
  strcpy(strrchr(beside, '\\') + 1, "zenithor.dll");
  DeleteFileA(beside);
  CHECK(!OpenByName());
  CHECK(ZenithorLoadBesideProgram() == NULL);
  CHECK(CopyFileA(library_path, beside, FALSE));
  CHECK(OpenByName());
  handle = ZenithorLoadBesideProgram();
  CHECK(handle != NULL && GetProcAddress(handle, "_ZENITHOR") != NULL);
  FreeLibrary(handle);
  CHECK(DeleteFileA(beside));
}

int main(int count, char** words) {
  char folder[2048];
  if (count < 3) {
    fprintf(stderr, "usage: planted_host LIBRARY PLANTED_FOLDER\n");
    return EXIT_FAILURE;
  }
  CHECK(_chdir(words[2]) == 0);
  CheckThatTheTrapIsSet();
  TryTheProgramsFolder(words[1]);
  /* The same by way of PATH. */
  CHECK(_getcwd(folder, sizeof folder) != NULL && _chdir("C:\\") == 0);
  SetEnvironmentVariableA("PATH", folder);
  CheckThatTheTrapIsSet();
  TryTheProgramsFolder(words[1]);
  return HOST_RESULT;
}

#else

int main(int count, char** words) {
  if (count < 3) {
    fprintf(stderr, "usage: planted_host LIBRARY PLANTED_FOLDER\n");
    return EXIT_FAILURE;
  }
  CHECK(chdir(words[2]) == 0);
  CHECK(access(ZENITHOR_LIBRARY_NAME, R_OK) == 0 && access(ZENITHOR_LIBRARY_SONAME, R_OK) == 0);
  CHECK(!OpenByName());
  return HOST_RESULT;
}

#endif
