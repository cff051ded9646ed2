#pragma once

#include <fmt/core.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace zenithor {

// What a person is told when a program cannot go on: what is wrong, where, and what to do. The
// program's name is put in front when it is printed.
class Failure : public std::runtime_error {
 public:
  template <class... Arguments>
  explicit Failure(fmt::format_string<Arguments...> text, Arguments&&... arguments)
      : std::runtime_error(fmt::format(text, std::forward<Arguments>(arguments)...)) {}
};

}  // namespace zenithor
