/* Loads the library where a data file is missing, while a second process finds and answers the
 * warning (box_answerer). Windows only.
 *   box_host LIBRARY ANSWERER.exe WARNINGS full|empty [invisible]
 * The answerer must report WARNINGS boxes with the right text, caption, icon and button, each of
 * which held up the load until it was answered. */
#include "host.h"

enum { PATIENCE_MS = 300000 };

static DWORD Answered(HANDLE process) {
  DWORD code = 0xFFFFFFFFu;
  CHECK(WaitForSingleObject(process, PATIENCE_MS) == WAIT_OBJECT_0);
  CHECK(GetExitCodeProcess(process, &code));
  return code;
}

/* As a service has it: a window station that nobody sees. */
static void MoveToInvisibleStation(void) {
  USEROBJECTFLAGS flags;
  const HWINSTA station = CreateWindowStationW(L"unseen", 0, WINSTA_ALL_ACCESS, NULL);
  CHECK(station != NULL && SetProcessWindowStation(station));
  CHECK(GetUserObjectInformationW(station, UOI_FLAGS, &flags, sizeof flags, NULL));
  CHECK((flags.dwFlags & WSF_VISIBLE) == 0);
}

int main(int count, char** words) {
  ZenithorLibrary library;
  STARTUPINFOA startup;
  PROCESS_INFORMATION answerer;
  SECURITY_ATTRIBUTES inherited;
  HANDLE watching;
  HANDLE loaded;
  HANDLE events[2];
  char command[2048];
  if (count < 5) {
    fprintf(stderr, "usage: box_host LIBRARY ANSWERER.exe WARNINGS full|empty [invisible]\n");
    return EXIT_FAILURE;
  }

  inherited.nLength = sizeof inherited;
  inherited.lpSecurityDescriptor = NULL;
  inherited.bInheritHandle = TRUE;
  watching = CreateEventA(&inherited, TRUE, FALSE, NULL); /* set by the answerer */
  loaded = CreateEventA(&inherited, TRUE, FALSE, NULL);   /* set here */

  /* A system icon has one handle in a process, so what the box shows can be told by its handle. */
  snprintf(command, sizeof command, "%s %lu %lu %lu %lu", words[2],
           (unsigned long)(UINT_PTR)watching, (unsigned long)(UINT_PTR)loaded,
           GetCurrentProcessId(),
           (unsigned long)(UINT_PTR)LoadIconA(NULL, (LPCSTR)IDI_EXCLAMATION));
  CHECK(LoadIconA(NULL, (LPCSTR)IDI_EXCLAMATION) != LoadIconA(NULL, (LPCSTR)IDI_HAND));
  memset(&startup, 0, sizeof startup);
  startup.cb = sizeof startup;
  if (!CreateProcessA(NULL, command, NULL, NULL, TRUE, 0, NULL, NULL, &startup, &answerer)) {
    fprintf(stderr, "box_host: cannot start %s\n", words[2]);
    return EXIT_FAILURE;
  }
  events[0] = watching;
  events[1] = answerer.hProcess;
  CHECK(WaitForMultipleObjects(2, events, FALSE, PATIENCE_MS) == WAIT_OBJECT_0);

  if (count > 5) {
    MoveToInvisibleStation();
  }
  CHECK(OpenLibrary(&library, words[1])); /* returns when the last box is answered */
  SetEvent(loaded);
  CHECK(Answered(answerer.hProcess) == (DWORD)atoi(words[3]));

  if (library.ZENITHOR != NULL) {
    const int full = strcmp(words[4], "full") == 0;
    BodyPositionRecord record;
    memset(&record, HOST_PATTERN, sizeof record);
    CHECK(library.ZENITHOR(2451545.0, 0.0, 0.0, 0.0, 0.0, 0.0, ZENITHOR_MARS, &record) ==
          (full ? ZENITHOR_DONE : 0.0));
  }
  ZenithorClose(&library);
  return HOST_RESULT;
}
