#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zenithor::almanac {

// The program's words and its output: UTF-8 on every system. On Windows words are taken from the
// wide command line, a console gets UTF-16 with carriage returns, and a file or a pipe the same
// bytes as elsewhere.

// Thrown where the reader of the output has gone, as that of `almanac ... | head` does.
struct ClosedPipe {};

// What has to be set before the first word is written.
void PrepareConsole();

// The words behind the program's name.
std::vector<std::string> WordsOf(int argument_count, char** arguments);

// An environment variable; empty where it is not set.
std::string EnvironmentOf(const char* name);

std::filesystem::path PathOf(const std::string& text);

// Standard output, through a buffer. Throws ClosedPipe, or Failure where it cannot be written.
void WriteOut(std::string_view text);
void FlushOut();

// Standard error, at once. Never fails.
void WriteError(std::string_view text);

bool OutIsTerminal();
bool ErrorIsTerminal();

// Whether standard output is a terminal that shows colours: Windows' consoles do from Windows 10
// on, others but where TERM is dumb.
bool OutShowsColours();

// A line from standard input, without its end; empty at the end of input.
std::string ReadLine();

// Columns of the terminal that standard output is; 0 where it is none.
int TerminalWidth();

}  // namespace zenithor::almanac
