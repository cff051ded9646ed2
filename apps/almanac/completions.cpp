#include <CLI/CLI.hpp>
#include <algorithm>

#include "definitions.h"

namespace zenithor::almanac {

namespace {

bool TakesFile(const OptionDefinition& option) {
  return option.value == "FILE" || option.value == "PATH";
}

std::string NamesOf(const CommandDefinition& command) {
  std::string names;
  for (const OptionDefinition& option : command.options) {
    names += option.positional ? "" : (names.empty() ? "" : " ") + option.name;
  }
  return names;
}

std::string CommandNames(const ProgramDefinition& program) {
  std::string names;
  for (const CommandDefinition& command : program.commands) {
    names += (names.empty() ? "" : " ") + command.name;
  }
  return names;
}

// For single quotes of a shell.
std::string Quoted(const std::string& text) {
  std::string quoted;
  for (const char c : text) {
    quoted += c == '\'' ? "'\\''" : std::string(1, c);
  }
  return "'" + quoted + "'";
}

// Every option once, whichever command has it: one name takes the same everywhere.
std::vector<OptionDefinition> AllOptions(const ProgramDefinition& program) {
  std::vector<OptionDefinition> options;
  const auto add = [&options](const CommandDefinition& command) {
    for (const OptionDefinition& option : command.options) {
      const bool known = std::any_of(options.begin(), options.end(),
                                     [&](const auto& other) { return other.name == option.name; });
      if (!option.positional && !known) {
        options.push_back(option);
      }
    }
  };
  add(program.program);
  for (const CommandDefinition& command : program.commands) {
    add(command);
  }
  return options;
}

}  // namespace

std::string BashCompletion(const ProgramDefinition& program) {
  std::string text =
      "# Completion of almanac for bash, written by the program itself.\n"
      "_almanac() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= k\n"
      "  for ((k = 1; k < COMP_CWORD; ++k)); do\n"
      "    case \" " +
      CommandNames(program) +
      " \" in\n"
      "      *\" ${COMP_WORDS[k]} \"*) command=${COMP_WORDS[k]}; break ;;\n"
      "    esac\n"
      "  done\n"
      "  local values=\n"
      "  case $before in\n";
  for (const OptionDefinition& option : AllOptions(program)) {
    const std::vector<std::string> values = ValuesOf(option);
    if (TakesFile(option)) {
      text += "    " + option.name + ") COMPREPLY=($(compgen -f -- \"$word\")); return ;;\n";
    } else if (!values.empty()) {
      text += "    " + option.name + ") values=" + Quoted(CLI::detail::join(values, " ")) + " ;;\n";
    } else if (!option.value.empty()) {
      text += "    " + option.name + ") return ;;\n";
    }
  }
  text +=
      "  esac\n"
      "  if [ -n \"$values\" ]; then\n"
      "    # Several words stand with commas between them.\n"
      "    local begun=\n"
      "    case $word in *,*) begun=${word%,*}, ;; esac\n"
      "    COMPREPLY=($(compgen -P \"$begun\" -W \"$values\" -- \"${word##*,}\"))\n"
      "    return\n"
      "  fi\n"
      "  case $command in\n";
  for (const CommandDefinition& command : program.commands) {
    std::string words = NamesOf(command);
    std::string files;
    for (const OptionDefinition& option : command.options) {
      if (option.positional && TakesFile(option)) {
        files = " -f";
      } else if (option.positional) {
        words += " " + CLI::detail::join(ValuesOf(option), " ");
      }
    }
    text += "    " + command.name + ") COMPREPLY=($(compgen" + files + " -W " + Quoted(words) +
            " -- \"$word\")) ;;\n";
  }
  text += "    *) COMPREPLY=($(compgen -W " +
          Quoted(CommandNames(program) + " " + NamesOf(program.program)) +
          " -- \"$word\")) ;;\n"
          "  esac\n"
          "}\n"
          "complete -F _almanac almanac\n";
  return text;
}

std::string ZshCompletion(const ProgramDefinition& program) {
  // In a specification brackets hold what is described and colons part its fields.
  const auto described = [](const std::string& text) {
    std::string plain;
    for (const char c : text) {
      plain += c == '[' || c == ']' || c == ':' ? std::string("\\") + c : std::string(1, c);
    }
    return plain;
  };
  const auto values_of = [](const OptionDefinition& option) -> std::string {
    if (option.value.empty()) {
      return "";
    }
    const std::vector<std::string> values = ValuesOf(option);
    if (TakesFile(option)) {
      return ":file:_files";
    }
    if (values.empty()) {
      return ":" + option.value + ":";
    }
    const std::string list = CLI::detail::join(values, " ");
    return option.many
               ? ":" + option.value + ":_values -s , " + option.value + " " + list
               : ":" + (option.value.find('|') == std::string::npos ? option.value : "word") +
                     ":(" + list + ")";
  };
  const auto arguments_of = [&](const CommandDefinition& command) {
    std::string text = "_arguments";
    for (const OptionDefinition& option : command.options) {
      text += " \\\n        " + Quoted(option.positional
                                           ? "1" + values_of(option)
                                           : option.name + "[" + described(option.description) +
                                                 "]" + values_of(option));
    }
    return text;
  };
  std::string text =
      "#compdef almanac\n"
      "# Completion of almanac for zsh, written by the program itself.\n"
      "_almanac() {\n"
      "  local -a commands\n"
      "  commands=(\n";
  for (const CommandDefinition& command : program.commands) {
    text += "    " + Quoted(command.name + ":" + described(command.description)) + "\n";
  }
  text +=
      "  )\n"
      "  local -i k\n"
      "  local command=\n"
      "  for ((k = 2; k < CURRENT; ++k)); do\n"
      "    if [[ \" " +
      CommandNames(program) +
      " \" == *\" $words[k] \"* ]]; then\n"
      "      command=$words[k]\n"
      "      shift $((k - 1)) words\n"
      "      ((CURRENT -= k - 1))\n"
      "      break\n"
      "    fi\n"
      "  done\n"
      "  case $command in\n";
  for (const CommandDefinition& command : program.commands) {
    text += "    " + command.name + ")\n      " + arguments_of(command) + "\n      ;;\n";
  }
  text +=
      "    *)\n"
      "      _describe command commands\n"
      "      " +
      arguments_of(program.program) +
      "\n"
      "      ;;\n"
      "  esac\n"
      "}\n"
      "_almanac \"$@\"\n";
  return text;
}

std::string FishCompletion(const ProgramDefinition& program) {
  std::string text =
      "# Completion of almanac for fish, written by the program itself.\n"
      "complete -c almanac -f\n";
  const std::string none = "'not __fish_seen_subcommand_from " + CommandNames(program) + "'";
  const auto option_line = [](const std::string& condition, const OptionDefinition& option) {
    std::string line = "complete -c almanac -n " + condition;
    if (!option.positional) {
      line += " -l " + option.name.substr(2);
    }
    const std::vector<std::string> values = ValuesOf(option);
    if (TakesFile(option)) {
      line += option.positional ? " -F" : " -r -F";
    } else if (!values.empty()) {
      const std::string list = CLI::detail::join(values, " ");
      line += (option.positional ? " -a " : " -x -a ") +
              Quoted(option.many ? "(__fish_complete_list , \"string split ' ' '" + list + "'\")"
                                 : list);
    } else if (!option.value.empty()) {
      line += " -x";
    }
    return line + " -d " + Quoted(option.description) + "\n";
  };
  for (const CommandDefinition& command : program.commands) {
    text += "complete -c almanac -n " + none + " -a " + command.name + " -d " +
            Quoted(command.description) + "\n";
  }
  for (const OptionDefinition& option : program.program.options) {
    text += option_line(none, option);
  }
  for (const CommandDefinition& command : program.commands) {
    for (const OptionDefinition& option : command.options) {
      text += option_line("'__fish_seen_subcommand_from " + command.name + "'", option);
    }
  }
  return text;
}

}  // namespace zenithor::almanac
