#pragma once

/// @file
/// `qxfmt::Utf8` as an argument of fmt, from its version 9 on. Its format is that of a
/// string: width, fill and precision count characters.
/// `fmt::format("{:>9}", qxfmt::Utf8(u"1.50 KB"))` gives "  1.50 KB".
///
/// Takes no memory of its own; any thread may use it at any time.

#include <string_view>

#include <fmt/format.h>

#include <qxfmt/utf8.h>

/// @cond
template <>
struct fmt::formatter<qxfmt::Utf8> : fmt::formatter<std::string_view> {
  template <typename Context>
  auto format(const qxfmt::Utf8& text, Context& context) const {
    return fmt::formatter<std::string_view>::format(std::string_view(text), context);
  }
};
/// @endcond
