#include "frame/decimal_point.h"

#if defined(_WIN32)
#include <clocale>
#else
#include <langinfo.h>

#include <cstddef>
#include <cstring>
#include <cuchar>
#include <cwchar>
#endif

namespace qxfmt {

#if defined(_WIN32)

char16_t DecimalPoint() {
  // The C runtime keeps the structure per thread, so that this is as safe as its prints.
  return static_cast<char16_t>(*std::localeconv()->_W_decimal_point);
}

#else

char16_t DecimalPoint() {
  // nl_langinfo only reads the locale, whereas localeconv fills a structure that all threads share.
  const char* const point = ::nl_langinfo(RADIXCHAR);
  const auto first = static_cast<unsigned char>(*point);
  if (first != 0 && first < 0x80) return first;

  char16_t unit = u'.';
  std::mbstate_t state{};
  const std::size_t length = std::strlen(point);
  const std::size_t read = std::mbrtoc16(&unit, point, length, &state);
  return read > length || read == 0 ? u'.' : unit;
}

#endif

}  // namespace qxfmt
