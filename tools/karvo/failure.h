#pragma once

#include <fmt/core.h>

#include <stdexcept>
#include <string>

namespace zenithor::karvo {

// What a person is told when karvo cannot go on: what is wrong, where, and with which value. The
// program name is put in front when it is printed.
class Failure : public std::runtime_error {
 public:
  template <class... Arguments>
  explicit Failure(fmt::format_string<Arguments...> text, Arguments&&... arguments)
      : std::runtime_error(fmt::format(text, std::forward<Arguments>(arguments)...)) {}
};

}  // namespace zenithor::karvo
