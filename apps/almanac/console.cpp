#include "console.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "trouble.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Behind windows.h, which it needs.
#include <shellapi.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace zenithor::almanac {

namespace {

constexpr std::size_t kBufferBytes = 1U << 16U;

std::string& Buffer() {
  static std::string buffer;
  return buffer;
}

#ifdef _WIN32

std::wstring Wide(std::string_view text) {
  const int length =
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), length);
  return wide;
}

std::string Narrow(const std::wstring& wide) {
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                         nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(), length,
                      nullptr, nullptr);
  return text;
}

bool IsConsole(DWORD standard_handle) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(standard_handle), &mode) != 0;
}

bool ToConsole(DWORD standard_handle, std::string_view text) {
  std::string lines;
  for (const char c : text) {
    lines += c == '\n' ? "\r\n" : std::string(1, c);
  }
  const std::wstring wide = Wide(lines);
  constexpr std::size_t kAtOnce = 8192;  // a console takes no more than some tens of kilobytes
  for (std::size_t k = 0; k < wide.size(); k += kAtOnce) {
    const std::size_t count = std::min(kAtOnce, wide.size() - k);
    DWORD written = 0;
    if (WriteConsoleW(GetStdHandle(standard_handle), wide.data() + k, static_cast<DWORD>(count),
                      &written, nullptr) == 0) {
      return false;
    }
  }
  return true;
}

#endif

[[noreturn]] void OutFailed(int error) {
  Buffer().clear();
#ifdef _WIN32
  // The C library says "invalid argument" of a pipe without a reader.
  if (error == EPIPE || error == EINVAL) {
    throw ClosedPipe();
  }
#else
  if (error == EPIPE) {
    throw ClosedPipe();
  }
#endif
  throw Trouble("the output cannot be written: {}", std::strerror(error));
}

}  // namespace

#ifdef _WIN32

void PrepareConsole() {
  static_cast<void>(_setmode(_fileno(stdout), _O_BINARY));
  static_cast<void>(_setmode(_fileno(stderr), _O_BINARY));
}

std::vector<std::string> WordsOf(int /*argument_count*/, char** /*arguments*/) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> words;
  for (int k = 1; wide != nullptr && k < count; ++k) {
    words.push_back(Narrow(wide[k]));
  }
  LocalFree(static_cast<HLOCAL>(wide));
  return words;
}

std::string EnvironmentOf(const char* name) {
  const wchar_t* const value = _wgetenv(Wide(name).c_str());
  return value == nullptr ? "" : Narrow(value);
}

bool OutIsTerminal() { return IsConsole(STD_OUTPUT_HANDLE); }
bool ErrorIsTerminal() { return IsConsole(STD_ERROR_HANDLE); }

bool OutShowsColours() {
  // Colours are control sequences, for a console that agrees to read them.
  constexpr DWORD kVirtualTerminal = 4;
  const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(out, &mode) != 0 && SetConsoleMode(out, mode | kVirtualTerminal) != 0;
}

int TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO info;
  return GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0
             ? 0
             : info.srWindow.Right - info.srWindow.Left + 1;
}

#else

void PrepareConsole() {
  // A reader that has gone is seen where the output is written.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

std::vector<std::string> WordsOf(int argument_count, char** arguments) {
  return {arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count};
}

std::string EnvironmentOf(const char* name) {
  const char* const value = secure_getenv(name);
  return value == nullptr ? "" : value;
}

bool OutIsTerminal() { return isatty(STDOUT_FILENO) != 0; }
bool ErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }
bool OutShowsColours() { return OutIsTerminal() && EnvironmentOf("TERM") != "dumb"; }

int TerminalWidth() {
  winsize size{};
  return OutIsTerminal() && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

#endif

std::filesystem::path PathOf(const std::string& text) { return std::filesystem::u8path(text); }

void WriteOut(std::string_view text) {
  Buffer() += text;
  if (Buffer().size() >= kBufferBytes) {
    FlushOut();
  }
}

void FlushOut() {
  std::string& buffer = Buffer();
#ifdef _WIN32
  if (OutIsTerminal()) {
    static_cast<void>(ToConsole(STD_OUTPUT_HANDLE, buffer));
    buffer.clear();
    return;
  }
#endif
  if (!buffer.empty() && std::fwrite(buffer.data(), 1, buffer.size(), stdout) != buffer.size()) {
    OutFailed(errno);
  }
  buffer.clear();
  if (std::fflush(stdout) != 0) {
    OutFailed(errno);
  }
}

void WriteError(std::string_view text) {
#ifdef _WIN32
  if (ErrorIsTerminal()) {
    static_cast<void>(ToConsole(STD_ERROR_HANDLE, text));
    return;
  }
#endif
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
  static_cast<void>(std::fflush(stderr));
}

std::string ReadLine() {
  std::string line;
  std::getline(std::cin, line);
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  return line;
}

}  // namespace zenithor::almanac
