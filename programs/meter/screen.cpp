#include "meter/screen.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace meter {

namespace {

// Control sequences of xterm, which the terminals of today understand: the other screen, the
// cursor, and lines that are cut at the edge and not wrapped.
constexpr std::string_view kEnter = "\033[?1049h\033[?25l\033[?7l\033[H\033[2J";
constexpr std::string_view kLeave = "\033[?7h\033[?25h\033[?1049l";
constexpr std::string_view kHome = "\033[H";
constexpr std::string_view kClearLine = "\033[K";
constexpr std::string_view kClearBelow = "\033[J";

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP, SIGWINCH};

sigset_t Signals() {
  sigset_t set;
  ::sigemptyset(&set);
  for (const int signal : kSignals) ::sigaddset(&set, signal);
  return set;
}

bool Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
  }
  return true;
}

}  // namespace

Screen::Screen() : has_keys_(::isatty(STDIN_FILENO) != 0) {
  const sigset_t set = Signals();
  ::sigprocmask(SIG_BLOCK, &set, nullptr);
  signals_ = ::signalfd(-1, &set, SFD_CLOEXEC);
  if (signals_ < 0 || (has_keys_ && ::tcgetattr(STDIN_FILENO, &modes_) != 0)) {
    throw std::runtime_error(std::string("cannot take over the terminal: ") + std::strerror(errno));
  }
  Enter();
}

Screen::~Screen() {
  Leave();
  ::close(signals_);
  const sigset_t set = Signals();
  ::sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

void Screen::Enter() {
  if (has_keys_) {
    termios modes = modes_;
    modes.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);  // each key at once, and unseen
    ::tcsetattr(STDIN_FILENO, TCSADRAIN, &modes);
  }
  Write(kEnter);
}

void Screen::Leave() {
  Write(kLeave);
  if (has_keys_) ::tcsetattr(STDIN_FILENO, TCSADRAIN, &modes_);
}

// As the terminal's user expects of Ctrl-Z: the shell has its screen until it continues the
// program.
void Screen::Suspend() {
  sigset_t set;
  ::sigemptyset(&set);
  ::sigaddset(&set, SIGTSTP);
  Leave();
  ::raise(SIGTSTP);
  ::sigprocmask(SIG_UNBLOCK, &set, nullptr);  // stops here
  ::sigprocmask(SIG_BLOCK, &set, nullptr);
  Enter();
}

void Screen::Show(const std::string& lines) {
  std::string frame(kHome);
  std::size_t start = 0;
  for (std::size_t end = lines.find('\n'); end != std::string::npos;
       end = lines.find('\n', start)) {
    frame.append(lines, start, end - start).append(kClearLine).append("\r\n");
    start = end + 1;
  }
  frame.append(lines, start).append(kClearLine).append(kClearBelow);
  if (!Write(frame)) {
    throw std::runtime_error(std::string("cannot write to the terminal: ") + std::strerror(errno));
  }
}

Event Screen::Wait(std::chrono::steady_clock::time_point until) {
  const auto rest =
      std::chrono::ceil<std::chrono::milliseconds>(until - std::chrono::steady_clock::now());
  pollfd descriptors[] = {{signals_, POLLIN, 0},
                          {has_keys_ && !is_at_end_ ? STDIN_FILENO : -1, POLLIN, 0}};
  const int timeout = static_cast<int>(std::clamp<std::int64_t>(rest.count(), 0, INT_MAX));
  if (::poll(descriptors, std::size(descriptors), timeout) <= 0) return {};
  if (descriptors[0].revents != 0) return ReadSignal();
  return ReadKey();
}

Event Screen::ReadKey() {
  Event event;
  is_at_end_ = ::read(STDIN_FILENO, &event.key, 1) != 1;
  if (!is_at_end_) event.kind = Event::Kind::kKey;
  return event;
}

Event Screen::ReadSignal() {
  signalfd_siginfo info{};
  if (::read(signals_, &info, sizeof(info)) != sizeof(info)) return {};
  Event event;
  event.signal = static_cast<int>(info.ssi_signo);
  event.kind = Event::Kind::kSignal;
  if (event.signal == SIGTSTP) Suspend();
  if (event.signal == SIGTSTP || event.signal == SIGWINCH) event.kind = Event::Kind::kResize;
  return event;
}

}  // namespace meter
