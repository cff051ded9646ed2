/* Keeps a file open, as a program that reads it does, while a second program runs; lets it go after
 * some time. Ends with the exit code of the second program. Windows only.
 *   in_use_host FILE MILLISECONDS PROGRAM [ARGUMENT] */
#include "host.h"

int main(int count, char** words) {
  STARTUPINFOA startup;
  PROCESS_INFORMATION process;
  DWORD code = 99;
  char command[4096];
  HANDLE file;
  if (count < 4) {
    fprintf(stderr, "usage: in_use_host FILE MILLISECONDS PROGRAM [ARGUMENT]\n");
    return EXIT_FAILURE;
  }
  file = CreateFileA(words[1], GENERIC_READ, FILE_SHARE_READ, NULL, OPEN_EXISTING, 0, NULL);
  CHECK(file != INVALID_HANDLE_VALUE);
  memset(&startup, 0, sizeof startup);
  startup.cb = sizeof startup;
  snprintf(command, sizeof command, "\"%s\" %s", words[3], count > 4 ? words[4] : "");
  CHECK(CreateProcessA(NULL, command, NULL, NULL, FALSE, 0, NULL, NULL, &startup, &process));
  Sleep((DWORD)atoi(words[2]));
  CloseHandle(file);
  CHECK(WaitForSingleObject(process.hProcess, 200000) == WAIT_OBJECT_0);
  CHECK(GetExitCodeProcess(process.hProcess, &code));
  return host_failures == 0 ? (int)code : EXIT_FAILURE;
}
