#include "definitions.h"

#include <CLI/CLI.hpp>

#include "aspect_names.h"
#include "bodies.h"
#include "fields.h"
#include "kinds.h"
#include "words.h"

namespace zenithor::almanac {

namespace {

OptionDefinition DefinitionOf(const CLI::Option& option) {
  OptionDefinition definition;
  definition.positional = option.get_positional();
  if (definition.positional) {
    definition.name = option.get_name(true);
  } else if (!option.get_lnames().empty()) {
    definition.name = "--" + option.get_lnames().front();
  } else {
    definition.name = "-" + option.get_snames().front();
  }
  const bool takes_value = option.get_type_size_max() > 0 && option.get_expected_max() > 0;
  definition.value = takes_value ? option.get_type_name() : "";
  definition.description = option.get_description();
  definition.group = option.get_group();
  definition.many = takes_value && option.get_expected_max() > 1;
  return definition;
}

CommandDefinition CommandOf(const CLI::App& command) {
  CommandDefinition definition{command.get_name(), command.get_description(), {}, {}};
  for (const CLI::Option* const option : command.get_options()) {
    if (!option->get_group().empty()) {
      definition.options.push_back(DefinitionOf(*option));
    }
  }
  if (!command.get_footer().empty()) {
    definition.examples = CLI::detail::split(command.get_footer(), '\n');
  }
  return definition;
}

}  // namespace

ProgramDefinition DefinitionOf(const CLI::App& program) {
  ProgramDefinition definition{CommandOf(program), {}};
  for (const CLI::App* const command : program.get_subcommands({})) {
    if (!command->get_group().empty()) {
      definition.commands.push_back(CommandOf(*command));
    }
  }
  return definition;
}

std::vector<std::string> ValuesOf(const OptionDefinition& option) {
  std::vector<std::string> values;
  if (option.value == "BODY") {
    for (const Body& body : AllBodies()) {
      values.push_back(Plain(body.name));
    }
    values.emplace_back("all");
  } else if (option.value == "KIND") {
    values = KindWords();
  } else if (option.value == "FIELD") {
    for (const FieldWord& word : FieldWords()) {
      values.emplace_back(word.slug);
    }
  } else if (option.value == "ANGLE") {
    values = AspectWords();
  } else if (option.value == "DATE") {
    values = {"now", "today", "tomorrow", "yesterday"};
  } else if (option.value == "ZONE") {
    values = {"UTC", "local"};
  } else if (option.value == "STEP") {
    values = {"15min", "1h", "1d", "1w", "1mo", "1y"};
  } else if (option.value.find('|') != std::string::npos) {
    values = CLI::detail::split(option.value, '|');
  }
  return values;
}

}  // namespace zenithor::almanac
