#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace zenithor::almanac {

// What is written behind an option, read strictly. Each throws Failure, naming the option, the word
// and what may stand there instead.

// A decimal number from `least` to `greatest`; NaN and infinities are none.
double NumberOf(const std::string& option, const std::string& word, double least, double greatest);

// A whole number in decimal, leading zeros or not.
int WholeNumberOf(const std::string& option, const std::string& word);

// Which of `names` the word is, in capitals or small letters, blanks around it or not; throws
// Failure with the nearest one.
std::size_t ChoiceOf(const std::string& option, const std::string& word,
                     const std::vector<std::string>& names);

// Gives `command` an option whose value is such a number.
CLI::Option* AddNumberOption(CLI::App& command, const std::string& option, double& value,
                             double least, double greatest, const std::string& unit,
                             const std::string& description);

// Gives `command` an option that takes several of `names`, with commas or blanks between them.
// `chosen` gets their places in `names`, each once. `type` names them in the help.
CLI::Option* AddChoicesOption(CLI::App& command, const std::string& option,
                              std::vector<std::size_t>& chosen, std::vector<std::string> names,
                              const std::string& type, const std::string& description);

}  // namespace zenithor::almanac
