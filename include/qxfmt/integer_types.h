#pragma once

/// @file
/// The integer types that the fixed-width overloads of the interface do not name themselves.

#include <cstdint>
#include <type_traits>

/// @def QXFMT_REFUSE_NEGATIVE
/// Behind the parameters of a function: a call with a constant below 0 does not compile. clang sees
/// constants; g++ does so in the body, with `qxfmt::ExpectCount`, and other compilers do not.
#if defined(__clang__)
#define QXFMT_REFUSE_NEGATIVE(value) \
  __attribute__((diagnose_if((value) < 0, "a count of bytes or bits cannot be negative", "error")))
#else
#define QXFMT_REFUSE_NEGATIVE(value)
#endif

/// What the declarations of the interface need. Not for direct use.
namespace qxfmt {

/// Whether the first type is one of the others.
template <typename Type, typename... Types>
inline constexpr bool kIsAnyOf = (std::is_same_v<Type, Types> || ...);

/// Whether a type holds whole numbers of at most 64 bits; `bool` does not.
template <typename Type>
inline constexpr bool kIsInteger = std::is_integral_v<Type> && sizeof(Type) <= 8 &&
                                   !std::is_same_v<std::remove_cv_t<Type>, bool>;

/// All integers except those of the overloads that are there already.
template <typename Integer, typename... Overloads>
using IntegerExcept = std::enable_if_t<kIsInteger<Integer> && !kIsAnyOf<Integer, Overloads...>>;

/// 32 and 64 bits wide integers under other names than the fixed-width ones, such as
/// `unsigned long long` where `std::uint64_t` is `unsigned long`. Narrower ones are left to the
/// language's promotions.
template <typename Integer>
using OtherInteger =
    std::enable_if_t<std::is_integral_v<Integer> &&
                     (sizeof(Integer) == 4 || sizeof(Integer) == 8) &&
                     !kIsAnyOf<Integer, std::int32_t, std::uint32_t, std::int64_t, std::uint64_t>>;

/// The fixed-width type that holds every value of `Integer`.
template <typename Integer>
using FixedWidth =
    std::conditional_t<sizeof(Integer) == 8,
                       std::conditional_t<std::is_signed_v<Integer>, std::int64_t, std::uint64_t>,
                       std::conditional_t<std::is_signed_v<Integer>, std::int32_t, std::uint32_t>>;

/// Numbers that become ratios: those with a fraction, and integers that promotion leaves as they
/// are.
template <typename Number>
using OtherRatio = std::enable_if_t<!kIsAnyOf<Number, float, std::int32_t> &&
                                    (std::is_floating_point_v<Number> ||
                                     (kIsInteger<Number> && sizeof(Number) >= 4))>;

/// Signed integers.
template <typename Integer>
using SignedInteger = std::enable_if_t<kIsInteger<Integer> && std::is_signed_v<Integer>>;

/// Whether a number is below 0. No compiler warns of it where the type has no such numbers.
template <typename Integer>
constexpr bool IsNegative(Integer value) noexcept {
  if constexpr (std::is_signed_v<Integer>) {
    return value < 0;
  } else {
    return false;
  }
}

#if defined(__GNUC__) && !defined(__clang__) && defined(__OPTIMIZE__)
/// Not defined anywhere: a call that is left after optimization is an error.
[[gnu::error("a count of bytes or bits cannot be negative")]] void RefuseNegativeCount();

/// The count as the overloads of `std::uint64_t` take it. One that is known to be negative does not
/// compile.
template <typename Integer>
[[gnu::always_inline]] inline std::uint64_t ExpectCount(Integer value) noexcept {
  if (__builtin_constant_p(value) && value < 0) RefuseNegativeCount();
  return static_cast<std::uint64_t>(value);
}
#else
/// The count as the overloads of `std::uint64_t` take it.
template <typename Integer>
std::uint64_t ExpectCount(Integer value) noexcept {
  return static_cast<std::uint64_t>(value);
}
#endif

}  // namespace qxfmt
