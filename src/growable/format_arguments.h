#pragma once

// Formatted text with a pattern and arguments that are only known at run time.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <qxfmt/growable_text.h>

namespace qxfmt {

// Reads pattern and arguments where they are, for its measure and again when it writes. It reads no
// terminator, so that what it writes may overwrite those of the pattern and of the arguments.
class FormattedText {
 public:
  FormattedText(std::u16string_view pattern, const FormatArgument* arguments, std::size_t count);

  // Whether all conversions are known and the arguments fit them in number and kind.
  bool valid() const { return valid_; }

  // Units, without a terminator; of a valid text.
  std::uint64_t size() const { return size_; }

  // Writes size() units, of a valid text.
  void Write(char16_t* out) const;

 private:
  template <typename Sink>
  bool PutAll(Sink& sink) const;

  std::u16string_view pattern_;
  const FormatArgument* arguments_;
  std::size_t count_;
  bool valid_ = false;
  std::uint64_t size_ = 0;
};

}  // namespace qxfmt
