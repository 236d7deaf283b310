#pragma once

// How far a long file is read, on a line of the terminal that errors go to.

#include <chrono>
#include <cstdint>

#include <qxfmt/qxfmt.h>

#include "capture/source.h"

namespace capture {

class Progress {
 public:
  // Stays silent unless it is wanted, the source is a file and the errors go to a terminal.
  Progress(const Source& source, bool is_wanted);

  // Call it for every packet: mostly it only counts.
  void Advance() {
    if (is_shown_ && ++calls_ % kCallsBetweenLooks == 0) Look();
  }

  // Leaves the line empty.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

 private:
  using Clock = std::chrono::steady_clock;

  static constexpr std::uint32_t kCallsBetweenLooks = 1024;

  void Look();
  void Print(Clock::time_point now);

  const Source& source_;
  CQXDataFormat format_;
  bool is_shown_;
  bool is_printed_ = false;
  std::uint32_t calls_ = 0;
  Clock::time_point start_ = Clock::now();
  Clock::time_point next_;
};

}  // namespace capture
