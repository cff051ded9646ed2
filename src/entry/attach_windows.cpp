// Process attach on Windows: finds the two ephemeris files and loads them. Everything here runs
// under the loader lock, so it does only what it must: no thread, no COM, no wait but the one
// warning.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <shlobj.h>
#include <windows.h>

#include <cstdlib>
#include <cwchar>

#include "entry/library_load.h"
#include "ephemeris/file_open.h"
#include "host/boundary.h"
#include "host/process_state.h"

namespace {

constexpr int kRoamingApplicationData = 26;  // CSIDL_APPDATA
constexpr UINT kWarningBox = 48;             // exclamation icon, one OK button
constexpr wchar_t kDataFolder[] = L"\\tavvin_files\\";
constexpr wchar_t kIndexFile[] = L"archive\\karvo.ndx";
constexpr wchar_t kDataFile[] = L"archive\\karvo.dat";

// The longest path that the shell gives, our folder and our file name.
constexpr std::size_t kPathCapacity = MAX_PATH + std::size(kDataFolder) + std::size(kIndexFile);

bool FindApplicationDataFolder(wchar_t (&path)[MAX_PATH]) {
  PIDLIST_ABSOLUTE list = nullptr;
  if (FAILED(SHGetSpecialFolderLocation(nullptr, kRoamingApplicationData, &list))) {
    return false;
  }
  const bool found = SHGetPathFromIDListW(list, path) != FALSE;
  ILFree(list);
  return found;
}

// Text converted to `code_page`, on the heap; null when that fails.
char* Narrow(UINT code_page, const wchar_t* wide) {
  const int size = WideCharToMultiByte(code_page, 0, wide, -1, nullptr, 0, nullptr, nullptr);
  auto* const narrow =
      size > 0 ? static_cast<char*>(std::malloc(static_cast<std::size_t>(size))) : nullptr;
  if (narrow != nullptr) {
    WideCharToMultiByte(code_page, 0, wide, -1, narrow, size, nullptr, nullptr);
  }
  return narrow;
}

bool IsExpressed(UINT code_page, const char* narrow, const wchar_t* wide) {
  wchar_t back[kPathCapacity];
  const int length =
      MultiByteToWideChar(code_page, 0, narrow, -1, back, static_cast<int>(kPathCapacity));
  return length > 0 && std::wcscmp(back, wide) == 0;
}

// The name that the file reader takes: in the ANSI code page where that can express the path, in
// UTF-8 where it cannot (a profile named in Greek on a Western system).
char* ReaderName(const wchar_t* folder, const wchar_t* file) {
  wchar_t wide[kPathCapacity];
  std::wcscpy(wide, folder);
  std::wcscat(wide, kDataFolder);
  std::wcscat(wide, file);
  char* const ansi = Narrow(CP_ACP, wide);
  if (ansi != nullptr && IsExpressed(CP_ACP, ansi, wide)) {
    return ansi;
  }
  std::free(ansi);
  return Narrow(CP_UTF8, wide);
}

// Whether somebody may see a window of this process. A service's window station shows nothing, and
// a box on it waits for ever. Where the system does not say, as if one might.
bool IsSeen() {
  USEROBJECTFLAGS flags = {};
  return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                   nullptr) == FALSE ||
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

// The box holds up the load until somebody answers it. Where nobody can, there is none and the load
// goes on.
void WarnMissingFile() {
  if (!IsSeen()) {
    return;
  }
  MessageBoxA(nullptr, zenithor::kMissingFileText, zenithor::kMissingFileCaption, kWarningBox);
}

void LoadFromApplicationData() {
  wchar_t folder[MAX_PATH];
  const bool found = FindApplicationDataFolder(folder);
  char* const index_name = found ? ReaderName(folder, kIndexFile) : nullptr;
  char* const data_name = found ? ReaderName(folder, kDataFile) : nullptr;
  zenithor::LoadEphemeris(zenithor::process_state.store,
                          {index_name, data_name, zenithor::FileExists, WarnMissingFile});
  std::free(index_name);
  std::free(data_name);
}

}  // namespace

extern "C" ZENITHOR_ENTRY BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason,
                                              LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    const zenithor::HostBoundary boundary;
    LoadFromApplicationData();
  }
  return TRUE;
}
