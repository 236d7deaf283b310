#pragma once

// The conversions of the patterns that callers give to GrowableText::append_format.

#include <cstddef>
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

// Takes units from the front of a pattern and looks at none beyond its end.
class PatternReader {
 public:
  explicit PatternReader(std::u16string_view pattern)
      : at_(pattern.data()), end_(pattern.data() + pattern.size()) {}

  bool done() const { return at_ == end_; }

  // Everything up to the next "%".
  std::u16string_view TakeLiteral() {
    const char16_t* const begin = at_;
    while (at_ != end_ && *at_ != u'%') ++at_;
    return {begin, static_cast<std::size_t>(at_ - begin)};
  }

  // The conversion that begins with the next unit, a "%". False if it is unknown.
  bool TakeConversion(Conversion& conversion) {
    ++at_;
    conversion = Conversion{};
    if (Take(u'%')) return true;
    conversion.zero_fill = Take(u'0');
    if (!TakeCount(conversion.width)) return false;
    if (Take(u'.') && !TakeCount(conversion.precision)) return false;
    const bool has_size = TakeSize(conversion.bits);
    return TakeKind(conversion.kind) && (!has_size || conversion.is_integer());
  }

 private:
  char16_t Peek() const { return at_ != end_ ? *at_ : u'\0'; }

  bool Take(char16_t unit) {
    if (Peek() != unit) return false;
    ++at_;
    return true;
  }

  // A number of at most three digits, so that no pattern can overflow it; none gives 0. False if
  // there are more.
  bool TakeCount(std::int32_t& count) {
    count = 0;
    for (int digits = 0; Peek() >= u'0' && Peek() <= u'9'; ++at_) {
      if (++digits > 3) return false;
      count = count * 10 + (*at_ - u'0');
    }
    return true;
  }

  // The size of an integer argument. False if there is none.
  bool TakeSize(std::uint8_t& bits) {
    if (Take(u'l')) return true;
    if (Take(u'h')) {
      bits = 16;
      return true;
    }
    if (end_ - at_ < 3 || at_[0] != u'I' || at_[1] != u'6' || at_[2] != u'4') return false;
    at_ += 3;
    bits = 64;
    return true;
  }

  bool TakeKind(Kind& kind) {
    switch (Peek()) {
      case u'd':
        kind = Kind::kSigned;
        break;
      case u'u':
        kind = Kind::kUnsigned;
        break;
      case u'x':
        kind = Kind::kHexLower;
        break;
      case u'X':
        kind = Kind::kHexUpper;
        break;
      case u's':
        kind = Kind::kText;
        break;
      case u'f':
        kind = Kind::kFixed;
        break;
      default:
        return false;
    }
    ++at_;
    return true;
  }

  const char16_t* at_;
  const char16_t* end_;
};

}  // namespace qxfmt
