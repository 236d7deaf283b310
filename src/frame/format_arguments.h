#pragma once

// Formatted text with a pattern and arguments that are only known at run time.

#include <cstddef>
#include <cstdint>

#include <qxfmt/growable_text.h>
#include <qxfmt/text.h>

namespace qxfmt {

// Reads pattern and arguments where they are, for its measure and again when it writes.
class FormattedText {
 public:
  FormattedText(WideText pattern, const FormatArgument* arguments, std::size_t count);

  // Whether the pattern is of the family and the arguments fit it in number and kind.
  bool valid() const { return valid_; }

  // Units, without a terminator; of a valid text.
  std::uint64_t size() const { return size_; }

  // Writes size() units, of a valid text.
  void Write(char16_t* out) const;

 private:
  template <typename Sink>
  bool Walk(Sink& sink) const;

  WideText pattern_;
  const FormatArgument* arguments_;
  std::size_t count_;
  bool valid_ = false;
  std::uint64_t size_ = 0;
};

}  // namespace qxfmt
