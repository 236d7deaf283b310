#pragma once

/// @file
/// `qxfmt::Utf8` as an argument of `std::format`, where the standard library has it. The
/// format is that of a string: width, fill and precision count characters.
/// `std::format("{:>9}", qxfmt::Utf8(u"1.50 KB"))` makes "  1.50 KB".
///
/// Defines QXFMT_HAS_STD_FORMAT; elsewhere this header has nothing. Takes no memory of its own; any
/// thread may use it at any time.

#include <string_view>

#if __cplusplus >= 202002L || (defined(_MSVC_LANG) && _MSVC_LANG >= 202002L)
#if __has_include(<format>)
#include <format>
#endif
#endif

#include <qxfmt/utf8.h>

#if defined(__cpp_lib_format)
#define QXFMT_HAS_STD_FORMAT
#elif defined(_LIBCPP_VERSION) && _LIBCPP_VERSION >= 160000 && __cplusplus >= 202002L && \
    !defined(_LIBCPP_HAS_NO_INCOMPLETE_FORMAT)
#define QXFMT_HAS_STD_FORMAT  // libc++ has had it, also as an experiment, before its macro
#endif

#if defined(QXFMT_HAS_STD_FORMAT)
/// @cond
template <>
struct std::formatter<qxfmt::Utf8> : std::formatter<std::string_view> {
  template <typename Context>
  auto format(const qxfmt::Utf8& text, Context& context) const {
    return std::formatter<std::string_view>::format(std::string_view(text), context);
  }
};
/// @endcond
#endif
