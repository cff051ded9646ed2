#include "progress.h"

#include <fmt/core.h>

#include <algorithm>

#include "console.h"

namespace zenithor::almanac {

void Progress::Show(double done) {
  constexpr std::chrono::milliseconds kPatience{500};
  constexpr std::chrono::milliseconds kBetween{100};
  constexpr int kCells = 30;
  const auto now = Time::now();
  if (now - begun_ < kPatience || now - shown_ < kBetween || !ErrorIsTerminal()) {
    return;
  }
  shown_ = now;
  const double part = std::clamp(done, 0.0, 1.0);
  const auto full = static_cast<std::size_t>(part * kCells);
  const std::string line = fmt::format("{} [{}{}] {:3.0f} %", what_, std::string(full, '='),
                                       std::string(kCells - full, ' '), part * 100.0);
  WriteError("\r" + line);
  width_ = line.size();
}

void Progress::Clear() {
  if (width_ > 0) {
    WriteError("\r" + std::string(width_, ' ') + "\r");
    width_ = 0;
  }
}

}  // namespace zenithor::almanac
