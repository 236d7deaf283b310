#pragma once

#if defined(_WIN32)
#include <clocale>
#else
#include <langinfo.h>
#endif

namespace qxfmt {

// The first character of a multibyte text in the encoding of the current C locale; '.' for none.
char16_t DecodeDecimalPoint(const char* multibyte) noexcept;

// The decimal point of the C locale that the calling thread is in: the process's, unless the thread
// has set another one. Safe beside other threads that read it; like every print of the C library it
// may not overlap a setlocale call.
inline char16_t DecimalPoint() noexcept {
#if defined(_WIN32)
  // The C runtime keeps this structure per thread.
  return static_cast<char16_t>(*std::localeconv()->_W_decimal_point);
#else
  // Only reads the locale, whereas localeconv fills a structure that all threads share.
  const char* const point = ::nl_langinfo(RADIXCHAR);
  const auto first = static_cast<unsigned char>(*point);
  return first != 0 && first < 0x80 ? first : DecodeDecimalPoint(point);
#endif
}

}  // namespace qxfmt
