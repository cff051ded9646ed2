#ifndef TESTS_HOST_HOSTILE_THREAD_SLOTS_H
#define TESTS_HOST_HOSTILE_THREAD_SLOTS_H

#include "hostile.h"

/* Per-thread slots of the process: 1088 on Windows, 1024 on Linux. */
enum { kMostSlots = 2048 };
#if defined(_WIN32)
typedef DWORD Slot;
#else
typedef pthread_key_t Slot;
#endif
static Slot slots[kMostSlots];

/* Takes all that are left. */
static inline int TakeSlots(void) {
  int count = 0;
#if defined(_WIN32)
  while (count < kMostSlots && (slots[count] = TlsAlloc()) != TLS_OUT_OF_INDEXES) {
#else
  while (count < kMostSlots && pthread_key_create(&slots[count], NULL) == 0) {
#endif
    ++count;
  }
  return count;
}

static inline void GiveBackSlots(int count) {
  for (int k = 0; k < count; ++k) {
#if defined(_WIN32)
    TlsFree(slots[k]);
#else
    pthread_key_delete(slots[k]);
#endif
  }
}

static inline int FreeThreadSlots(void) {
  const int count = TakeSlots();
  GiveBackSlots(count);
  return count;
}

#endif
