/* The version resource as Windows shows it.
 *   version_host LIBRARY MAJOR MINOR PATCH */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

static const char* const kNames[] = {"CompanyName",  "FileDescription", "FileVersion",
                                     "InternalName", "LegalCopyright",  "OriginalFilename",
                                     "ProductName",  "ProductVersion"};

static int failures = 0;

static void Expect(int holds, const char* what) {
  if (!holds) {
    ++failures;
    fprintf(stderr, "version_host: %s\n", what);
  }
}

static const char* StringOf(const void* resource, const char* name) {
  char block[128];
  void* text = NULL;
  UINT length = 0;
  snprintf(block, sizeof block, "\\StringFileInfo\\040904B0\\%s", name);
  return VerQueryValueA(resource, block, &text, &length) && length > 1 ? (const char*)text : "";
}

/* What stands behind the last separator of a path. */
static const char* FileNameOf(const char* path) {
  const char* name = path;
  for (; *path != '\0'; ++path) {
    if (*path == '/' || *path == '\\') {
      name = path + 1;
    }
  }
  return name;
}

int main(int count, char** words) {
  static char resource[4096];
  void* part = NULL;
  UINT length = 0;
  char version[64];
  size_t k;
  if (count < 5 || !GetFileVersionInfoA(words[1], 0, sizeof resource, resource)) {
    fprintf(stderr, "version_host: no version resource in %s\n", count > 1 ? words[1] : "");
    return EXIT_FAILURE;
  }
  if (VerQueryValueA(resource, "\\", &part, &length) && length >= sizeof(VS_FIXEDFILEINFO)) {
    const VS_FIXEDFILEINFO* const fixed = (const VS_FIXEDFILEINFO*)part;
    const DWORD upper = (DWORD)(atoi(words[2]) << 16 | atoi(words[3]));
    const DWORD lower = (DWORD)(atoi(words[4]) << 16);
    Expect(fixed->dwFileVersionMS == upper && fixed->dwFileVersionLS == lower, "file version");
    Expect(fixed->dwProductVersionMS == upper && fixed->dwProductVersionLS == lower,
           "product version");
    Expect(fixed->dwFileType == VFT_DLL, "file type");
    Expect(fixed->dwFileOS == VOS_NT_WINDOWS32, "operating system");
    Expect(fixed->dwFileFlags == 0, "flags");
  } else {
    Expect(0, "no fixed part");
  }
  Expect(VerQueryValueA(resource, "\\VarFileInfo\\Translation", &part, &length) && length == 4 &&
             memcmp(part, "\x09\x04\xB0\x04", 4) == 0,
         "translation");
  for (k = 0; k < sizeof kNames / sizeof kNames[0]; ++k) {
    printf("%s: %s\n", kNames[k], StringOf(resource, kNames[k]));
    Expect(StringOf(resource, kNames[k])[0] != '\0', kNames[k]);
  }
  snprintf(version, sizeof version, "%s.%s.%s.0", words[2], words[3], words[4]);
  Expect(strcmp(StringOf(resource, "FileVersion"), version) == 0, "FileVersion");
  Expect(strcmp(StringOf(resource, "ProductVersion"), version) == 0, "ProductVersion");
  Expect(strcmp(StringOf(resource, "OriginalFilename"), FileNameOf(words[1])) == 0,
         "OriginalFilename");
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
