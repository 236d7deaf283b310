#pragma once

/// @file
/// `qxfmt::Utf8` as an argument of fmt, from its version 9 on: `fmt::print("{:>12}",
/// qxfmt::Utf8(format.FormatByte(1536, 2)))`. The specification is that of a string.

#include <string_view>

#include <fmt/format.h>

#include <qxfmt/utf8.h>

/// Prints the bytes as a string.
template <>
struct fmt::formatter<qxfmt::Utf8> : fmt::formatter<std::string_view> {
  /// `fmt::format("{:>9}", qxfmt::Utf8(u"1.50 KB"))` gives "  1.50 KB".
  template <typename Context>
  auto format(const qxfmt::Utf8& text, Context& context) const {
    return fmt::formatter<std::string_view>::format(std::string_view(text), context);
  }
};
