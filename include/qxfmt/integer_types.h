#pragma once

/// @file
/// The integer types that the fixed-width overloads of `CQXDataFormat` do not name themselves.

#include <cstdint>
#include <type_traits>

/// What the declarations of the interface need. Not for direct use.
namespace qxfmt {

/// Whether the first type is one of the others.
template <typename Type, typename... Types>
inline constexpr bool kIsAnyOf = (std::is_same_v<Type, Types> || ...);

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

/// Unsigned integers other than `std::uint64_t` itself. Signed ones are left out on purpose: a
/// negative count would silently become a huge one.
template <typename Integer>
using OtherUnsigned = std::enable_if_t<std::is_integral_v<Integer> && std::is_unsigned_v<Integer> &&
                                       !kIsAnyOf<Integer, bool, std::uint64_t>>;

}  // namespace qxfmt
