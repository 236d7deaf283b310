#pragma once

/// @file
/// Typed address text back into values, and tests of such text.
///
/// Texts are NUL-terminated 16-bit units. Units are compared whole: only the ASCII digits and
/// letters count as digits, so that neither full-width digits nor units that merely have the low
/// byte of a digit pass. No text is read beyond its terminator or further than an answer needs,
/// so that any sequence of units, of any length, may be given. A null text is refused like a bad
/// one.
///
/// A test returns exactly 1 or 0. No operation here throws, takes memory, reads a setting or the
/// locale, or keeps state: any thread may call any of them at any time.
///
/// An IPv4 address or a mask is a 32-bit value with the first octet of its text in the lowest 8
/// bits; a MAC address is a 64-bit value with the first octet in the lowest 8 bits. Both are
/// defined by arithmetic, the same on every machine.
///
/// Byte order: on a little-endian machine `in_addr.s_addr` is such an IPv4 value as it is, and
/// `htonl` or `ntohl` of it would reverse the octets. On a big-endian machine the bytes have to be
/// swapped. Right everywhere: octet i of the address in network order is `value >> (8 * i) & 0xFF`,
/// and the value is `o[0] | o[1] << 8 | o[2] << 16 | std::uint32_t{o[3]} << 24`. A port is its
/// number, as `ntohs(sin_port)` and `ntohs(sin6_port)` give it. The 16 bytes of an IPv6 address lie
/// in `in6_addr` as they are.
///
/// All functions have C++ linkage, overloaded or not, so that a call with the wrong types does not
/// link.

#include <cstdint>

#include <qxfmt/export.h>
#include <qxfmt/integer_types.h>
#include <qxfmt/text.h>

/// @name IPv4 addresses and ports
/// @{

/// Reads dotted decimal text of 1 to 15 units, and says how far it got.
///
/// Lax: a group may be empty (0) or have up to four digits, always decimal ("0255" is 255), and
/// trailing groups may be missing: "1.2" gives the octets 1, 2, 0, 0. Refused: any other
/// character, a value above 255 in a group, a fourth dot, a fifth digit.
/// `QXFMT_GetIpAddress(u"10.0.0.1", &valid)` gives 16777226.
/// @param text the address.
/// @param valid if not null, set to 0 on entry and to 1 at the end if exactly three dots were read.
/// @return the octets read; 0 for a refused text. "0.0.0.0" is 0 as well: only the flag tells. On a
///   little-endian machine it goes to `in_addr.s_addr` as it is, without `htonl`; on a big-endian
///   one with its bytes swapped.
[[nodiscard]] QXFMT_API std::uint32_t QXFMT_GetIpAddress(WideText text,
                                                         std::int32_t* valid) noexcept;

/// Strict: exactly four groups of one to three decimal digits, each at most 255, divided by three
/// dots, and nothing else. Leading zeros are allowed and change nothing: "010" is ten.
/// `QXFMT_IsValidIpAddress(u"10.0.0.256")` gives 0.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidIpAddress(WideText text) noexcept;

/// Reads a port: one to five digits, 65535 at most.
/// `QXFMT_GetPortVal(u"8080", &valid)` gives 8080.
/// @param text the port.
/// @param valid if not null, set to 0 on entry and to 1 on success.
/// @return the number of the port; `sin_port` and `sin6_port` take `htons` of it. 0 for a refused
///   text. Port 0 is a good port: only the flag tells.
[[nodiscard]] QXFMT_API std::uint16_t QXFMT_GetPortVal(WideText text, std::int32_t* valid) noexcept;

/// Whether `QXFMT_GetPortVal` reads the text.
/// `QXFMT_IsValidPort(u"65536")` gives 0.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidPort(WideText text) noexcept;

/// 1 for every port, 0 and 65535 included.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidPort(std::uint16_t port) noexcept;

/// Whether an integer of another type is 0 to 65535. `QXFMT_IsValidPort(65536)` gives 0.
template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint16_t>>
[[nodiscard]] constexpr std::int32_t QXFMT_IsValidPort(Integer port) noexcept {
  return !qxfmt::IsNegative(port) && static_cast<std::uint64_t>(port) <= 0xFFFF ? 1 : 0;
}
/// @}

/// @name IPv4 netmasks
/// @{

/// The mask with that many leading ones, counted from the highest bit of the first octet on: 24
/// gives 0x00FFFFFF, which is 255.255.255.0. Byte order as with addresses: on a little-endian
/// machine it masks `in_addr.s_addr` as it is.
/// `format.FormatIpAddress(QXFMT_BitsToMask(20))` gives "255.255.240.0".
/// @param bits the prefix length; above 32 the result is 0.
[[nodiscard]] QXFMT_API std::uint32_t QXFMT_BitsToMask(std::uint8_t bits) noexcept;

/// The count of leading ones, 0 to 32. What follows the first zero is not looked at: 255.0.255.0
/// gives 8. Byte order as with addresses: not `ntohl` of a mask in network order.
/// `QXFMT_MaskToBits(0x00F0FFFF)` gives 20.
[[nodiscard]] QXFMT_API std::uint8_t QXFMT_MaskToBits(std::uint32_t mask) noexcept;

/// Whether the mask is not 0 and each of its octets, taken by itself, is a run of ones followed by
/// a run of zeros. The ones need not run through from octet to octet: 255.0.255.0 passes. The order
/// of the octets does not matter to this test.
/// `QXFMT_IsValidIpMask(0x00F0FFFF)` gives 1.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidIpMask(std::uint32_t mask) noexcept;

/// The same test on text that `QXFMT_IsValidIpAddress` passes; 0 for any other text.
/// `QXFMT_IsValidIpMask(u"255.255.241.0")` gives 0.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidIpMask(WideText text) noexcept;
/// @}

/// @name MAC addresses
/// @{

/// Reads one or two hexadecimal digits in either case; what follows them is not looked at.
/// `QXFMT_GetHexValue(u"fF")` gives 255.
/// @return the first two units as high and low digit; the first alone if the second is no digit;
///   a first unit that is no digit counts as 0. 0 for a null or an empty text.
[[nodiscard]] QXFMT_API std::uint8_t QXFMT_GetHexValue(WideText text) noexcept;

/// Reads text that `QXFMT_IsValidMacAddress` passes. The digits are paired in order of appearance;
/// separators count for nothing, wherever they stand: "0011-2233-4455" and "001:122:334:455" are
/// 00:11:22:33:44:55.
/// `QXFMT_GetMacAddress(u"01:00:00:00:00:00", u':')` gives 1.
/// @param text the address.
/// @param separator one more unit to pass over while pairing. Only ":" and "-" can stand between
///   the digits of a text that the test passes, so that any other separator, "." for one, does not
///   make a text acceptable. A separator that is itself a hexadecimal digit is left out of the
///   pairs; what is then missing at the end is 0, and a digit left alone is the low half of its
///   octet.
/// @return the address, with bits 48 to 63 clear; all 64 bits set for a refused text.
[[nodiscard]] QXFMT_API std::uint64_t QXFMT_GetMacAddress(WideText text,
                                                          char16_t separator) noexcept;

/// The octets as a value, octets[0] in the lowest 8 bits.
/// `format.FormatMacAddress(QXFMT_GetMacAddress(mac, 6))` gives "00:1A:2B:3C:4D:5E".
/// @param octets not null; in the order of the text.
/// @param count six octets are read if it is 6, and eight otherwise, whatever it is.
[[nodiscard]] QXFMT_API std::uint64_t QXFMT_GetMacAddress(const std::uint8_t* octets,
                                                          std::int32_t count) noexcept;

/// Whether the text has 11 to 17 units, all of them hexadecimal digits, ":" or "-", and exactly
/// twelve digits. Where the separators stand does not matter.
/// `QXFMT_IsValidMacAddress(u"001a-2b3c-4d5e")` gives 1.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidMacAddress(WideText text) noexcept;

/// 1 for every value.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidMacAddress(std::uint64_t address) noexcept;

/// 1 for all octets and every count, null and 0 included; nothing is read.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidMacAddress(const std::uint8_t* octets,
                                                             std::int32_t count) noexcept;
/// @}

/// @name IPv6 addresses
/// @{

/// Reads the text forms of RFC 4291 section 2.2: eight groups, "::" for one or more zero groups,
/// and a dotted decimal tail for the last two (each part one to three digits, leading zeros
/// allowed, always decimal). Reads every text that `FormatIPv6Address` writes.
///
/// Beyond the RFC it takes blanks (U+0020): before and after the text, inside a group, beside a
/// colon, a "::" or a point, but not between the colons of a "::". It takes an empty first dotted
/// part ("::.1.2.3"), an empty second or third one with a blank in it ("::1. .2.3"), and, in a text
/// with "::", a final colon followed by a blank. Refused are zone suffixes, prefix lengths,
/// brackets, and texts of 100 units or more, not counting leading blanks, which may be any number.
/// `QXFMT_GetIPv6Address(u"2001:db8::1", bytes)` gives 1.
/// @param text the address.
/// @param address 16 bytes in network order, the `s6_addr` of an `in6_addr` for one; all written at
///   the end of success and untouched otherwise. Null to only test.
/// @return 1 if the text was read, else 0.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_GetIPv6Address(WideText text,
                                                          std::uint8_t* address) noexcept;

/// Whether `QXFMT_GetIPv6Address` reads the text.
/// `QXFMT_IsValidIPv6Address(u"2001::db8::1")` gives 0.
[[nodiscard]] QXFMT_API std::int32_t QXFMT_IsValidIPv6Address(WideText text) noexcept;
/// @}
