#pragma once

// Texts from elsewhere, made harmless for a terminal.

#include <string>
#include <string_view>

#include <qxfmt/utf8.h>

#include "shared/typed_text.h"

namespace programs {

// With "?" in place of each control character, and U+FFFD of what is malformed.
inline std::string Printable(std::string_view bytes) {
  std::u16string text = FromUtf8(bytes);
  for (char16_t& unit : text) {
    if (unit < u' ' || (unit >= 0x7F && unit < 0xA0)) unit = u'?';
  }
  return qxfmt::Utf8(text);
}

}  // namespace programs
