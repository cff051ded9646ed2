#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zenithor::almanac {

// The program's commands and options as plain records, and what is written from them: the help, the
// manual page, the completions of three shells. So none of these can say what the program does not
// take.

struct OptionDefinition {
  std::string name;   // "--body"; of a positional "KIND"
  std::string value;  // what it takes, such as BODY or text|csv; empty: nothing
  std::string description;
  std::string group;
  bool positional = false;
  bool many = false;
};

struct CommandDefinition {
  std::string name;
  std::string description;
  std::vector<OptionDefinition> options;
  std::vector<std::string> examples;
};

struct ProgramDefinition {
  CommandDefinition program;
  std::vector<CommandDefinition> commands;
};

ProgramDefinition DefinitionOf(const CLI::App& program);

// The words that an option may take; none where they cannot be listed.
std::vector<std::string> ValuesOf(const OptionDefinition& option);

// At most 80 columns wide.
std::string HelpText(const ProgramDefinition& program);
std::string HelpText(const CommandDefinition& command);

std::string ManualPage(const ProgramDefinition& program, const std::string& version);
std::string BashCompletion(const ProgramDefinition& program);
std::string ZshCompletion(const ProgramDefinition& program);
std::string FishCompletion(const ProgramDefinition& program);

}  // namespace zenithor::almanac
