// almanac: loads the library like any other host and prints what it answers.

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "commands.h"
#include "failure.h"
#include "session.h"

namespace {

int Run(int argument_count, char** arguments) {
  using namespace zenithor::almanac;
  Session session;
  CLI::App program(
      "Places and events of the Sun, the Moon and the planets. Without a command: today.",
      "almanac");
  program.add_option("--library", session.library_path,
                     "The library to load; else the one beside the program");
  program.require_subcommand(0, 1);
  for (const auto add : {AddTodayCommand, AddEventsCommand, AddRiseCommand, AddCheckCommand}) {
    add(program, session);
  }
  std::vector<std::string> words(arguments + 1, arguments + argument_count);
  if (words.empty()) {
    words.push_back("today");
  }
  std::reverse(words.begin(), words.end());
  try {
    program.parse(words);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      return program.exit(error);  // the help was asked for
    }
    throw Failure("{}; almanac --help says more", error.what());
  }
  return session.exit_status;
}

}  // namespace

int main(int argument_count, char** arguments) {
  try {
    return Run(argument_count, arguments);
  } catch (const std::exception& error) {
    static_cast<void>(std::fprintf(stderr, "almanac: %s\n", error.what()));
    return 1;
  }
}
