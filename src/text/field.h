#pragma once

// A field is a piece of text that writes itself:
//
//   kMaxSize    units of its longest text; kUnbounded where only its size() tells
//   kSlack      units beyond that text which Write may touch as well; what follows overwrites them
//   size()      units of this very text; only where that is known without writing it
//   Write(out)  writes the text without a terminator and returns its end
//
// A field with size() touches kSlack units beyond its own text, one without it kSlack units beyond
// its longest text.

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

namespace qxfmt {

inline constexpr std::int32_t kUnbounded = std::numeric_limits<std::int32_t>::max();

template <typename Type>
concept Field = requires(const Type& field, char16_t* out) {
  { Type::kMaxSize } -> std::convertible_to<std::int32_t>;
  { Type::kSlack } -> std::convertible_to<std::int32_t>;
  { field.Write(out) } -> std::same_as<char16_t*>;
};

// A field that knows its size before it is written.
template <typename Type>
concept MeasuredField = Field<Type> && requires(const Type& field) {
  { field.size() } -> std::convertible_to<std::size_t>;
};

// Units that the text has at most, as far as that is known without writing it.
template <Field Piece>
inline std::size_t SizeBound(const Piece& field) {
  if constexpr (MeasuredField<Piece>) {
    return field.size();
  } else {
    return Piece::kMaxSize;
  }
}

// A single unit.
class CodeUnit {
 public:
  static constexpr std::int32_t kMaxSize = 1;
  static constexpr std::int32_t kSlack = 0;

  explicit CodeUnit(char16_t unit) : unit_(unit) {}

  static constexpr std::size_t size() { return 1; }

  char16_t* Write(char16_t* out) const {
    *out = unit_;
    return out + 1;
  }

 private:
  char16_t unit_;
};

// A string literal.
template <std::size_t kUnits>
class Literal {
 public:
  static constexpr std::int32_t kMaxSize = kUnits - 1;
  static constexpr std::int32_t kSlack = 0;

  explicit Literal(const char16_t (&units)[kUnits]) : units_(units) {}

  static constexpr std::size_t size() { return kUnits - 1; }

  char16_t* Write(char16_t* out) const {
    std::memcpy(out, units_, (kUnits - 1) * sizeof(char16_t));
    return out + (kUnits - 1);
  }

 private:
  const char16_t (&units_)[kUnits];
};

// Any text. It must not lie where it is written.
class Text {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;
  static constexpr std::int32_t kSlack = 0;

  explicit Text(std::u16string_view text) : text_(text) {}

  std::size_t size() const { return text_.size(); }

  char16_t* Write(char16_t* out) const {
    if (!text_.empty()) std::memcpy(out, text_.data(), text_.size() * sizeof(char16_t));
    return out + text_.size();
  }

 private:
  std::u16string_view text_;
};

// A minus or nothing.
class Minus {
 public:
  static constexpr std::int32_t kMaxSize = 1;
  static constexpr std::int32_t kSlack = 0;

  explicit Minus(bool shows) : shows_(shows) {}

  char16_t* Write(char16_t* out) const {
    *out = u'-';
    return out + (shows_ ? 1 : 0);
  }

 private:
  bool shows_;
};

}  // namespace qxfmt
