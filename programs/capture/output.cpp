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

void Output::PutBlanks(std::size_t count) {
  std::fill_n(Room(static_cast<std::ptrdiff_t>(count)), count, ' ');
}

void Output::PutCsv(ResultText text) {
  const std::u16string_view view = text;
  const bool is_quoted = view.find(u',') != std::u16string_view::npos;
  if (is_quoted) Put('"');
  Put(text);
  if (is_quoted) Put('"');
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
  const char* next = buffer_.data();
  const char* const end = next + size_;
  while (next < end) {
    const ssize_t written = ::write(descriptor_, next, static_cast<std::size_t>(end - next));
    if (written < 0 && errno != EINTR) {
      throw std::runtime_error(std::string("cannot write to the standard output: ") +
                               std::strerror(errno));
    }
    next += std::max<ssize_t>(written, 0);
  }
  line_start_ -= size_;
  size_ = 0;
}

}  // namespace capture
