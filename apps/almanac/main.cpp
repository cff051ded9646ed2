// almanac: places and events in one line, from the values library inside, or from the main library
// as any host loads it.

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "commands.h"
#include "console.h"
#include "definitions.h"
#include "trouble.h"
#include "words.h"

namespace zenithor::almanac {

namespace {

constexpr int kDone = 0;
constexpr int kTrouble = 1;
constexpr int kRefused = 2;

// The command that the words named; null without one.
const CLI::App* NamedCommand(const CLI::App& program) {
  const std::vector<CLI::App*> named = program.get_subcommands();
  return named.empty() ? nullptr : named.front();
}

[[noreturn]] void RefuseWord(const CLI::App& program, const std::vector<std::string>& unknown) {
  const CLI::App* const command = NamedCommand(program);
  const std::string& word = unknown.front();
  const ProgramDefinition definition = DefinitionOf(program);
  if (word.rfind('-', 0) != 0 && command == nullptr) {
    std::vector<std::string> names;
    names.reserve(definition.commands.size());
    for (const CommandDefinition& one : definition.commands) {
      names.push_back(one.name);
    }
    const std::string guess = NearestOf(word, names);
    if (guess.empty()) {
      throw Failure("\"{}\" is no command; there are {}", word, CLI::detail::join(names, ", "));
    }
    throw Failure("\"{}\" is no command: did you mean {}?", word, guess);
  }
  std::vector<std::string> options;
  std::string name;
  for (const CommandDefinition& one : definition.commands) {
    if (one.name == (command == nullptr ? "today" : command->get_name())) {
      name = one.name;
      for (const OptionDefinition& option : one.options) {
        options.push_back(option.name);
      }
    }
  }
  const std::string given = word.substr(0, word.find('='));
  const std::string guess = given.rfind('-', 0) == 0 ? NearestOf(given, options) : "";
  if (!guess.empty()) {
    throw Failure("{} does not take \"{}\": did you mean {}?", name, given, guess);
  }
  throw Failure("{} does not take \"{}\"; almanac {} --help says what it takes", name,
                CLI::detail::join(unknown, " "), name);
}

// Runs the command that the words name, if they name one. Words that are neither an option nor of a
// command are refused; options that only a command has are left over.
void Parse(CLI::App& program, const std::vector<std::string>& words) {
  try {
    program.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::ExtrasError&) {
    const std::vector<std::string> unknown = program.remaining(true);
    if (NamedCommand(program) != nullptr || unknown.front().rfind('-', 0) != 0) {
      RefuseWord(program, unknown);
    }
  }
}

// What the parser found, in words that say what to write.
std::string Explained(const CLI::ParseError& error, const CLI::App* command) {
  const std::string what = error.what();
  const std::string help = fmt::format("almanac {}--help says more",
                                       command == nullptr ? "" : command->get_name() + " ");
  if (error.get_name() == "ArgumentMismatch") {
    return fmt::format("{} needs a value behind it; {}", what.substr(0, what.find(':')), help);
  }
  if (error.get_name() == "RequiredError" && command != nullptr) {
    const std::string examples = command->get_footer();
    return fmt::format("{}; write {}", what, examples.substr(0, examples.find('\n')));
  }
  if (error.get_name() == "ExcludesError") {
    return fmt::format("{}; leave one of them out", what);
  }
  if (error.get_name() == "RequiresError") {
    return fmt::format("{}; write both", what);
  }
  if (error.get_name() == "ConversionError") {
    const std::size_t name = what.find("--");
    return fmt::format("{} takes no value", name == std::string::npos
                                                ? what
                                                : what.substr(name, what.find(' ', name) - name));
  }
  return what + "; " + help;
}

void PrintHelp(const CLI::App& program) {
  const ProgramDefinition definition = DefinitionOf(program);
  const CLI::App* const named = NamedCommand(program);
  std::string text = HelpText(definition);
  for (const CommandDefinition& command : definition.commands) {
    if (named != nullptr && command.name == named->get_name()) {
      text = HelpText(command);
    }
  }
  WriteOut(text);
  FlushOut();
}

void AddProgramOptions(CLI::App& program, Session& session) {
  program
      .add_option_function<std::string>(
          "--library", [&session](const std::string& path) { session.library_path = path; },
          "Ask this main library, as any host does, in place of the values inside the program")
      ->type_name("PATH");
  program.add_flag_callback(
      "--version",
      [] {
        WriteOut(VersionText() + "\n");
        FlushOut();
        throw CLI::Success();
      },
      "The version");
  program.require_subcommand(0, 1);
  program.allow_windows_style_options(false);  // /folder/file is a path on Windows, too
  program.fallthrough();                       // --library may stand behind the command, too
}

// An option with nothing in it would stand for one that is not there.
void RefuseEmptyWords(const std::vector<std::string>& words) {
  for (std::size_t k = 0; k < words.size(); ++k) {
    const bool after_option = k > 0 && words[k - 1].rfind("--", 0) == 0;
    const bool blank = words[k].find_first_not_of(" \t") == std::string::npos;
    const bool ends_empty = words[k].rfind("--", 0) == 0 && words[k].back() == '=';
    if (ends_empty || (blank && after_option)) {
      const std::string option =
          ends_empty ? words[k].substr(0, words[k].size() - 1) : words[k - 1];
      throw Failure("{} \"{}\": empty; write a value, or leave {} out", option,
                    ends_empty ? "" : words[k], option);
    }
  }
}

int RunCommands(std::vector<std::string> words) {
  RefuseEmptyWords(words);
  Session session;
  CLI::App program(
      "Places and events of the Sun, the Moon and the planets in one line: as text, CSV or JSON, "
      "in "
      "UTC, in a zone's time or in dynamical time.",
      "almanac");
  AddProgramOptions(program, session);
  for (const auto add :
       {AddTodayCommand, AddPositionsCommand, AddEventsCommand, AddNextCommand, AddStationsCommand,
        AddRetrogradesCommand, AddIngressesCommand, AddAspectsCommand, AddRiseCommand,
        AddDoctorCommand, AddCheckCommand, AddVersionCommand, AddDefinitionsCommand}) {
    add(program, session);
  }
  try {
    Parse(program, words);
    if (NamedCommand(program) == nullptr) {
      words.insert(words.begin(), "today");
      Parse(program, words);
    }
  } catch (const CLI::CallForHelp&) {
    PrintHelp(program);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      return kDone;  // the version was asked for
    }
    throw Failure("{}", Explained(error, NamedCommand(program)));
  }
  FlushOut();
  return session.exit_status;
}

int Told(const char* what, int exit_status) {
  WriteError(fmt::format("almanac: {}\n", what));
  return exit_status;
}

int Run(int argument_count, char** arguments) {
  try {
    PrepareConsole();
    return RunCommands(WordsOf(argument_count, arguments));
  } catch (const ClosedPipe&) {
    return kDone;
  } catch (const Trouble& trouble) {
    return Told(trouble.what(), kTrouble);
  } catch (const Failure& failure) {
    return Told(failure.what(), kRefused);
  } catch (const std::exception& error) {
    return Told(error.what(), kTrouble);
  }
}

}  // namespace

}  // namespace zenithor::almanac

int main(int argument_count, char** arguments) {
  return zenithor::almanac::Run(argument_count, arguments);
}
