#include <algorithm>
#include <sstream>

#include "definitions.h"

namespace zenithor::almanac {

namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kDescriptions = 24;  // where they begin

// The words of a text in lines that begin with `indent` blanks and end before kWidth. The first
// line has `begun` letters already.
std::string Wrapped(const std::string& text, std::size_t indent, std::size_t begun) {
  std::istringstream words(text);
  std::string wrapped;
  std::size_t column = begun;
  bool line_is_empty = true;
  for (std::string word; words >> word;) {
    if (!line_is_empty && column + 1 + word.size() > kWidth) {
      wrapped += "\n" + std::string(indent, ' ');
      column = indent;
      line_is_empty = true;
    }
    wrapped += (line_is_empty ? "" : " ") + word;
    column += word.size() + (line_is_empty ? 0 : 1);
    line_is_empty = false;
  }
  return wrapped + "\n";
}

std::string Entry(const std::string& term, const std::string& description) {
  std::string line = "  " + term;
  if (line.size() + 2 > kDescriptions) {
    line += "\n" + std::string(kDescriptions, ' ');
  } else {
    line += std::string(kDescriptions - line.size(), ' ');
  }
  return line + Wrapped(description, kDescriptions, kDescriptions);
}

std::string Term(const OptionDefinition& option) {
  if (option.positional) {
    return option.name;
  }
  const std::string short_form = option.name == "--help" ? "-h, " : "";
  return short_form + option.name + (option.value.empty() ? "" : " " + option.value) +
         (option.many ? ",..." : "");
}

std::string OptionsText(const CommandDefinition& command) {
  std::vector<std::string> groups;
  for (const OptionDefinition& option : command.options) {
    if (std::find(groups.begin(), groups.end(), option.group) == groups.end()) {
      groups.push_back(option.group);
    }
  }
  // What the command is about first, then the clock, then the form.
  std::stable_sort(groups.begin(), groups.end(), [](const auto& a, const auto& b) {
    const auto rank = [](const std::string& group) {
      return group == "Output" ? 2 : group == "Time" ? 1 : 0;
    };
    return rank(a) < rank(b);
  });
  std::string text;
  for (const std::string& group : groups) {
    text += "\n" + group + ":\n";
    for (const OptionDefinition& option : command.options) {
      if (option.group == group) {
        text += Entry(Term(option), option.description);
      }
    }
  }
  return text;
}

}  // namespace

std::string HelpText(const ProgramDefinition& program) {
  std::string text = Wrapped(program.program.description, 0, 0);
  text += "\nUsage: almanac [COMMAND] [OPTION]...\n" + OptionsText(program.program) +
          "\nCommands; without one: today\n";
  for (const CommandDefinition& command : program.commands) {
    text += Entry(command.name, command.description);
  }
  text += "\nalmanac COMMAND --help says what a command takes, with examples.\n";
  return text;
}

std::string HelpText(const CommandDefinition& command) {
  std::string usage = "Usage: almanac " + command.name + " [OPTION]...";
  for (const OptionDefinition& option : command.options) {
    usage += option.positional ? " " + option.name : "";
  }
  std::string text = command.description + "\n\n" + usage + "\n" + OptionsText(command);
  text +=
      "\nDates: 2026-11-21, 2026-11-21T06:30 (also with Z or +02:00 behind), 2026-11, 2026, now,\n"
      "today, tomorrow, yesterday, jd2461365.75 (dynamical time); year 0 is 1 BC.\n";
  text += "\nExamples:\n";
  for (const std::string& example : command.examples) {
    text += "  " + example + "\n";
  }
  return text;
}

}  // namespace zenithor::almanac
