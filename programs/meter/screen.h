#pragma once

// The terminal as one screen that is drawn again and again, and what happens at it.

#include <termios.h>

#include <chrono>
#include <string>

namespace meter {

struct Event {
  enum class Kind {
    kTime,  // there was nothing else
    kKey,
    kResize,  // what is shown has to be drawn again
    kSignal,  // that ends programs
  };
  Kind kind = Kind::kTime;
  char key = 0;
  int signal = 0;
};

// Shows the terminal's other screen, and gives back the first one and all its modes when it is
// destroyed. Signals that would end the program meanwhile are events instead.
class Screen {
 public:
  // Throws std::runtime_error.
  Screen();
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  // Replaces what is shown by these lines. Throws std::runtime_error.
  void Show(const std::string& lines);

  Event Wait(std::chrono::steady_clock::time_point until);

 private:
  void Enter();
  void Leave();
  void Suspend();
  Event ReadKey();
  Event ReadSignal();

  int signals_ = -1;  // descriptor that they are read from
  bool has_keys_;     // the standard input is a terminal
  bool is_at_end_ = false;
  termios modes_{};  // of the terminal before
};

}  // namespace meter
