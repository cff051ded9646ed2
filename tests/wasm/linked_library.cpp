// What the code for Linux asks of the system and Emscripten has not.
//
// The loader: the library is linked in, whatever the path, and loaded before main runs. Closed, it
// forgets what the thread kept, as a library does that is loaded afresh.

#include <dlfcn.h>
#include <pthread.h>

#include <cstdlib>
#include <cstring>

#include "host/process_state.h"
#include "zenithor/zenithor.h"

namespace {

struct Export {
  const char* name;
  void* address;
};

#define EXPORT(name, ...) {"_" #name, reinterpret_cast<void*>(&name)},
#define EXPORT_POSITION EXPORT
#define EXPORT_SELECTED_EVENT EXPORT
#define EXPORT_ANY_ECLIPSE EXPORT
#define EXPORT_ECLIPSE_OF_KIND EXPORT
#define EXPORT_RISING EXPORT
const Export kExports[] = {
#include "entry/export_list.inc"
};

}  // namespace

extern "C" {

void* dlopen(const char* /*path*/, int /*mode*/) { return const_cast<Export*>(kExports); }

void* dlsym(void* /*handle*/, const char* name) {
  for (const Export& entry : kExports) {
    if (std::strcmp(entry.name, name) == 0) {
      return entry.address;
    }
  }
  return nullptr;
}

int dlclose(void* /*handle*/) {
  using zenithor::process_state;
  const std::uint32_t key = process_state.thread_key.exchange(zenithor::ProcessState::kNoKey);
  if (key != zenithor::ProcessState::kNoKey) {
    std::free(pthread_getspecific(key));
    pthread_key_delete(key);
  }
  return 0;
}

// The environment: the build embeds the data below /share.
char* secure_getenv(const char* name) {
  static char data_home[] = "/share";
  return std::strcmp(name, "XDG_DATA_HOME") == 0 ? data_home : nullptr;
}
}
