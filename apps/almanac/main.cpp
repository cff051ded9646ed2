// almanac: loads the library like any other host and prints what it answers.

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "commands.h"
#include "failure.h"
#include "moment.h"
#include "run_program.h"
#include "session.h"

namespace {

using zenithor::Failure;

std::string Joined(const std::vector<std::string>& words, const char* separator) {
  return CLI::detail::join(words, separator);
}

// The command that the words named; null without one.
const CLI::App* NamedCommand(const CLI::App& program) {
  const std::vector<CLI::App*> named = program.get_subcommands();
  return named.empty() ? nullptr : named.front();
}

// Runs the command that the words name, if they name one. Words that are neither an option nor of a
// command are refused; options that only a command has are left over.
void Parse(CLI::App& program, const std::vector<std::string>& words) {
  try {
    program.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::ExtrasError&) {
    const std::vector<std::string> unknown = program.remaining(true);
    if (const CLI::App* const command = NamedCommand(program)) {
      throw Failure("{} does not take \"{}\"; almanac {} --help says what it takes",
                    command->get_name(), Joined(unknown, " "), command->get_name());
    }
    if (unknown.front().rfind('-', 0) != 0) {
      std::vector<std::string> names;
      for (const CLI::App* const command : program.get_subcommands({})) {
        names.push_back(command->get_name());
      }
      throw Failure("\"{}\" is no command; there are {}", unknown.front(), Joined(names, ", "));
    }
  }
}

int Run(int argument_count, char** arguments) {
  using namespace zenithor::almanac;
  Session session;
  CLI::App program(
      "Places and events of the Sun, the Moon and the planets. Without a command: today.\n"
      "almanac COMMAND --help says what a command takes.",
      "almanac");
  program.footer(fmt::format("Dates go from {}-01-01 to {}-01-01; year 0 is 1 BC.", kFirstYear,
                             kLastYear + 1));
  program
      .add_option_function<std::string>(
          "--library",
          [&session](const std::string& path) {
            if (path.empty()) {
              throw Failure("--library \"\": not a path; leave it out for the usual library");
            }
            session.library_path = path;
          },
          "The library to load; else the one beside the program")
      ->type_name("PATH");
  program.require_subcommand(0, 1);
  program.allow_windows_style_options(false);  // /folder/file is a path on Windows, too
  program.fallthrough();                       // --library may stand behind the command, too
  for (const auto add :
       {AddTodayCommand, AddEventsCommand, AddRiseCommand, AddDoctorCommand, AddCheckCommand}) {
    add(program, session);
  }
  std::vector<std::string> words(arguments + 1, arguments + argument_count);
  try {
    Parse(program, words);
    if (NamedCommand(program) == nullptr) {
      words.insert(words.begin(), "today");
      Parse(program, words);
    }
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      return program.exit(error);  // the help was asked for
    }
    const CLI::App* const command = NamedCommand(program);
    throw Failure("{}; almanac {}--help says more", error.what(),
                  command == nullptr ? "" : command->get_name() + " ");
  }
  return session.exit_status;
}

}  // namespace

int main(int argument_count, char** arguments) {
  return zenithor::RunProgram(
      "almanac", [argument_count, arguments] { return Run(argument_count, arguments); });
}
