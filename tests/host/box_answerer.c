/* Watches for message boxes of one process, looks at each and presses its button. Windows only.
 *   box_answerer WATCHING LOADED PROCESS ICON
 * WATCHING and LOADED are inherited events: the first is set when the watch begins, the second ends
 * it. Ends with the number of boxes that were as they should be; with 100 where one was not. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

static const char kClass[] = "#32770";
static const char kCaption[] = "MISSING FILE";
static const char kText[] = "Ephemeris file is missing";

static DWORD host_process;
static HICON exclamation;

typedef struct BoxParts {
  int buttons;
  int texts;
  int icons;
  int others;
  HWND button;
} BoxParts;

static BOOL CALLBACK LookAtPart(HWND window, LPARAM parameter) {
  BoxParts* const parts = (BoxParts*)parameter;
  char class_name[64] = "";
  char text[256] = "";
  GetClassNameA(window, class_name, sizeof class_name);
  SendMessageA(window, WM_GETTEXT, sizeof text, (LPARAM)text);
  if ((GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE) == 0) {
    return TRUE; /* a box holds all buttons that there are and shows those that it offers */
  }
  if (strcmp(class_name, "Button") == 0) {
    ++parts->buttons;
    parts->button = window;
  } else if ((GetWindowLongA(window, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
    const HICON icon = (HICON)SendMessageA(window, STM_GETICON, 0, 0);
    if (icon != NULL && icon == exclamation) {
      ++parts->icons;
    } else {
      ++parts->others;
      fprintf(stderr, "box_answerer: icon %p, not %p\n", (void*)icon, (void*)exclamation);
    }
  } else if (strcmp(text, kText) == 0) {
    ++parts->texts;
  } else {
    ++parts->others;
    fprintf(stderr, "box_answerer: a %s with \"%s\"\n", class_name, text);
  }
  return TRUE;
}

/* A box that the host has open; null where there is none. */
static HWND FindBox(void) {
  HWND box = NULL;
  while ((box = FindWindowExA(NULL, box, kClass, NULL)) != NULL) {
    DWORD process = 0;
    GetWindowThreadProcessId(box, &process);
    if (process == host_process && IsWindowVisible(box)) {
      return box;
    }
  }
  return NULL;
}

static int IsTheWarning(HWND box, BoxParts* parts) {
  char caption[256] = "";
  GetWindowTextA(box, caption, sizeof caption);
  memset(parts, 0, sizeof *parts);
  EnumChildWindows(box, LookAtPart, (LPARAM)parts);
  printf("box: caption \"%s\", %d text, %d icon, %d button, %d other\n", caption, parts->texts,
         parts->icons, parts->buttons, parts->others);
  return strcmp(caption, kCaption) == 0 && parts->texts == 1 && parts->icons == 1 &&
         parts->buttons == 1 && parts->others == 0;
}

int main(int count, char** words) {
  HANDLE watching;
  HANDLE loaded;
  int warnings = 0;
  int others = 0;
  if (count < 5) {
    return 101;
  }
  watching = (HANDLE)(UINT_PTR)strtoul(words[1], NULL, 10);
  loaded = (HANDLE)(UINT_PTR)strtoul(words[2], NULL, 10);
  host_process = (DWORD)strtoul(words[3], NULL, 10);
  exclamation = (HICON)(UINT_PTR)strtoul(words[4], NULL, 10);
  SetEvent(watching);
  /* A box keeps the host from setting `loaded`, so one that is there is always seen. */
  while (WaitForSingleObject(loaded, 20) == WAIT_TIMEOUT) {
    BoxParts parts;
    const HWND box = FindBox();
    if (box == NULL) {
      continue;
    }
    if (IsTheWarning(box, &parts)) {
      ++warnings;
    } else {
      ++others;
    }
    /* The loop goes on when this very box is gone, or stays until the host gives up. */
    SendMessageA(parts.button != NULL ? parts.button : box,
                 parts.button != NULL ? BM_CLICK : WM_CLOSE, 0, 0);
    while (IsWindow(box) && WaitForSingleObject(loaded, 20) == WAIT_TIMEOUT) {
    }
  }
  return others == 0 ? warnings : 100;
}
