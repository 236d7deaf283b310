#pragma once

// The library's print: a constant pattern, read at compile time, into an area with a limit.
//
//   BoundedPrint<u"%d/%02d/%02d">(block, 63, year, month, day)
//
// The whole text with its terminator is written or none of it: a text of `limit` units or more is
// refused, the target made the empty text (if the limit has room for that) and -1 returned. No unit
// at or beyond target[limit] is ever written. Otherwise the result is the count of units written,
// the terminator not counted.
//
// A pattern that is none of the family, a missing or surplus argument, or one whose values do not
// all fit its conversion, does not compile. A precision that is only known at run time ("%.*f")
// comes with its value, as a WithPrecision.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "frame/digits.h"
#include "frame/fixed_decimal.h"
#include "frame/pattern.h"

namespace qxfmt {

// A pattern as a template argument.
template <std::size_t kSize>
struct Pattern {
  char16_t units[kSize]{};

  consteval Pattern(const char16_t (&literal)[kSize]) { std::copy_n(literal, kSize, units); }

  constexpr std::u16string_view text() const { return {units, kSize - 1}; }
};

template <typename Value>
struct WithPrecision {
  Value value;
  std::int32_t precision;
};

namespace detail {

// A stretch of literal text and the conversion behind it; the last piece has none.
struct Piece {
  std::size_t literal_begin = 0;
  std::size_t literal_size = 0;
  bool has_conversion = false;
  Conversion conversion;
};

// Cut at each "%". The second "%" of a "%%" begins the literal of the next piece.
template <Pattern kPattern>
consteval std::size_t CountPieces() {
  std::size_t pieces = 1;
  for (std::u16string_view rest = kPattern.text(); !rest.empty();) {
    if (!TakeUnit(rest, u'%')) {
      rest.remove_prefix(1);
      continue;
    }
    Conversion conversion;
    if (!TakeConversion(rest, conversion)) return 0;
    ++pieces;
  }
  return pieces;
}

template <Pattern kPattern>
consteval auto CutPattern() {
  std::array<Piece, CountPieces<kPattern>()> pieces{};
  std::u16string_view rest = kPattern.text();
  for (Piece& piece : pieces) {
    piece.literal_begin = kPattern.text().size() - rest.size();
    for (; !rest.empty() && rest[0] != u'%'; rest.remove_prefix(1)) ++piece.literal_size;
    if (!TakeUnit(rest, u'%')) break;
    TakeConversion(rest, piece.conversion);
    if (piece.conversion.kind == Kind::kPercent) {
      ++piece.literal_size;  // one of the two signs
    } else {
      piece.has_conversion = true;
    }
  }
  return pieces;
}

template <Pattern kPattern>
inline constexpr auto kPieces = CutPattern<kPattern>();

template <Pattern kPattern>
consteval std::size_t CountConversions() {
  std::size_t conversions = 0;
  for (const Piece& piece : kPieces<kPattern>) conversions += piece.has_conversion ? 1U : 0U;
  return conversions;
}

// The argument that a piece prints.
template <Pattern kPattern>
consteval std::size_t ArgumentOf(std::size_t piece) {
  std::size_t argument = 0;
  for (std::size_t i = 0; i < piece; ++i) argument += kPieces<kPattern>[i].has_conversion ? 1U : 0U;
  return argument;
}

inline constexpr std::int32_t kUnbounded = -1;

// A field prints one argument: kMaxSize units at most, size() units exactly, Write writes them and
// returns the end.

// "%d", "%u" and their kin of 16, 32 and 64 bits, with or without a zero-filled width.
template <Conversion kConversion, typename Value>
class DecimalField {
 public:
  static constexpr std::int32_t kMaxSize =
      std::max(std::numeric_limits<Value>::digits10 + 1 + (std::is_signed_v<Value> ? 1 : 0),
               kConversion.width);

  explicit DecimalField(Value value) : negative_(value < 0), magnitude_(MagnitudeOf(value)) {}

  std::int32_t size() const { return (negative_ ? 1 : 0) + digits(); }

  char16_t* Write(char16_t* out) const {
    if constexpr (kConversion.width > 0) {
      // The usual case: the field is filled exactly, and the count of digits is a constant.
      if (!negative_ && magnitude_ < kPowersOfTen[kConversion.width]) [[likely]] {
        WriteDigits(out, magnitude_, kConversion.width);
        return out + kConversion.width;
      }
    }
    *out = u'-';
    out += negative_ ? 1 : 0;
    if constexpr (kConversion.width > 0) {
      const std::int32_t count = digits();
      WriteDigits(out, magnitude_, count);
      return out + count;
    } else {
      const std::int32_t count = CountDigits(magnitude_);
      WriteNumber<Grouping::kNone>(out, magnitude_, count);
      return out + count;
    }
  }

 private:
  using Magnitude = std::conditional_t<sizeof(Value) == 8, std::uint64_t, std::uint32_t>;

  static Magnitude MagnitudeOf(Value value) {
    const auto bits = static_cast<Magnitude>(value);
    return value < 0 ? Magnitude{0} - bits : bits;
  }

  std::int32_t digits() const {
    return std::max(CountDigits(magnitude_), kConversion.width - (negative_ ? 1 : 0));
  }

  bool negative_;
  Magnitude magnitude_;
};

// "%.*I64u": at least as many digits as the precision says, and none for a 0 at precision 0.
template <typename Value>
class PaddedField {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;

  explicit PaddedField(const WithPrecision<Value>& number)
      : magnitude_(number.value),
        digits_(std::max(number.value == 0 ? 0 : CountDigits(number.value), number.precision)) {
    static_assert(std::is_unsigned_v<Value>);
  }

  std::int32_t size() const { return digits_; }

  char16_t* Write(char16_t* out) const {
    WriteDigits(out, magnitude_, digits_);
    return out + digits_;
  }

 private:
  Value magnitude_;
  std::int32_t digits_;
};

// "%x", "%02X" and their kin.
template <Conversion kConversion, typename Value>
class HexField {
 public:
  static constexpr std::int32_t kMaxSize =
      std::max(static_cast<std::int32_t>(2 * sizeof(Value)), kConversion.width);

  explicit HexField(Value value) : value_(value) {}

  std::int32_t size() const { return std::max(CountHexDigits(value_), kConversion.width); }

  char16_t* Write(char16_t* out) const {
    const char16_t* const digits =
        kConversion.kind == Kind::kHexUpper ? kHexDigitsUpper : kHexDigitsLower;
    if constexpr (kConversion.width == kMaxSize) {
      WriteHexDigits(out, value_, kMaxSize, digits);
      return out + kMaxSize;
    } else {
      const std::int32_t count = size();
      WriteHexDigits(out, value_, count, digits);
      return out + count;
    }
  }

 private:
  Value value_;
};

// "%s"
class TextField {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;

  explicit TextField(std::u16string_view text) : text_(text) {}

  std::int32_t size() const { return static_cast<std::int32_t>(text_.size()); }

  char16_t* Write(char16_t* out) const {
    std::memcpy(out, text_.data(), text_.size() * sizeof(char16_t));
    return out + text_.size();
  }

 private:
  std::u16string_view text_;
};

// "%.2f", "%.*f"
class FixedField {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;

  explicit FixedField(const WithPrecision<double>& number)
      : decimal_(number.value, number.precision) {}

  std::int32_t size() const { return decimal_.size(); }
  char16_t* Write(char16_t* out) const { return decimal_.Write(out); }

 private:
  FixedDecimal decimal_;
};

// Whether every value of the type is one of the conversion's own.
template <Conversion kConversion, typename Value>
consteval bool FitsInteger() {
  if (!std::is_integral_v<Value>) return false;
  const std::size_t room = kConversion.bits;
  const std::size_t bits = 8 * sizeof(Value);
  const bool is_signed = kConversion.kind == Kind::kSigned;
  if (std::is_signed_v<Value>) return is_signed && bits <= room;
  return is_signed ? bits < room : bits <= room;
}

template <Conversion kConversion, typename Argument>
auto MakeField(const Argument& argument) {
  constexpr bool kRunTimePrecision = kConversion.precision == kPrecisionFromArgument;
  if constexpr (kConversion.kind == Kind::kText) {
    static_assert(std::is_convertible_v<Argument, std::u16string_view>);
    return TextField(argument);
  } else if constexpr (kConversion.kind == Kind::kFixed && kRunTimePrecision) {
    return FixedField(argument);
  } else if constexpr (kConversion.kind == Kind::kFixed) {
    static_assert(std::is_same_v<Argument, double> && kConversion.precision >= 0);
    return FixedField({argument, kConversion.precision});
  } else if constexpr (kRunTimePrecision) {
    static_assert(FitsInteger<kConversion, decltype(argument.value)>());
    return PaddedField(argument);
  } else {
    static_assert(FitsInteger<kConversion, Argument>(), "the argument can exceed its conversion");
    static_assert(kConversion.precision == kNoPrecision);
    static_assert(kConversion.zero_fill == (kConversion.width > 0), "blank-filled width");
    if constexpr (kConversion.is_hex()) {
      return HexField<kConversion, Argument>(argument);
    } else {
      return DecimalField<kConversion, Argument>(argument);
    }
  }
}

template <Pattern kPattern, std::size_t kPiece>
char16_t* WriteLiteral(char16_t* out) {
  constexpr Piece kThis = kPieces<kPattern>[kPiece];
  std::memcpy(out, kPattern.units + kThis.literal_begin, kThis.literal_size * sizeof(char16_t));
  return out + kThis.literal_size;
}

template <Pattern kPattern, std::size_t kPiece, typename Fields>
char16_t* WritePiece(char16_t* out, const Fields& fields) {
  out = WriteLiteral<kPattern, kPiece>(out);
  if constexpr (kPieces<kPattern>[kPiece].has_conversion) {
    out = std::get<ArgumentOf<kPattern>(kPiece)>(fields).Write(out);
  }
  return out;
}

template <Pattern kPattern>
consteval std::int32_t LiteralSize() {
  std::size_t size = 0;
  for (const Piece& piece : kPieces<kPattern>) size += piece.literal_size;
  return static_cast<std::int32_t>(size);
}

template <typename... Fields>
consteval std::int32_t MaxSize() {
  if (((Fields::kMaxSize == kUnbounded) || ...)) return kUnbounded;
  return (0 + ... + Fields::kMaxSize);
}

template <Pattern kPattern, std::size_t... kPieceIndex, typename... Fields>
std::int32_t PrintFields(std::index_sequence<kPieceIndex...> /*pieces*/, char16_t* target,
                         std::int32_t limit, const Fields&... fields) {
  constexpr std::int32_t kMaxFields = MaxSize<Fields...>();
  constexpr std::int32_t kLiterals = LiteralSize<kPattern>();
  // With a constant limit that the longest text fits, nothing is measured at run time.
  if (kMaxFields == kUnbounded || limit <= kMaxFields + kLiterals) {
    const std::int32_t size = (kLiterals + ... + fields.size());
    if (size >= limit) [[unlikely]] {
      if (limit > 0) *target = u'\0';
      return -1;
    }
  }
  char16_t* out = target;
  const auto all = std::tie(fields...);
  ((out = WritePiece<kPattern, kPieceIndex>(out, all)), ...);
  *out = u'\0';
  return static_cast<std::int32_t>(out - target);
}

template <Pattern kPattern, std::size_t... kPieceIndex>
consteval auto ConversionsOf(std::index_sequence<kPieceIndex...> /*pieces*/) {
  std::array<Conversion, CountConversions<kPattern>()> conversions{};
  std::size_t next = 0;
  for (const Piece& piece : kPieces<kPattern>) {
    if (piece.has_conversion) conversions[next++] = piece.conversion;
  }
  return conversions;
}

}  // namespace detail

template <Pattern kPattern, typename... Arguments>
std::int32_t BoundedPrint(char16_t* target, std::int32_t limit, const Arguments&... arguments) {
  static_assert(detail::CountPieces<kPattern>() > 0, "not a pattern of this print");
  constexpr std::make_index_sequence<detail::kPieces<kPattern>.size()> kPieceIndices;
  static_assert(detail::CountConversions<kPattern>() == sizeof...(Arguments));
  [[maybe_unused]] static constexpr auto kConversions =
      detail::ConversionsOf<kPattern>(kPieceIndices);

  return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
    return detail::PrintFields<kPattern>(kPieceIndices, target, limit,
                                         detail::MakeField<kConversions[kIndex]>(arguments)...);
  }
  (std::index_sequence_for<Arguments...>{});
}

}  // namespace qxfmt
