/* A routine that writes past its own array, compiled as the DLL is and with the DLL's guard word:
 * the process must end at once, as one whose stack was overrun. Windows only.
 *   smash_host          starts itself again with an argument, and looks how that ends
 *   smash_host LENGTH   writes LENGTH bytes into an array of 16 */
#include "host.h"

enum { STACK_BUFFER_OVERRUN = (int)0xC0000409 };

extern uintptr_t __stack_chk_guard;

__attribute__((noinline)) static void Fill(volatile char* bytes, int length) {
  int k;
  for (k = 0; k < length; ++k) {
    bytes[k] = 'A';
  }
}

__attribute__((noinline)) static int FillArray(int length) {
  char bytes[16];
  Fill(bytes, length);
  return bytes[3];
}

static DWORD ExitCodeWith(const char* program, int length) {
  char command[2048];
  STARTUPINFOA startup;
  PROCESS_INFORMATION process;
  DWORD code = 0;
  memset(&startup, 0, sizeof startup);
  startup.cb = sizeof startup;
  snprintf(command, sizeof command, "\"%s\" %d", program, length);
  CHECK(CreateProcessA(NULL, command, NULL, NULL, FALSE, 0, NULL, NULL, &startup, &process));
  CHECK(WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0);
  CHECK(GetExitCodeProcess(process.hProcess, &code));
  return code;
}

int main(int count, char** words) {
  if (count > 1) {
    SetErrorMode(SEM_NOGPFAULTERRORBOX);
    return FillArray(atoi(words[1])) == 'A' ? 65 : 0;
  }
  /* Made anew for the process, and with the byte that ends strings. */
  CHECK(__stack_chk_guard != 0 && (__stack_chk_guard & 0xFF) == 0);
  CHECK(__stack_chk_guard != 0xBB40E600u);
  CHECK(ExitCodeWith(words[0], 16) == 65);
  CHECK(ExitCodeWith(words[0], 40) == (DWORD)STACK_BUFFER_OVERRUN);
  return HOST_RESULT;
}
