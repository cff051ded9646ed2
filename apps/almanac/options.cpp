#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <utility>

#include "failure.h"
#include "words.h"

namespace zenithor::almanac {

namespace {

constexpr char kDigits[] = "0123456789";

}  // namespace

double NumberOf(const std::string& option, const std::string& word, double least, double greatest) {
  // Characters first: strtod also takes hexadecimal numbers, infinities and NaN.
  const bool decimal = word.find_first_not_of("0123456789+-.eE") == std::string::npos;
  char* end = nullptr;
  const double value = std::strtod(word.c_str(), &end);
  if (!decimal || end == word.c_str() || *end != '\0') {
    throw Failure("{} \"{}\": not a number; write one from {:g} to {:g}", option, word, least,
                  greatest);
  }
  if (!(value >= least && value <= greatest)) {
    throw Failure("{} \"{}\": out of range; write a number from {:g} to {:g}", option, word, least,
                  greatest);
  }
  return value;
}

int WholeNumberOf(const std::string& option, const std::string& word) {
  const std::size_t sign = !word.empty() && (word[0] == '+' || word[0] == '-') ? 1 : 0;
  if (word.size() == sign || word.find_first_not_of(kDigits, sign) != std::string::npos) {
    throw Failure("{} \"{}\": not a whole number", option, word);
  }
  const long long value = std::strtoll(word.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max()));
}

std::size_t ChoiceOf(const std::string& option, const std::string& word,
                     const std::vector<std::string>& names) {
  const auto found = std::find_if(names.begin(), names.end(), [&word](const std::string& name) {
    return Plain(name) == Plain(word);
  });
  if (found == names.end()) {
    throw Failure("{} \"{}\"{}", option, word, Guess(word, names));
  }
  return static_cast<std::size_t>(found - names.begin());
}

CLI::Option* AddNumberOption(CLI::App& command, const std::string& option, double& value,
                             double least, double greatest, const std::string& unit,
                             const std::string& description) {
  return command
      .add_option_function<std::string>(
          option,
          [option, &value, least, greatest](const std::string& word) {
            value = NumberOf(option, word, least, greatest);
          },
          description)
      ->type_name(unit);
}

CLI::Option* AddChoicesOption(CLI::App& command, const std::string& option,
                              std::vector<std::size_t>& chosen, std::vector<std::string> names,
                              const std::string& type, const std::string& description) {
  return command
      .add_option_function<std::vector<std::string>>(
          option,
          [option, &chosen, names = std::move(names)](const std::vector<std::string>& words) {
            for (const std::string& word : words) {
              const std::size_t choice = ChoiceOf(option, word, names);
              if (std::find(chosen.begin(), chosen.end(), choice) == chosen.end()) {
                chosen.push_back(choice);
              }
            }
          },
          description)
      ->delimiter(',')
      ->type_name(type);
}

}  // namespace zenithor::almanac
