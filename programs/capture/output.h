#pragma once

// The standard output: one buffer of our own, written when it is full and when somebody waits for
// it. Nothing is allocated for a row.

#include <array>
#include <cstddef>
#include <string_view>

#include <qxfmt/text.h>

namespace capture {

class Output {
 public:
  explicit Output(int descriptor) : descriptor_(descriptor) {}

  void Put(char character) { *Room(1) = character; }
  void Put(std::string_view ascii);
  void Put(ResultText text);  // ASCII, and shorter than kLongestText
  void PutBlanks(std::size_t count);

  // What a terminal does not show: it counts for no column.
  void PutEscape(std::string_view sequence);

  // Whole lines, as many as there may be.
  void PutLines(std::string_view lines);

  // Characters of the line so far.
  std::size_t column() const { return static_cast<std::size_t>(size_ - line_start_); }

  // Takes back what the line has beyond so many characters, and the blanks at its end. Lines of a
  // terminal are far shorter than kLongestLine, so that all of it is still here.
  void CutLine(std::size_t width);

  void EndLine();

  // Throws std::runtime_error.
  void Flush();

 private:
  static constexpr std::ptrdiff_t kSize = 65536;
  static constexpr std::ptrdiff_t kLongestLine = 4096;
  static constexpr std::ptrdiff_t kLongestText = 256;

  // A place for so many characters, which count as put.
  char* Room(std::ptrdiff_t count) {
    if (kSize - size_ < count) Flush();
    size_ += count;
    return &buffer_[static_cast<std::size_t>(size_ - count)];
  }

  void Write(std::string_view bytes) const;

  int descriptor_;
  std::ptrdiff_t size_ = 0;
  std::ptrdiff_t line_start_ = 0;  // below 0 where the start of the line is written already
  std::array<char, kSize> buffer_;
};

}  // namespace capture
