#pragma once

// The conversions of the patterns that callers give to GrowableText::append_format.

#include <cstdint>
#include <string_view>

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

struct Conversion {
  Kind kind = Kind::kPercent;
  std::uint8_t bits = 32;  // of an integer argument: "%hd" 16, "%d" and "%ld" 32, "%I64d" 64
  bool zero_fill = false;
  std::int32_t width = 0;
  std::int32_t precision = kNoPrecision;

  bool is_hex() const { return kind == Kind::kHexLower || kind == Kind::kHexUpper; }
  bool is_integer() const { return kind == Kind::kSigned || kind == Kind::kUnsigned || is_hex(); }
};

namespace detail {

inline bool TakeUnit(std::u16string_view& text, char16_t unit) {
  if (text.empty() || text.front() != unit) return false;
  text.remove_prefix(1);
  return true;
}

// Takes a number of at most three digits, so that no pattern can overflow it; none gives 0. False
// if there are more.
inline bool TakeCount(std::u16string_view& text, std::int32_t& count) {
  count = 0;
  for (int digits = 0; !text.empty() && text[0] >= u'0' && text[0] <= u'9'; ++digits) {
    if (digits == 3) return false;
    count = count * 10 + (text[0] - u'0');
    text.remove_prefix(1);
  }
  return true;
}

// Takes the size of an integer argument. False if there is none.
inline bool TakeSize(std::u16string_view& text, std::uint8_t& bits) {
  if (TakeUnit(text, u'l')) return true;
  if (TakeUnit(text, u'h')) {
    bits = 16;
    return true;
  }
  if (text.substr(0, 3) != u"I64") return false;
  text.remove_prefix(3);
  bits = 64;
  return true;
}

inline bool TakeKind(std::u16string_view& text, Kind& kind) {
  static constexpr struct {
    char16_t letter;
    Kind kind;
  } kLetters[] = {{u'd', Kind::kSigned},   {u'u', Kind::kUnsigned}, {u'x', Kind::kHexLower},
                  {u'X', Kind::kHexUpper}, {u's', Kind::kText},     {u'f', Kind::kFixed}};
  for (const auto& entry : kLetters) {
    if (!TakeUnit(text, entry.letter)) continue;
    kind = entry.kind;
    return true;
  }
  return false;
}

}  // namespace detail

// Takes the conversion at the front of the text, which follows its "%". False if there is no
// conversion of these kinds. Reads no unit beyond the end of the text.
inline bool TakeConversion(std::u16string_view& text, Conversion& conversion) {
  conversion = Conversion{};
  if (detail::TakeUnit(text, u'%')) return true;
  conversion.zero_fill = detail::TakeUnit(text, u'0');
  if (!detail::TakeCount(text, conversion.width)) return false;
  if (detail::TakeUnit(text, u'.') && !detail::TakeCount(text, conversion.precision)) return false;
  const bool has_size = detail::TakeSize(text, conversion.bits);
  if (!detail::TakeKind(text, conversion.kind)) return false;
  return !has_size || conversion.is_integer();
}

}  // namespace qxfmt
