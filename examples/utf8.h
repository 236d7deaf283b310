#pragma once

// UTF-16 as QXFMT speaks it, UTF-8 as terminals do.

#include <string>
#include <string_view>

namespace examples {

// Unpaired surrogates become U+FFFD.
inline std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    const bool is_pair = code >= 0xD800 && code < 0xDC00 && i + 1 < text.size() &&
                         text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (is_pair) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    if (code < 0x80) {
      bytes += static_cast<char>(code);
      continue;
    }
    const int rest = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(kLead[rest] | (code >> (6 * rest)));
    for (int shift = 6 * (rest - 1); shift >= 0; shift -= 6) {
      bytes += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    }
  }
  return bytes;
}

}  // namespace examples
