#include "text/decimal_point.h"

#include <cstddef>
#include <cstring>
#include <cwchar>

namespace qxfmt {

char16_t DecodeDecimalPoint(const char* multibyte) noexcept {
  // Not mbrtoc16, which reads UTF-8 on some platforms, whatever the locale.
  wchar_t character = L'.';
  std::mbstate_t state{};
  const std::size_t length = std::strlen(multibyte);
  const std::size_t read = std::mbrtowc(&character, multibyte, length, &state);
  // More than the length stands for the errors; 0 for an empty text.
  return read == 0 || read > length ? u'.' : static_cast<char16_t>(character);
}

}  // namespace qxfmt
