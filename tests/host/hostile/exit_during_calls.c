/* A host that ends while eight of its threads are inside the library. The exit code must be the
 * host's own.
 *   exit_during_calls LIBRARY [MILLISECONDS] */

#include "hostile.h"

enum { kThreads = 8, kExitCode = 42 };

static FoundExport exports[kExportCount];
static int count;
static volatile long calls[kThreads];

static void CallForever(void* argument) {
  const int self = *(int*)argument;
  Answer* const answer = malloc(sizeof *answer);
  for (uint64_t k = 0;; ++k) {
    const FoundExport* const export_ = &exports[k % (uint64_t)count];
    const ExportArguments arguments = OrdinaryArguments(export_->row, k);
    CallGuarded(export_, &arguments, answer);
    calls[self] = (long)k;
  }
}

int main(int argc, char** argv) {
  OpenFromArguments(argc, argv, exports, &count);
  const int milliseconds = argc > 2 ? atoi(argv[2]) : 50;
  static ThreadTask tasks[kThreads];
  static int self[kThreads];
  for (int t = 0; t < kThreads; ++t) {
    self[t] = t;
    tasks[t].run = CallForever;
    tasks[t].argument = &self[t];
    StartThread(&tasks[t]);
  }
  SleepMilliseconds(milliseconds);
  int running = 0;
  for (int t = 0; t < kThreads; ++t) {
    running += calls[t] > 0;
  }
  Check(running > 0, "no thread made a call within %d ms", milliseconds);
  if (Verdict("exit_during_calls") != 0) {
    fflush(stdout);
    _Exit(1);
  }
  return kExitCode;
}
