#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "console.h"
#include "definitions.h"
#include "options.h"

namespace zenithor::almanac {

// Not shown in the help: writes the files of packaging/almanac.
void AddDefinitionsCommand(CLI::App& program, Session& /*session*/) {
  CLI::App* const command =
      program.add_subcommand("definitions", "The manual page, or the completion of a shell");
  command->group("");
  const auto form = std::make_shared<std::string>();
  command->add_option("FORM", *form, "What to write")->required()->type_name("man|bash|zsh|fish");
  command->callback([&program, form] {
    const ProgramDefinition definition = DefinitionOf(program);
    switch (ChoiceOf("definitions", *form, {"man", "bash", "zsh", "fish"})) {
      case 0:
        WriteOut(ManualPage(definition, VersionText()));
        break;
      case 1:
        WriteOut(BashCompletion(definition));
        break;
      case 2:
        WriteOut(ZshCompletion(definition));
        break;
      default:
        WriteOut(FishCompletion(definition));
        break;
    }
    FlushOut();
  });
}

}  // namespace zenithor::almanac
