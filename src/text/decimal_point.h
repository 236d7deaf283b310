#pragma once

#include "platform/platform.h"

namespace qxfmt {

// The first character of a multibyte text in the encoding of the current C locale; '.' for none.
char16_t DecodeDecimalPoint(const char* multibyte) noexcept;

// The decimal point of the C locale that the calling thread is in: the process's, unless the thread
// has set another one. Safe beside other threads that read it; like every print of the C library it
// may not overlap a setlocale call.
inline char16_t DecimalPoint() noexcept {
  const char* const point = DecimalPointText();
  const auto first = static_cast<unsigned char>(*point);
  return first != 0 && first < 0x80 ? first : DecodeDecimalPoint(point);
}

}  // namespace qxfmt
