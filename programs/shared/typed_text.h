#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include <qxfmt/utf8.h>

namespace programs {

// What was typed, for the library's parsers. A NUL becomes U+FFFD as what is malformed does: a text
// of the library would end there.
inline std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text = qxfmt::Utf16(bytes);
  std::replace(text.begin(), text.end(), u'\0', u'\uFFFD');
  return text;
}

}  // namespace programs
