/* The export table as GetProcAddress or dlsym sees it.
 *   exports_host LIBRARY NAME...
 * Every NAME is exported with one leading underscore and not without; the loader of the header
 * finds it; and on Windows there are no other entries. */
#include "host.h"

static void* Address(void* handle, const char* prefix, const char* name) {
  char exported[64];
  void* address = NULL;
  snprintf(exported, sizeof exported, "%s%s", prefix, name);
  ZenithorFind(handle, exported, &address, sizeof address);
  return address;
}

/* How many of the header's pointers are filled: all that stand after the handle. */
static int FoundByLoader(const ZenithorLibrary* library) {
  void* const* const pointers = (void* const*)(const void*)library;
  const size_t pointer_count = sizeof *library / sizeof(void*);
  int found = 0;
  size_t k;
  for (k = 1; k < pointer_count; ++k) {
    found += pointers[k] != NULL;
  }
  return found;
}

int main(int count, char** words) {
  ZenithorLibrary library;
  int k;
  if (count < 3 || !OpenLibrary(&library, words[1])) {
    fprintf(stderr, "usage: exports_host LIBRARY NAME...\n");
    return EXIT_FAILURE;
  }
  for (k = 2; k < count; ++k) {
    if (Address(library.Handle, "_", words[k]) == NULL) {
      fprintf(stderr, "exports_host: _%s is not exported\n", words[k]);
      ++host_failures;
    }
    if (Address(library.Handle, "", words[k]) != NULL) {
      fprintf(stderr, "exports_host: %s is exported\n", words[k]);
      ++host_failures;
    }
  }
  CHECK(FoundByLoader(&library) == count - 2);
#if defined(_WIN32)
  {
    const unsigned char* const image = (const unsigned char*)library.Handle;
    const IMAGE_NT_HEADERS* const headers =
        (const IMAGE_NT_HEADERS*)(const void*)(image +
                                               ((const IMAGE_DOS_HEADER*)library.Handle)->e_lfanew);
    const IMAGE_EXPORT_DIRECTORY* const table =
        (const IMAGE_EXPORT_DIRECTORY*)(const void*)(image +
                                                     headers->OptionalHeader.DataDirectory[0]
                                                         .VirtualAddress);
    CHECK(table->NumberOfNames == (DWORD)(count - 2));
    CHECK(table->NumberOfFunctions == (DWORD)(count - 2));
  }
#endif
  ZenithorClose(&library);

  /* What cannot be loaded, and what is not this library, leaves nothing behind. */
  memset(&library, HOST_PATTERN, sizeof library);
  CHECK(!OpenLibrary(&library, "no-such-library"));
  CHECK(library.Handle == NULL && FoundByLoader(&library) == 0);
#if defined(_WIN32)
  memset(&library, HOST_PATTERN, sizeof library);
  CHECK(!OpenLibrary(&library, "kernel32.dll"));
  CHECK(library.Handle == NULL && FoundByLoader(&library) == 0);
#else
  memset(&library, HOST_PATTERN, sizeof library);
  CHECK(!OpenLibrary(&library, "libc.so.6"));
  CHECK(library.Handle == NULL && FoundByLoader(&library) == 0);
#endif
  return HOST_RESULT;
}
