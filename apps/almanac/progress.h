#pragma once

#include <chrono>
#include <string>

namespace zenithor::almanac {

// A bar on standard error for work that takes more than half a second, on a terminal only. It is
// wiped away before the answer is written.
class Progress {
 public:
  explicit Progress(std::string what) : what_(std::move(what)) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `done` from 0 to 1.
  void Show(double done);
  void Clear();

 private:
  using Time = std::chrono::steady_clock;
  std::string what_;
  Time::time_point begun_ = Time::now();
  Time::time_point shown_;
  std::size_t width_ = 0;  // of what stands on the line
};

}  // namespace zenithor::almanac
