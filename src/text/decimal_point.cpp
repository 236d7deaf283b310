#include "text/decimal_point.h"

#include <cstddef>
#include <cstring>
#include <cuchar>
#include <cwchar>

namespace qxfmt {

char16_t DecodeDecimalPoint(const char* multibyte) noexcept {
  char16_t unit = u'.';
  std::mbstate_t state{};
  const std::size_t length = std::strlen(multibyte);
  const std::size_t read = std::mbrtoc16(&unit, multibyte, length, &state);
  // More than the length stands for the errors; 0 for an empty text.
  return read == 0 || read > length ? u'.' : unit;
}

}  // namespace qxfmt
