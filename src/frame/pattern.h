#pragma once

// The conversions of a print pattern, read the same way at compile time and at run time.

#include <cstddef>
#include <cstdint>

namespace qxfmt {

enum class Kind : std::uint8_t {
  kPercent,   // "%%"
  kSigned,    // "%d"
  kUnsigned,  // "%u"
  kHexLower,  // "%x"
  kHexUpper,  // "%X"
  kText,      // "%s", always a WideText
  kFixed,     // "%f"
};

inline constexpr std::int32_t kNoPrecision = -1;
inline constexpr std::int32_t kPrecisionFromArgument = -2;  // "%.*f"

struct Conversion {
  Kind kind = Kind::kPercent;
  std::uint8_t bits = 32;  // of an integer argument: "%hd" 16, "%d" and "%ld" 32, "%I64d" 64
  bool zero_fill = false;
  std::int32_t width = 0;
  std::int32_t precision = kNoPrecision;

  constexpr bool is_hex() const { return kind == Kind::kHexLower || kind == Kind::kHexUpper; }
  constexpr bool is_integer() const {
    return kind == Kind::kSigned || kind == Kind::kUnsigned || is_hex();
  }
};

namespace detail {

// At most three digits, so that no pattern can overflow a number. Null if there are more.
constexpr const char16_t* ReadCount(const char16_t* at, std::int32_t& count) {
  count = 0;
  for (int digits = 0; *at >= u'0' && *at <= u'9'; ++at) {
    if (++digits > 3) return nullptr;
    count = count * 10 + (*at - u'0');
  }
  return at;
}

constexpr bool ReadKind(char16_t letter, Kind& kind) {
  switch (letter) {
    case u'd':
      kind = Kind::kSigned;
      return true;
    case u'u':
      kind = Kind::kUnsigned;
      return true;
    case u'x':
      kind = Kind::kHexLower;
      return true;
    case u'X':
      kind = Kind::kHexUpper;
      return true;
    case u's':
      kind = Kind::kText;
      return true;
    case u'f':
      kind = Kind::kFixed;
      return true;
    default:
      return false;
  }
}

}  // namespace detail

// Reads the conversion that begins at `at`, directly behind its "%". Returns the unit behind it, or
// null if it is none of the family.
constexpr const char16_t* ReadConversion(const char16_t* at, Conversion& conversion) {
  conversion = Conversion{};
  if (*at == u'%') return at + 1;

  if (*at == u'0') {
    conversion.zero_fill = true;
    ++at;
  }
  at = detail::ReadCount(at, conversion.width);
  if (at == nullptr) return nullptr;

  if (*at == u'.') {
    ++at;
    if (*at == u'*') {
      conversion.precision = kPrecisionFromArgument;
      ++at;
    } else {
      at = detail::ReadCount(at, conversion.precision);
      if (at == nullptr) return nullptr;
    }
  }

  bool has_size = true;
  if (*at == u'h') {
    conversion.bits = 16;
    ++at;
  } else if (*at == u'l') {
    ++at;
  } else if (at[0] == u'I' && at[1] == u'6' && at[2] == u'4') {
    conversion.bits = 64;
    at += 3;
  } else {
    has_size = false;
  }
  if (!detail::ReadKind(*at, conversion.kind)) return nullptr;
  if (has_size && !conversion.is_integer()) return nullptr;
  return at + 1;
}

}  // namespace qxfmt
