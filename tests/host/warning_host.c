/* Loads the library where a data file is missing, with one thing after the other as descriptor 2:
 * the warning goes to what can be standard error and nowhere else, and neither waits nor ends the
 * process. Linux only; started without data files.
 *   warning_host LIBRARY FOLDER      keeps its files in FOLDER */
#define _GNU_SOURCE
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host.h"

static const char kWarning[] = "MISSING FILE: Ephemeris file is missing\n";
static const char kContent[] = "the host's own data, which stay as they are, from first to last\n";

static const char* library_path;
static char scratch[1024];

enum { LOADED = 7, NOT_LOADED = 8, PATIENCE_SECONDS = 60 };

/* A file with content that starts as the host leaves it. */
static void WriteScratch(const char* text) {
  FILE* const file = fopen(scratch, "w");
  CHECK(file != NULL && fputs(text, file) >= 0 && fclose(file) == 0);
}

static int ScratchHolds(const char* first, const char* second) {
  char held[512];
  char expected[512];
  FILE* const file = fopen(scratch, "r");
  const size_t size = fread(held, 1, sizeof held - 1, file);
  held[size] = '\0';
  fclose(file);
  snprintf(expected, sizeof expected, "%s%s", first, second);
  return strcmp(held, expected) == 0;
}

/* In a process of its own: descriptor 2 becomes `descriptor`, with these flags (-1: closed), and
 * the library is loaded. How that process ended. */
static int LoadWith(int descriptor, int descriptor_flags) {
  const pid_t child = fork();
  if (child == 0) {
    ZenithorLibrary library;
    alarm(PATIENCE_SECONDS);
    if (descriptor < 0) {
      close(STDERR_FILENO);
    } else {
      dup2(descriptor, STDERR_FILENO);
      fcntl(STDERR_FILENO, F_SETFD, descriptor_flags);
    }
    _exit(OpenLibrary(&library, library_path) ? LOADED : NOT_LOADED);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

static void LoadWithFile(int flags, int descriptor_flags) {
  const int file = open(scratch, flags);
  CHECK(file >= 0 && LoadWith(file, descriptor_flags) == LOADED);
  close(file);
}

static void TryFiles(void) {
  WriteScratch("");
  LoadWithFile(O_WRONLY, 0);
  CHECK(ScratchHolds(kWarning, ""));
  WriteScratch(kContent);
  LoadWithFile(O_WRONLY | O_APPEND, 0);
  CHECK(ScratchHolds(kContent, kWarning));
  /* A file of the host's own that got the free number. */
  WriteScratch(kContent);
  LoadWithFile(O_RDWR, 0);
  CHECK(ScratchHolds(kContent, ""));
  LoadWithFile(O_RDWR | O_APPEND, FD_CLOEXEC);
  CHECK(ScratchHolds(kContent, ""));
  LoadWithFile(O_RDONLY, 0);
  CHECK(ScratchHolds(kContent, ""));
  CHECK(LoadWith(-1, 0) == LOADED);
}

/* What stands in a pipe or socket now. */
static int Holds(int descriptor, const char* expected) {
  char held[256] = "";
  fcntl(descriptor, F_SETFL, O_NONBLOCK);
  const ssize_t size = read(descriptor, held, sizeof held - 1);
  held[size < 0 ? 0 : size] = '\0';
  return strcmp(held, expected) == 0;
}

static void TryPipesAndSockets(void) {
  int ends[2];
  CHECK(pipe(ends) == 0 && LoadWith(ends[1], 0) == LOADED);
  CHECK(Holds(ends[0], kWarning));
  /* Full: a blocking write would wait for ever. */
  const int capacity = fcntl(ends[1], F_GETPIPE_SZ);
  char* const filler = calloc((size_t)capacity, 1);
  CHECK(write(ends[1], filler, (size_t)capacity) == capacity);
  CHECK(LoadWith(ends[1], 0) == LOADED);
  free(filler);
  /* Without a reader: a write would end the process by a signal. */
  close(ends[0]);
  CHECK(LoadWith(ends[1], 0) == LOADED);
  close(ends[1]);
  /* A connection of the host's. */
  CHECK(socketpair(AF_UNIX, SOCK_STREAM, 0, ends) == 0 && LoadWith(ends[1], 0) == LOADED);
  CHECK(Holds(ends[0], ""));
}

static void TryTerminal(void) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  CHECK(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
  const int other_end = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  CHECK(other_end >= 0 && LoadWith(other_end, 0) == LOADED);
  char held[256] = "";
  CHECK(read(terminal, held, sizeof held - 1) > 0);
  CHECK(strncmp(held, kWarning, strlen(kWarning) - 1) == 0);
}

int main(int count, char** words) {
  if (count < 3) {
    fprintf(stderr, "usage: warning_host LIBRARY FOLDER\n");
    return EXIT_FAILURE;
  }
  library_path = words[1];
  snprintf(scratch, sizeof scratch, "%s/scratch", words[2]);
  TryFiles();
  TryPipesAndSockets();
  TryTerminal();
  return HOST_RESULT;
}
