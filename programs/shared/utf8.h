#pragma once

// Between the library's UTF-16 and the UTF-8 of files and terminals. What is malformed on either
// side becomes U+FFFD.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace programs {

namespace detail {

inline constexpr char32_t kReplacement = 0xFFFD;

inline void AppendUtf8(std::string& bytes, char32_t point) {
  const auto append = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
  if (point < 0x80) {
    append(point);
  } else if (point < 0x800) {
    append(0xC0 | point >> 6);
    append(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    append(0xE0 | point >> 12);
    append(0x80 | (point >> 6 & 0x3F));
    append(0x80 | (point & 0x3F));
  } else {
    append(0xF0 | point >> 18);
    append(0x80 | (point >> 12 & 0x3F));
    append(0x80 | (point >> 6 & 0x3F));
    append(0x80 | (point & 0x3F));
  }
}

// Takes one character from the front; a byte that begins none is taken alone.
inline char32_t TakeCharacter(std::string_view& bytes) {
  const auto byte = [&bytes](std::size_t i) -> std::uint32_t {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
  };
  const std::uint32_t lead = byte(0);
  const std::size_t size = lead < 0x80   ? 1
                           : lead < 0xC2 ? 0
                           : lead < 0xE0 ? 2
                           : lead < 0xF0 ? 3
                                         : 4;
  char32_t point = size == 1 ? lead : size == 2 ? lead & 0x1F : size == 3 ? lead & 0xF : lead & 0x7;
  bool good = size > 0 && lead < 0xF5;
  for (std::size_t i = 1; i < size; ++i) {
    good = good && (byte(i) & 0xC0) == 0x80;
    point = point << 6 | (byte(i) & 0x3F);
  }
  // The shortest form only, no surrogates, nothing above Unicode's end.
  good = good && !(size == 3 && (point < 0x800 || (point >= 0xD800 && point < 0xE000))) &&
         !(size == 4 && (point < 0x10000 || point > 0x10FFFF));
  bytes.remove_prefix(good ? size : 1);
  return good ? point : kReplacement;
}

}  // namespace detail

inline std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool is_pair = point >= 0xD800 && point < 0xDC00 && i + 1 < text.size() &&
                         text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (is_pair) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (point >= 0xD800 && point < 0xE000) {
      point = detail::kReplacement;
    }
    detail::AppendUtf8(bytes, point);
  }
  return bytes;
}

// A NUL byte becomes U+FFFD as well: a text of the library would end there.
inline std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text;
  while (!bytes.empty()) {
    char32_t point = detail::TakeCharacter(bytes);
    if (point == 0) point = detail::kReplacement;
    if (point < 0x10000) {
      text += static_cast<char16_t>(point);
    } else {
      text += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
      text += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    }
  }
  return text;
}

}  // namespace programs
