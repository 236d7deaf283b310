#pragma once

/// @file
/// The formatter: raw values in, short UTF-16 texts out.

#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/export.h>
#include <qxfmt/formats.h>
#include <qxfmt/integer_types.h>
#include <qxfmt/text.h>

/// Turns values into display text. The texts lie in an arena of the object.
///
/// Results: no operation returns null and none throws, unless it says so. A result stays valid, and
/// is never changed by a later call, until `Reset` or the object's destruction. No result is freed
/// by itself, so that an object that is never reset keeps growing. An operation may leave a block
/// that only helped to build its text in the arena as well.
///
/// Failures: when memory for a block cannot be had, an operation returns "[MEM_ERR]", and the
/// object stays usable. An operation that puts a unit, a date or a port beside the text of another
/// one prints that text as it is, a failure text included: "[MEM_ERR] KB".
///
/// Cost: a new object owns no memory until its first result, so that one on the stack for a single
/// call is cheap. An object that is reset now and then soon allocates nothing more.
///
/// Threads: calls on one object must not overlap; different objects share only the settings.
class QXFMT_API CQXDataFormat {
 public:
  CQXDataFormat();
  ~CQXDataFormat();
  CQXDataFormat(const CQXDataFormat&) = delete;

  /// Does nothing and returns the target: each object keeps its own arena and its own results.
  /// The arena is all the state that a formatter has, so that there is nothing else to assign.
  CQXDataFormat& operator=(const CQXDataFormat& source);

  /// Voids all results of this object and keeps its memory for the next ones. The static texts
  /// (failure texts and the empty text) stay valid.
  void Reset();

  /// @name Whole numbers
  /// @param value printed in decimal; every value of every type fits.
  /// @param grouped non-zero puts "," between groups of three digits: "-1,234,567".
  /// One block: 256 bytes for 64 bits, 128 for 32 bits, 64 for 16 bits.
  /// @{
  ResultText FormatNumber(std::uint64_t value, std::int32_t grouped);
  ResultText FormatNumber(std::int64_t value, std::int32_t grouped);
  ResultText FormatNumber(std::uint32_t value, std::int32_t grouped);
  ResultText FormatNumber(std::int32_t value, std::int32_t grouped);
  ResultText FormatNumber(std::uint16_t value, std::int32_t grouped);
  ResultText FormatNumber(std::int16_t value, std::int32_t grouped);
  /// @}

  /// @name Decimals
  /// The exact binary value is rounded to the places, exact ties to the even digit, as the
  /// conversion "%f" of the C standard does. The decimal point is that of the process's current C
  /// locale; the grouping comma is always ",". A negative zero keeps its sign. NaN and the
  /// infinities read "nan", "-nan", "inf" and "-inf". A text that is too long for its limit comes
  /// back empty. One block of 256 bytes unless an operation says otherwise.
  /// @{

  /// @param places decimals; capped to 0..32.
  /// @param grouped non-zero puts "," between groups of three digits of the integer part, and after
  ///   rounding: 999.999 with 2 places reads "1,000.00".
  /// At most 119 units ungrouped; grouped at most 127 with the commas.
  ResultText FormatNumberEx(double value, std::int32_t places, std::int32_t grouped);

  /// `FormatNumberEx` with the places of `QXFMT_SetNumberDecimalPlaces`.
  ResultText FormatNumber(double value, std::int32_t grouped);

  /// A whole number with a least count of digits: 5 with 3 reads "005".
  /// @param places least count of digits, filled with leading zeros; capped to 0..6. With 0 the
  ///   value 0 reads as the empty text.
  /// @param grouped as above; leading zeros are grouped like digits.
  ResultText FormatNumberEx(std::uint64_t value, std::int32_t places, std::int32_t grouped);

  /// Two decimals, never grouped, no setting read. One block of 128 bytes.
  ResultText FormatDecimal(float value);
  /// Two decimals, never grouped, no setting read. At most 126 units.
  ResultText FormatDecimal(double value);
  /// @}

  /// @name Data sizes
  /// A count of bytes (scaled by powers of 1024: "1.50 KB") or of bits (by powers of 1000:
  /// "1.50 Kb"). The unit is, in this order: the argument, if not 0, and then the number is
  /// grouped; the setting, if not 0; the largest that does not exceed the value, where a value of
  /// 2^63 or more counts as below all. It is not chosen again after rounding: 1048575 bytes with 2
  /// places read "1024.00 KB".
  /// @param places decimals as in `FormatNumberEx`. With 0 or less, bytes are cut off at the unit
  ///   (1536 bytes read "1 KB") while bits are rounded (1500 bits read "2 Kb").
  /// Two blocks, of 128 and of 256 bytes; only the first holds the result.
  /// @{
  ResultText FormatByte(std::uint64_t value, std::int32_t places);
  ResultText FormatByte(std::uint64_t value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  ResultText FormatBit(std::uint64_t value, std::int32_t places);
  ResultText FormatBit(std::uint64_t value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  /// @}

  /// @name Data rates
  /// As the sizes, with the texts "Bps", "KBps" and so on, or "bps", "Kbps" and so on. Where no
  /// places are given they are those of `QXFMT_SetNumberDecimalPlaces`. A rate given as a double
  /// takes its unit from its whole part (a negative one, a NaN and one outside the signed 64-bit
  /// range the smallest) and is rounded, never cut off. A text of more than 62 units comes back
  /// empty. Two blocks, of 128 and of 256 bytes; only the first holds the result.
  /// @{
  ResultText FormatBytePerSecond(std::uint64_t value);
  ResultText FormatBytePerSecond(double value);
  ResultText FormatBytePerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  ResultText FormatBytePerSecond(double value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  ResultText FormatBitPerSecond(std::uint64_t value);
  ResultText FormatBitPerSecond(double value);
  ResultText FormatBitPerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  ResultText FormatBitPerSecond(double value, QXFMT_BYTES_FORMAT unit, std::int32_t places);
  /// @}

  /// @name Percentages
  /// @param value a ratio, not a percentage: 1 reads "100%".
  /// Grouped if the setting of `QXFMT_SetPercentageDecimalPlaces` is not 0, as it is at start.
  /// @{

  /// The product with 100 is taken modulo 2^32. One block of 128 bytes.
  ResultText FormatPercentage(std::int32_t value);
  /// The product with 100 is taken in single precision and printed with the decimals of
  /// `QXFMT_SetNumberDecimalPlaces`. One block of 256 bytes.
  ResultText FormatPercentage(float value);
  /// @}

  /// @name Bit patterns
  /// All bits from the most significant to the least, with a blank between groups of four:
  /// "1010 0101". One block: 64 bytes for 8 and 16 bits, 128 bytes for 32 bits.
  /// @{
  ResultText FormatBinary(std::uint8_t value);
  ResultText FormatBinary(std::uint16_t value);
  ResultText FormatBinary(std::uint32_t value);
  /// @}

  /// @name IPv4 addresses
  /// @param address the first octet of the text in the lowest 8 bits: 0x0100007F is "127.0.0.1".
  /// @{

  /// One block of 40 bytes.
  ResultText FormatIpAddress(std::uint32_t address);
  /// Prints into the caller's area, takes no block and returns the area. At most the first 16 units
  /// are touched.
  /// @param buffer the area; not null unless the length is refused.
  /// @param length units of the area. Below 16, which the longest address with its terminator
  ///   takes, the area is left untouched and the result is "[BUF_LEN_ERR]".
  ResultText FormatIpAddress(std::uint32_t address, char16_t* buffer, std::int32_t length);
  /// "127.0.0.1:8080". One block of 128 bytes.
  ResultText FormatIpPort(std::uint32_t address, std::uint16_t port);
  /// @}

  /// @name Link-layer addresses
  /// @{

  /// "00:1A:2B:3C:4D:5E", the octet in the lowest 8 bits first; bits 48 to 63 are ignored. One
  /// block of 50 bytes.
  ResultText FormatMacAddress(std::uint64_t address);
  /// As many octets as `count` says, 1 to 8, in array order; no others are read. For any other
  /// count the text is "???" and nothing is read. One block of 64 bytes.
  ResultText FormatMacAddress(const std::uint8_t* octets, std::int32_t count);
  /// Not implemented: always the static text "NOIMPLEMENT". Reads nothing and takes no block.
  ResultText FormatIPXAddress(const std::uint8_t* octets, std::int32_t count);
  /// @}

  /// @name IPv6 addresses
  /// @param address 16 bytes in network order, only read. Null gives "[INPUT_ERR_NULL]".
  ///
  /// Each text is valid under RFC 4291 section 2.2. The run that becomes "::" is the first of the
  /// longest runs of zero bytes, cut to whole groups; one whole group is enough, and if none is
  /// left there is no "::". That is why the text can differ from the one of RFC 5952.
  /// @{

  /// One block of 100 bytes.
  ResultText FormatIPv6Address(const std::uint8_t* address, QXFMT_IPV6_TYPE type);
  /// "[2001:db8::1]:443". A failure text of the address stands in the brackets. Two blocks, of 128
  /// and of 100 bytes; only the first holds the result.
  ResultText FormatIpv6Port(const std::uint8_t* address, std::uint16_t port, QXFMT_IPV6_TYPE type);
  /// @}

  /// @name Integer types of the same width under another name
  /// `unsigned long long` where `std::uint64_t` is `unsigned long`, and the like: they go to the
  /// overload of their width. A rate or a count takes any unsigned type.
  /// @{
  template <typename Integer, typename = qxfmt::OtherInteger<Integer>>
  ResultText FormatNumber(Integer value, std::int32_t grouped) {
    return FormatNumber(static_cast<qxfmt::FixedWidth<Integer>>(value), grouped);
  }
  template <typename Integer, typename = qxfmt::OtherUnsigned<Integer>>
  ResultText FormatNumberEx(Integer value, std::int32_t places, std::int32_t grouped) {
    return FormatNumberEx(std::uint64_t{value}, places, grouped);
  }
  template <typename Integer, typename = qxfmt::OtherUnsigned<Integer>>
  ResultText FormatBytePerSecond(Integer value) {
    return FormatBytePerSecond(std::uint64_t{value});
  }
  template <typename Integer, typename = qxfmt::OtherUnsigned<Integer>>
  ResultText FormatBytePerSecond(Integer value, QXFMT_BYTES_FORMAT unit, std::int32_t places) {
    return FormatBytePerSecond(std::uint64_t{value}, unit, places);
  }
  template <typename Integer, typename = qxfmt::OtherUnsigned<Integer>>
  ResultText FormatBitPerSecond(Integer value) {
    return FormatBitPerSecond(std::uint64_t{value});
  }
  template <typename Integer, typename = qxfmt::OtherUnsigned<Integer>>
  ResultText FormatBitPerSecond(Integer value, QXFMT_BYTES_FORMAT unit, std::int32_t places) {
    return FormatBitPerSecond(std::uint64_t{value}, unit, places);
  }
  /// @}

 private:
  CQXBlockBuffer blocks_;
};
