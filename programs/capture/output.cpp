#include "capture/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace capture {

void Output::Put(std::string_view ascii) {
  std::copy(ascii.begin(), ascii.end(), Room(static_cast<std::ptrdiff_t>(ascii.size())));
}

void Output::Put(ResultText text) {
  char* const start = Room(kLongestText);
  char* end = start;
  while (*text != u'\0') *end++ = static_cast<char>(*text++);
  size_ -= kLongestText - (end - start);
}

void Output::PutLines(std::string_view lines) {
  Flush();
  Write(lines);
}

void Output::PutBlanks(std::size_t count) {
  std::fill_n(Room(static_cast<std::ptrdiff_t>(count)), count, ' ');
}

void Output::PutEscape(std::string_view sequence) {
  Put(sequence);
  line_start_ += static_cast<std::ptrdiff_t>(sequence.size());
}

void Output::CutLine(std::size_t width) {
  if (column() > width) size_ = line_start_ + static_cast<std::ptrdiff_t>(width);
  while (size_ > 0 && buffer_[static_cast<std::size_t>(size_ - 1)] == ' ') --size_;
}

void Output::EndLine() {
  Put('\n');
  line_start_ = size_;
  if (size_ > kSize - kLongestLine) Flush();
}

void Output::Flush() {
  Write({buffer_.data(), static_cast<std::size_t>(size_)});
  line_start_ -= size_;
  size_ = 0;
}

void Output::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) {
      throw std::runtime_error(std::string("cannot write to the standard output: ") +
                               std::strerror(errno));
    }
    bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
  }
}

}  // namespace capture
