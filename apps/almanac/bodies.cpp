#include "bodies.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "failure.h"
#include "options.h"
#include "words.h"

namespace zenithor::almanac {

Bodies AllBodies() {
  Bodies bodies(std::begin(kPlanets), std::end(kPlanets));
  bodies.insert(bodies.begin() + 1, kMoon);
  return bodies;
}

Bodies BodiesWithout(const std::vector<int>& codes) {
  Bodies bodies;
  for (const Body& body : AllBodies()) {
    if (std::find(codes.begin(), codes.end(), body.code) == codes.end()) {
      bodies.push_back(body);
    }
  }
  return bodies;
}

CLI::Option* AddBodyOption(CLI::App& command, const std::string& option, Bodies& chosen,
                           const Bodies& allowed, const std::string& refused,
                           const std::string& description) {
  const auto given = std::make_shared<bool>(false);
  return command
      .add_option_function<std::vector<std::string>>(
          option,
          [option, &chosen, allowed, refused, given](const std::vector<std::string>& words) {
            std::vector<std::string> names;
            for (const Body& body : allowed) {
              names.push_back(Plain(body.name));
            }
            names.emplace_back("all");
            if (!*given) {
              chosen.clear();
            }
            *given = true;
            const auto add = [&chosen](const Body& body) {
              if (std::none_of(chosen.begin(), chosen.end(),
                               [&](const Body& other) { return other.code == body.code; })) {
                chosen.push_back(body);
              }
            };
            for (const std::string& word : words) {
              for (const Body& body : AllBodies()) {
                if (Plain(word) == Plain(body.name) &&
                    std::find(names.begin(), names.end(), Plain(word)) == names.end()) {
                  throw Failure("{} \"{}\": {}", option, word, refused);
                }
              }
              const std::size_t place = ChoiceOf(option, word, names);
              if (place < allowed.size()) {
                add(allowed[place]);
              } else {
                std::for_each(allowed.begin(), allowed.end(), add);
              }
            }
          },
          description)
      ->delimiter(',')
      ->type_name("BODY");
}

}  // namespace zenithor::almanac
