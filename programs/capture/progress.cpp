#include "capture/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include <qxfmt/utf8.h>

#include "shared/terminal.h"

namespace capture {

namespace {

constexpr std::chrono::milliseconds kPatience{500};  // a file that is read by then shows nothing
constexpr std::chrono::milliseconds kInterval{100};
constexpr std::size_t kBar = 30;
constexpr std::size_t kWidth = 80;  // the bar is left out on narrower terminals

}  // namespace

Progress::Progress(const Source& source, bool is_wanted)
    : source_(source),
      is_shown_(is_wanted && source.size() > 0 && programs::LineWidth(STDERR_FILENO) != SIZE_MAX),
      next_(start_ + kPatience) {}

void Progress::Look() {
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  Print(now);
}

// "[######------------------------] 20.00%, 32.00 MB of 160.00 MB, 2s left"
void Progress::Print(Clock::time_point now) {
  const auto size = static_cast<double>(source_.size());
  const double done = std::min(1.0, static_cast<double>(source_.position()) / size);
  const double elapsed = std::chrono::duration<double>(now - start_).count();
  const double left = std::min(elapsed * (1 - done) / std::max(done, 1e-6), 1e9);  // seconds

  std::string line;
  if (programs::LineWidth(STDERR_FILENO) >= kWidth) {
    const auto full = static_cast<std::size_t>(done * kBar);
    line.append(1, '[').append(full, '#').append(kBar - full, '-').append("] ");
  }
  const auto append = [&line](ResultText text) { line += qxfmt::Utf8(text); };
  append(format_.FormatPercentage(static_cast<float>(done)));
  line += ", ";
  append(format_.FormatByte(source_.position(), 2));
  line += " of ";
  append(format_.FormatByte(source_.size(), 2));
  line += ", ";
  append(format_.FormatDurationSecond(static_cast<std::uint32_t>(left), QXFMT_DURATION_WORDS_EN));
  format_.Reset();
  std::fprintf(stderr, "\r\033[K%s left", line.c_str());
  is_printed_ = true;
}

Progress::~Progress() {
  if (is_printed_) std::fputs("\r\033[K", stderr);
}

}  // namespace capture
