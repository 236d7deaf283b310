#pragma once

// UTF-16 results as UTF-8, so that tables are plain literals and failures readable.

#include <string>
#include <string_view>

namespace qxfmt::test {

inline std::string Utf8(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    if (unit < 0x80) {
      bytes += static_cast<char>(unit);
    } else if (unit < 0x800) {
      bytes += static_cast<char>(0xC0 | (unit >> 6));
      bytes += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
      bytes += static_cast<char>(0xE0 | (unit >> 12));
      bytes += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
      bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return bytes;
}

}  // namespace qxfmt::test
