#pragma once

// The one way in which text gets into a block, or into any area with a limit:
//
//   BoundedPrint(block, 63, Dotted(address), u':', Decimal(port))
//
// The pieces are fields, units, literals and texts. All of the text is written with a terminator,
// or nothing is: a text of `limit` units or more is refused, the target made the empty text (if the
// limit has room for that) and -1 returned. No unit at or beyond target[limit] is ever written.
// Otherwise the result is the count of units without the terminator.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/field.h"

namespace qxfmt {

namespace detail {

inline CodeUnit AsField(char16_t unit) { return CodeUnit(unit); }
inline Text AsField(std::u16string_view text) { return Text(text); }
template <std::size_t kUnits>
inline Literal<kUnits> AsField(const char16_t (&units)[kUnits]) {
  return Literal<kUnits>(units);
}
template <Field Piece>
inline const Piece& AsField(const Piece& field) {
  return field;
}

}  // namespace detail

// The units of a field's text.
template <Field Piece>
inline std::size_t SizeOf(const Piece& field) {
  if constexpr (MeasuredField<Piece>) {
    return field.size();
  } else {
    char16_t scratch[Piece::kMaxSize + Piece::kSlack + 1];
    return static_cast<std::size_t>(field.Write(scratch) - scratch);
  }
}

// Writes a field and touches no unit beyond its end.
template <Field Piece>
inline char16_t* WriteExactly(char16_t* out, const Piece& field) {
  if constexpr (MeasuredField<Piece> && Piece::kSlack == 0) {
    return field.Write(out);
  } else {
    char16_t scratch[Piece::kMaxSize + Piece::kSlack + 1];
    return std::copy(scratch, field.Write(scratch), out);
  }
}

namespace detail {

// For a limit that the longest texts could reach, or their slack.
template <Field... Fields>
[[gnu::noinline, gnu::cold]] std::int32_t PrintExactly(char16_t* target, std::int32_t limit,
                                                       const Fields&... fields) noexcept {
  if (limit <= 0) return -1;
  if ((SizeOf(fields) + ... + 0) >= static_cast<std::size_t>(limit)) {
    *target = u'\0';
    return -1;
  }
  char16_t* out = target;
  ((out = WriteExactly(out, fields)), ...);
  *out = u'\0';
  return static_cast<std::int32_t>(out - target);
}

// Inline, so that the fields stay in registers.
template <Field... Fields>
[[gnu::always_inline]] inline std::int32_t PrintFields(char16_t* target, std::int32_t limit,
                                                       const Fields&... fields) {
  constexpr std::int32_t kAfter = std::max({std::int32_t{1}, Fields::kSlack...});  // or terminator
  // Where all sizes are constants the compiler sees the answer, and nothing is measured.
  const std::size_t most = (SizeBound(fields) + ... + std::size_t{kAfter});
  if (limit <= 0 || most > static_cast<std::size_t>(limit)) [[unlikely]] {
    return PrintExactly(target, limit, fields...);
  }
  char16_t* out = target;
  ((out = fields.Write(out)), ...);
  *out = u'\0';
  return static_cast<std::int32_t>(out - target);
}

}  // namespace detail

template <typename... Pieces>
[[gnu::always_inline]] inline std::int32_t BoundedPrint(char16_t* target, std::int32_t limit,
                                                        const Pieces&... pieces) {
  return detail::PrintFields(target, limit, detail::AsField(pieces)...);
}

}  // namespace qxfmt
