#pragma once

/// @file
/// The formatter: raw values in, short UTF-16 texts out.

#include <cstdint>
#include <type_traits>

#include <qxfmt/block_buffer.h>
#include <qxfmt/export.h>
#include <qxfmt/formats.h>
#include <qxfmt/integer_types.h>
#include <qxfmt/text.h>

class GrowableText;

#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wgcc-compat"  // the place of QXFMT_REFUSE_NEGATIVE
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4251)  // the arena is not exported: only the library calls it
#endif

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
/// call is cheap. An object that is reset now and then soon allocates nothing more. Only a
/// worded duration may ask for other memory: where `std::pmr::get_default_resource()` is not the
/// process's heap, it asks that resource for a string and gives it back.
///
/// Threads: calls on one object must not overlap. Different objects share the settings, which any
/// thread may change at any time, and the C library's locale and time zone, which may not change
/// during a call that reads them.
class QXFMT_API CQXDataFormat {
 public:
  /// Takes no memory.
  CQXDataFormat() noexcept;
  /// Voids all results in the arena and gives its memory back.
  ~CQXDataFormat();
  /// Not available: a result belongs to one object.
  CQXDataFormat(const CQXDataFormat&) = delete;

  /// Does nothing and returns the target: each object keeps its own arena and its own results.
  /// The arena is all the state that a formatter has, so that there is nothing else to assign.
  CQXDataFormat& operator=(const CQXDataFormat& source) noexcept;

  /// Voids all results of this object and keeps its memory for the next ones. The static texts
  /// (failure texts and the empty text) stay valid. Forgets what the object learned of the zone.
  void Reset() noexcept;

  /// @name Whole numbers
  /// Decimal text of an integer; every value of every type fits. No setting is read.
  /// @param value the number.
  /// @param grouped non-zero puts "," between groups of three digits: "-1,234,567".
  /// @{

  /// At most "18,446,744,073,709,551,615". One block of 256 bytes.
  /// `format.FormatNumber(std::uint64_t{1234567}, 1)` gives "1,234,567".
  [[nodiscard]] ResultText FormatNumber(std::uint64_t value, std::int32_t grouped) noexcept;
  /// At most "-9,223,372,036,854,775,808". One block of 256 bytes.
  /// `format.FormatNumber(std::int64_t{-1234567}, 0)` gives "-1234567".
  [[nodiscard]] ResultText FormatNumber(std::int64_t value, std::int32_t grouped) noexcept;
  /// At most "4,294,967,295". One block of 128 bytes.
  /// `format.FormatNumber(std::uint32_t{65536}, 1)` gives "65,536".
  [[nodiscard]] ResultText FormatNumber(std::uint32_t value, std::int32_t grouped) noexcept;
  /// At most "-2,147,483,648". One block of 128 bytes.
  /// `format.FormatNumber(-1234, 1)` gives "-1,234".
  [[nodiscard]] ResultText FormatNumber(std::int32_t value, std::int32_t grouped) noexcept;
  /// At most "65,535". One block of 64 bytes.
  /// `format.FormatNumber(std::uint16_t{8080}, 0)` gives "8080".
  [[nodiscard]] ResultText FormatNumber(std::uint16_t value, std::int32_t grouped) noexcept;
  /// At most "-32,768". One block of 64 bytes.
  /// `format.FormatNumber(std::int16_t{-1}, 1)` gives "-1".
  [[nodiscard]] ResultText FormatNumber(std::int16_t value, std::int32_t grouped) noexcept;
  /// @}

  /// @name Decimals
  /// The exact binary value is rounded to the places, exact ties to the even digit, as the
  /// conversion "%f" of the C standard does. The decimal point is that of the C locale that the
  /// calling thread is in, so that no other thread may call `setlocale` meanwhile; the grouping
  /// comma is always ",". A negative zero keeps its sign. NaN and the infinities read "nan",
  /// "-nan", "inf" and "-inf", without decimals. A text that is too long for its limit comes back
  /// empty. One block of 256 bytes unless an operation says otherwise.
  /// @{

  /// A number with a given count of decimals. At most 119 units ungrouped; grouped at most 127 with
  /// the commas.
  /// `format.FormatNumberEx(999.999, 2, 1)` gives "1,000.00".
  /// @param value the number.
  /// @param places decimals; capped to 0..32.
  /// @param grouped non-zero puts "," between groups of three digits of the integer part, and after
  ///   rounding: 999.999 with 2 places reads "1,000.00".
  [[nodiscard]] ResultText FormatNumberEx(double value, std::int32_t places,
                                          std::int32_t grouped) noexcept;

  /// `FormatNumberEx` with the places of `QXFMT_SetNumberDecimalPlaces`.
  /// `format.FormatNumber(1234.5, 1)` gives "1,234.50".
  [[nodiscard]] ResultText FormatNumber(double value, std::int32_t grouped) noexcept;

  /// A whole number with a least count of digits: 5 with 3 reads "005". Every value fits.
  /// `format.FormatNumberEx(std::uint64_t{5}, 3, 0)` gives "005".
  /// @param value the number.
  /// @param places least count of digits, filled with leading zeros; capped to 0..6. With 0 the
  ///   value 0 reads as the empty text.
  /// @param grouped non-zero puts "," between groups of three digits, leading zeros included.
  [[nodiscard]] ResultText FormatNumberEx(std::uint64_t value, std::int32_t places,
                                          std::int32_t grouped) noexcept;

  /// Two decimals, never grouped, no setting read. Every value fits: at most 43 units. One block
  /// of 128 bytes.
  /// `format.FormatDecimal(0.5f)` gives "0.50".
  [[nodiscard]] ResultText FormatDecimal(float value) noexcept;
  /// Two decimals, never grouped, no setting read. At most 126 units.
  /// `format.FormatDecimal(2.675)` gives "2.67".
  [[nodiscard]] ResultText FormatDecimal(double value) noexcept;
  /// @}

  /// @name Data sizes
  /// A count of bytes (scaled by powers of 1024: "1.50 KB") or of bits (by powers of 1000:
  /// "1.50 Kb"). The unit is, in this order: the argument, if not 0, and then the number is
  /// grouped; the setting, if not 0; the largest that does not exceed the value, or else the
  /// smallest, where a value of 2^63 or more counts as below all. It is not chosen again after
  /// rounding: 1048575 bytes with 2 places read "1024.00 KB".
  ///
  /// What is exact: the choice of the unit. The number becomes a double before it is printed. A
  /// count up to 2^53 does so without loss, and a larger one is rounded to 53 significant bits:
  /// 2^53 + 1 bytes read "9,007,199,254,740,992 B" with that unit given and 0 places. From 2^63 on
  /// it is rounded twice (the value less 2^64, and then the sum with 2^64), which can miss the
  /// nearest double. Scaling adds no error to bytes. For bits it is a division, rounded to the
  /// nearest double: 1015 bits with 2 places read "1.01 Kb", because the double nearest to 1.015 is
  /// below it. The double that comes out is printed as `FormatNumberEx` prints it.
  ///
  /// @param value the count of bytes or bits; every value fits.
  /// @param unit the unit, or `QXFMT_BYTES_AUTO` (0) for the setting or the magnitude.
  /// @param places decimals as in `FormatNumberEx`. With 0 or less, bytes in KB and above are cut
  ///   off at the unit in integers, before the conversion (1536 bytes read "1 KB"), while bits are
  ///   rounded (1500 bits read "2 Kb").
  ///
  /// Two blocks, of 128 and of 256 bytes; only the first holds the result.
  /// @{

  /// Bytes in the unit of `QXFMT_SetByteFormat` or by magnitude: "1.50 KB".
  /// `format.FormatByte(1536, 2)` gives "1.50 KB".
  [[nodiscard]] ResultText FormatByte(std::uint64_t value, std::int32_t places) noexcept;
  /// Bytes in the unit given, grouped: "1,205,632,705.20 KB".
  /// `format.FormatByte(1234567890123, QXFMT_BYTES_KB, 2)` gives "1,205,632,705.20 KB".
  [[nodiscard]] ResultText FormatByte(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                      std::int32_t places) noexcept;
  /// Bits in the unit of `QXFMT_SetBitFormat` or by magnitude: "1.50 Kb".
  /// `format.FormatBit(1500, 2)` gives "1.50 Kb".
  [[nodiscard]] ResultText FormatBit(std::uint64_t value, std::int32_t places) noexcept;
  /// Bits in the unit given, grouped: "1,234,567,890.12 Kb".
  /// `format.FormatBit(1500000, QXFMT_BYTES_KB, 0)` gives "1,500 Kb".
  [[nodiscard]] ResultText FormatBit(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                     std::int32_t places) noexcept;
  /// @}

  /// @name Data rates
  /// As the sizes, with the texts "Bps", "KBps" and so on, or "bps", "Kbps" and so on. Where no
  /// places are given they are those of `QXFMT_SetNumberDecimalPlaces`.
  ///
  /// Integers: choice of the unit, exactness and cutting off are those of the sizes.
  ///
  /// Doubles: the unit by magnitude is that of the whole part; a negative value, a NaN and one
  /// outside the signed 64-bit range take the smallest. The number is rounded, never cut off. It is
  /// exact in byte rates; in bit rates a division by a power of 1000 rounds it to the nearest
  /// double. NaN and the infinities keep the unit and show neither commas nor decimals:
  /// "nan Bps", "-nan Bps", "inf Mbps", "-inf Mbps".
  ///
  /// Limits: a text of more than 62 units, number and unit together, comes back empty: with 2
  /// places 1e54 still shows in "Bps", and 1e55 does not. If the number alone has more than 119
  /// units ungrouped, or 127 grouped, the unit shows without it: 1e116 reads " Bps". Integers fit,
  /// except those that round to 10^19 or more where `QXFMT_BYTES_B`, or a unit outside the list,
  /// and 32 places or more are given.
  ///
  /// @param value the rate per second.
  /// @param unit the unit, or `QXFMT_BYTES_AUTO` (0) for the setting or the magnitude.
  /// @param places decimals as in `FormatNumberEx`; for integers as in the sizes.
  ///
  /// Two blocks, of 128 and of 256 bytes; only the first holds the result.
  /// @{

  /// Bytes in the unit of `QXFMT_SetBytePerSecondFormat` or by magnitude: "1.50 KBps".
  /// `format.FormatBytePerSecond(1536)` gives "1.50 KBps".
  [[nodiscard]] ResultText FormatBytePerSecond(std::uint64_t value) noexcept;
  /// Bytes in the unit of `QXFMT_SetBytePerSecondFormat` or by magnitude: "1.50 KBps".
  /// `format.FormatBytePerSecond(0.25)` gives "0.25 Bps".
  [[nodiscard]] ResultText FormatBytePerSecond(double value) noexcept;
  /// Bytes in the unit given, grouped: "1,205 KBps" with 0 places.
  /// `format.FormatBytePerSecond(std::uint64_t{1234567}, QXFMT_BYTES_KB, 0)` gives "1,205 KBps".
  [[nodiscard]] ResultText FormatBytePerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                               std::int32_t places) noexcept;
  /// Bytes in the unit given, grouped: "1,205.632 KBps" with 3 places.
  /// `format.FormatBytePerSecond(1234567.0, QXFMT_BYTES_KB, 3)` gives "1,205.632 KBps".
  [[nodiscard]] ResultText FormatBytePerSecond(double value, QXFMT_BYTES_FORMAT unit,
                                               std::int32_t places) noexcept;
  /// Bits in the unit of `QXFMT_SetBitPerSecondFormat` or by magnitude: "2.50 Mbps".
  /// `format.FormatBitPerSecond(2500000)` gives "2.50 Mbps".
  [[nodiscard]] ResultText FormatBitPerSecond(std::uint64_t value) noexcept;
  /// Bits in the unit of `QXFMT_SetBitPerSecondFormat` or by magnitude: "2.50 Mbps".
  /// `format.FormatBitPerSecond(-2500.0)` gives "-2500.00 bps".
  [[nodiscard]] ResultText FormatBitPerSecond(double value) noexcept;
  /// Bits in the unit given, grouped: "1,235 Kbps" with 0 places.
  /// `format.FormatBitPerSecond(std::uint64_t{1234567}, QXFMT_BYTES_KB, 0)` gives "1,235 Kbps".
  [[nodiscard]] ResultText FormatBitPerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                              std::int32_t places) noexcept;
  /// Bits in the unit given, grouped: "1,234.568 Kbps" with 3 places.
  /// `format.FormatBitPerSecond(1234567.8, QXFMT_BYTES_KB, 3)` gives "1,234.568 Kbps".
  [[nodiscard]] ResultText FormatBitPerSecond(double value, QXFMT_BYTES_FORMAT unit,
                                              std::int32_t places) noexcept;
  /// @}

  /// @name Percentages
  /// @param value a ratio, not a percentage: 1 reads "100%".
  ///
  /// Every value fits. Grouped if the setting of `QXFMT_SetPercentageDecimalPlaces` is not 0, as it
  /// is at start. Without memory the text is "[MEM_ERR]" and has no percent sign.
  /// @{

  /// Without decimals. The product with 100 is taken modulo 2^32, as a signed number: 21474837
  /// reads "-2,147,483,596%". One block of 128 bytes.
  /// `format.FormatPercentage(12)` gives "1,200%".
  [[nodiscard]] ResultText FormatPercentage(std::int32_t value) noexcept;
  /// With the decimals of `QXFMT_SetNumberDecimalPlaces`: "12.30%". The product with 100 is taken
  /// in single precision. One that is too large for it, and an infinity, read "inf%" or "-inf%"; a
  /// NaN reads "nan%" or "-nan%". One block of 256 bytes.
  /// `format.FormatPercentage(0.123f)` gives "12.30%".
  [[nodiscard]] ResultText FormatPercentage(float value) noexcept;
  /// @}

  /// @name Bit patterns
  /// All bits from the most significant to the least, with a blank between groups of four.
  /// @{

  /// 8 bits: "1010 0101". One block of 64 bytes.
  /// `format.FormatBinary(std::uint8_t{0xA5})` gives "1010 0101".
  [[nodiscard]] ResultText FormatBinary(std::uint8_t value) noexcept;
  /// 16 bits: "0001 0010 0011 0100". One block of 64 bytes.
  /// `format.FormatBinary(std::uint16_t{0x1234})` gives "0001 0010 0011 0100".
  [[nodiscard]] ResultText FormatBinary(std::uint16_t value) noexcept;
  /// 32 bits, 39 units of text. One block of 128 bytes.
  /// `format.FormatBinary(std::uint32_t{7})` gives "0000 0000 0000 0000 0000 0000 0000 0111".
  [[nodiscard]] ResultText FormatBinary(std::uint32_t value) noexcept;
  /// @}

  /// @name IPv4 addresses
  /// @param address the first octet of the text in the lowest 8 bits, on every machine: 0x0100007F
  ///   is "127.0.0.1".
  ///
  /// Byte order: on a little-endian machine `in_addr.s_addr` is such an address as it is, and
  /// `ntohl` of it would show the octets in reverse. On a big-endian machine the bytes of `s_addr`
  /// have to be swapped. Right everywhere, from the octets `o` in network order:
  /// `o[0] | o[1] << 8 | o[2] << 16 | std::uint32_t{o[3]} << 24`.
  /// @{

  /// "127.0.0.1", on a little-endian machine from `in_addr.s_addr` as it is. One block of 40 bytes.
  /// `format.FormatIpAddress(0x0100007F)` gives "127.0.0.1".
  [[nodiscard]] ResultText FormatIpAddress(std::uint32_t address) noexcept;
  /// "127.0.0.1" in the caller's area. Takes no block and returns the area. At most the first 16
  /// units are touched.
  /// `format.FormatIpAddress(0x0100007F, area, 64)` gives "127.0.0.1".
  /// @param address the first octet in the lowest 8 bits, as in the overload without an area.
  /// @param buffer the area; not null unless the length is refused.
  /// @param length units of the area. Below 16, which the longest address with its terminator
  ///   takes, the area is left untouched and the result is "[BUF_LEN_ERR]".
  ResultText FormatIpAddress(std::uint32_t address, char16_t* buffer, std::int32_t length) noexcept;
  /// "127.0.0.1:8080", the port as `ntohs(sin_port)` gives it. One block of 128 bytes.
  /// `format.FormatIpPort(0x0100007F, 8080)` gives "127.0.0.1:8080".
  [[nodiscard]] ResultText FormatIpPort(std::uint32_t address, std::uint16_t port) noexcept;
  /// @}

  /// @name Link-layer addresses
  /// Octets in upper-case hexadecimal with ":" between them.
  /// @{

  /// "00:1A:2B:3C:4D:5E", the octet in the lowest 8 bits first; bits 48 to 63 are ignored. One
  /// block of 50 bytes.
  /// `format.FormatMacAddress(0x5E4D3C2B1A00)` gives "00:1A:2B:3C:4D:5E".
  [[nodiscard]] ResultText FormatMacAddress(std::uint64_t address) noexcept;
  /// As many octets as `count` says, 1 to 8, in array order; no others are read. For any other
  /// count the text is "???" and nothing is read. One block of 64 bytes.
  /// `format.FormatMacAddress(mac, 6)` gives "00:1A:2B:3C:4D:5E".
  [[nodiscard]] ResultText FormatMacAddress(const std::uint8_t* octets,
                                            std::int32_t count) noexcept;
  /// Not implemented: always the static text "NOIMPLEMENT". Reads nothing and takes no block.
  /// `format.FormatIPXAddress(mac, 6)` gives "NOIMPLEMENT".
  [[nodiscard]] ResultText FormatIPXAddress(const std::uint8_t* octets,
                                            std::int32_t count) noexcept;
  /// @}

  /// @name IPv6 addresses
  /// @param address 16 bytes in network order, which is how `in6_addr` holds them (`s6_addr`): no
  ///   byte is swapped on any machine. Only read. Null gives "[INPUT_ERR_NULL]".
  /// @param type the form of the text; no setting takes part.
  ///
  /// Each text is valid under RFC 4291 section 2.2. The run that becomes "::" is the first of the
  /// longest runs of zero bytes, cut to whole groups; one whole group is enough, and if none is
  /// left there is no "::". That is why the text can differ from the one of RFC 5952.
  /// @{

  /// "2001:db8::1", at most 45 units. One block of 100 bytes; none for a null address.
  /// `format.FormatIPv6Address(ipv6, QXFMT_IPV6_COMPRESSED)` gives "2001:db8::102:304".
  [[nodiscard]] ResultText FormatIPv6Address(const std::uint8_t* address,
                                             QXFMT_IPV6_TYPE type) noexcept;
  /// "[2001:db8::1]:443", the port as `ntohs(sin6_port)` gives it. A failure text of the address
  /// stands in the brackets: "[[INPUT_ERR_NULL]]:80". Two blocks, of 128 and of 100 bytes; only the
  /// first holds the result.
  /// `format.FormatIpv6Port(ipv6, 443, QXFMT_IPV6_EMBEDDED_V4)` gives "[2001:db8::1.2.3.4]:443".
  [[nodiscard]] ResultText FormatIpv6Port(const std::uint8_t* address, std::uint16_t port,
                                          QXFMT_IPV6_TYPE type) noexcept;
  /// @}

  /// @name Dates and times of day
  /// @param seconds since 1970-01-01 00:00:00 UTC, shown in the local zone of the process, as the C
  ///   library holds it: an application that changes TZ while it runs calls `tzset`, and then
  ///   `Reset` of each formatter, since these remember the zone's offset. 0 reads as the empty
  ///   text; a negative value and one above `QXFMT_TIME_LIMIT` as "TIME_OUT_RANGE". Neither takes a
  ///   block, nor does a zone conversion that fails: it gives the empty text too.
  /// @param layout order of the date's fields; `QXFMT_DATE_DEFAULT` is what
  ///   `QXFMT_SetDateTimeFormat` set.
  ///
  /// No locale takes part. Safe beside other threads' conversions, but not beside a `tzset` or
  /// `setenv` of another thread.
  /// @{

  /// "2023/11/15". One block of 128 bytes.
  /// `format.FormatDate(1700000000, QXFMT_DATE_MONTH_NAME)` gives "Nov. 15, 2023".
  [[nodiscard]] ResultText FormatDate(std::int64_t seconds, QXFMT_DATE_FORMAT layout) noexcept;
  /// "06:13:20". One block of 64 bytes.
  /// `format.FormatTime(1700000000)` gives "06:13:20".
  [[nodiscard]] ResultText FormatTime(std::int64_t seconds) noexcept;
  /// "2023/11/15 06:13:20". Two blocks of 128 bytes; only the first holds the result.
  /// `format.FormatDateTime(1700000000, QXFMT_DATE_YMD)` gives "2023/11/15 06:13:20".
  [[nodiscard]] ResultText FormatDateTime(std::int64_t seconds, QXFMT_DATE_FORMAT layout) noexcept;
  /// @}

  /// @name Timestamps with a fraction of a second
  /// As the dates and times of day, from a count of smaller units since 1970-01-01 00:00:00 UTC.
  /// The digits of the fraction are cut off, never rounded. What is tested against 0 is the count,
  /// against `QXFMT_TIME_LIMIT` its whole seconds (cut off toward zero): the last second up to the
  /// limit is accepted in full, and a count within the first second has a time of day but no date:
  /// " 08:00:00.500". A negative count of less than a second reads likewise, with the sign among
  /// the digits of the fraction: "08:00:00.-05".
  ///
  /// One block of 128 bytes, and with a date a second one that only helps to build the text.
  /// @{

  /// "2023/11/15 06:13:20.123" from milliseconds.
  /// `format.FormatMSecondDataTime(1700000000123, QXFMT_DATE_YMD)` gives "2023/11/15 06:13:20.123".
  [[nodiscard]] ResultText FormatMSecondDataTime(std::int64_t milliseconds,
                                                 QXFMT_DATE_FORMAT layout) noexcept;
  /// "2023/11/15 06:13:20.000123" from microseconds.
  /// `format.FormatHiResDateTime(1700000000000123, QXFMT_DATE_YMD)` gives
  /// "2023/11/15 06:13:20.000123".
  [[nodiscard]] ResultText FormatHiResDateTime(std::int64_t microseconds,
                                               QXFMT_DATE_FORMAT layout) noexcept;
  /// "2023/11/15 06:13:20.000000123" from nanoseconds, which reach to the year 2262.
  /// `format.FormatMaxHiResDateTime(1700000000000000123, QXFMT_DATE_YMD)` gives
  /// "2023/11/15 06:13:20.000000123".
  [[nodiscard]] ResultText FormatMaxHiResDateTime(std::int64_t nanoseconds,
                                                  QXFMT_DATE_FORMAT layout) noexcept;
  /// "06:13:20.123" from milliseconds.
  /// `format.FormatMSecondTime(1700000000123)` gives "06:13:20.123".
  [[nodiscard]] ResultText FormatMSecondTime(std::int64_t milliseconds) noexcept;
  /// "06:13:20.000123" from microseconds.
  /// `format.FormatHiResTime(1700000000000123)` gives "06:13:20.000123".
  [[nodiscard]] ResultText FormatHiResTime(std::int64_t microseconds) noexcept;
  /// "06:13:20.000000123" from nanoseconds.
  /// `format.FormatMaxHiResTime(1700000000000000123)` gives "06:13:20.000000123".
  [[nodiscard]] ResultText FormatMaxHiResTime(std::int64_t nanoseconds) noexcept;
  /// @}

  /// @name Timestamps with a chosen accuracy
  /// Cuts nanoseconds off to the accuracy (toward zero) and goes on as the operation for that unit,
  /// its tests and blocks included. A count of less than one unit becomes 0: the empty text.
  /// @param nanoseconds since 1970-01-01 00:00:00 UTC, whatever the accuracy.
  /// @param accuracy the finest unit shown. No setting stands in for it; a value outside its list
  ///   gives the empty text and takes no block.
  /// @param layout as for the dates.
  /// @{

  /// As `FormatDateTime` (seconds), `FormatMSecondDataTime`, `FormatHiResDateTime` or
  /// `FormatMaxHiResDateTime`.
  /// `format.FormatAllDateTime(1700000000123456789, QXFMT_TIME_MSECOND, QXFMT_DATE_YMD)` gives
  /// "2023/11/15 06:13:20.123".
  [[nodiscard]] ResultText FormatAllDateTime(std::int64_t nanoseconds, QXFMT_TIME_ACCURACY accuracy,
                                             QXFMT_DATE_FORMAT layout) noexcept;
  /// As `FormatTime` (seconds), `FormatMSecondTime`, `FormatHiResTime` or `FormatMaxHiResTime`: the
  /// time of day alone.
  /// `format.FormatAllTime(1700000000123456789, QXFMT_TIME_USECOND)` gives "06:13:20.123456".
  [[nodiscard]] ResultText FormatAllTime(std::int64_t nanoseconds,
                                         QXFMT_TIME_ACCURACY accuracy) noexcept;
  /// @}

  /// @name OLE automation dates
  /// @{

  /// An OLE automation date, as date and time of day: "2023/11/15 06:00:00". It already is calendar
  /// time: no zone takes part, and 0 is a date like any other. One block of 128 bytes.
  /// `format.FormatOleDateTime(-1.25, QXFMT_DATE_YMD)` gives "1899/12/29 06:00:00".
  /// @param date whole part: days from 1899-12-30. Fraction: the time of day by its absolute value,
  ///   for negative dates too (-1.25 is 1899-12-29 06:00:00), rounded to the nearest second, a half
  ///   up, where the last second of a day may carry into the next day. Years 100 to 9999. The
  ///   fields of a date outside them, before or after the carry, of a NaN and of an infinity read
  ///   as -1 ("-1/-1/-1 -1:-1:-1"), the month too where the layout asks for its name.
  /// @param layout as for the dates.
  [[nodiscard]] ResultText FormatOleDateTime(double date, QXFMT_DATE_FORMAT layout) noexcept;
  /// @}

  /// @name Durations
  /// A span of time, not a point in the calendar. Its sign stands before the whole text, and 0 has
  /// none. No setting takes part.
  /// @param format the kind of text:
  ///   - `QXFMT_DURATION_CLOCK`: "01:01:01.500". There are no days: hours go on at 24 and at 100.
  ///   - `QXFMT_DURATION_WORDS_EN`, `QXFMT_DURATION_WORDS_CN`: "1h1m1s500ms", see `FormatDuration`.
  ///   - any other: whole seconds and fraction, "3661.500".
  ///
  /// Ranges: whole seconds show modulo 2^32, in the last layout as a signed 32-bit number; words
  /// show the nanoseconds modulo 2^64. The most negative count counts as 2^63 below zero.
  ///
  /// One block of 128 bytes, also where the text of a 0 is a static one.
  /// @throws StatusException in the worded formats only, when memory for a string cannot be had.
  ///   The block stays taken and the object usable.
  /// @{

  /// From seconds, without a sign and a fraction: "01:01:01", "1h1m1s", "3661". The last layout has
  /// two digits at least: "05".
  /// `format.FormatDurationSecond(3661, QXFMT_DURATION_CLOCK)` gives "01:01:01".
  [[nodiscard]] ResultText FormatDurationSecond(std::uint32_t seconds,
                                                QXFMT_DURATION_FORMAT format);
  /// From milliseconds: "01:01:01.500", "1h1m1s500ms", "3661.500".
  /// `format.FormatDurationMSecond(3661500, QXFMT_DURATION_WORDS_EN)` gives "1h1m1s500ms".
  [[nodiscard]] ResultText FormatDurationMSecond(std::int64_t milliseconds,
                                                 QXFMT_DURATION_FORMAT format);
  /// From microseconds: "01:01:01.500000", "1h1m1s500ms", "3661.500000".
  /// `format.FormatDurationUSecond(-1500000, QXFMT_DURATION_PLAIN)` gives "-1.500000".
  [[nodiscard]] ResultText FormatDurationUSecond(std::int64_t microseconds,
                                                 QXFMT_DURATION_FORMAT format);
  /// From nanoseconds: "01:01:01.500000000", "1h1m1s500ms", "3661.500000000".
  /// `format.FormatDurationNSecond(1500000000, QXFMT_DURATION_CLOCK)` gives "00:00:01.500000000".
  [[nodiscard]] ResultText FormatDurationNSecond(std::int64_t nanoseconds,
                                                 QXFMT_DURATION_FORMAT format);

  /// Cuts nanoseconds off to the accuracy (toward zero) and goes on as the operation for that unit.
  /// Whole seconds go on as their low 32 bits, so that a negative span needs a finer accuracy. An
  /// accuracy outside its list gives the empty text and takes no block.
  /// `format.FormatDurationAllSecond(1500000000, QXFMT_TIME_MSECOND, QXFMT_DURATION_CLOCK)` gives
  /// "00:00:01.500".
  [[nodiscard]] ResultText FormatDurationAllSecond(std::int64_t nanoseconds,
                                                   QXFMT_TIME_ACCURACY accuracy,
                                                   QXFMT_DURATION_FORMAT format);
  /// @}

  /// @name Time ranges
  /// @{

  /// A span of milliseconds, always in clock layout: "01:01:01.001". A negative value and one above
  /// 32503651200 (the number of `QXFMT_TIME_LIMIT`, here milliseconds: some 376 days) read as
  /// "[TIME_OUT_RANGE]" and take no block. Otherwise one block of 128 bytes.
  /// `format.FormatHiResTimeRange(3661001)` gives "01:01:01.001".
  [[nodiscard]] ResultText FormatHiResTimeRange(std::int64_t milliseconds) noexcept;
  /// @}

  /// @name Numbers of other types
  /// What an ordinary call means, where the overloads above alone would be ambiguous: `int`, `long`
  /// and `unsigned long long` for one. Each of these calls an overload above, and its text, blocks,
  /// limits and failures are the same. What cannot be guessed does not compile. `bool` is no number
  /// here.
  /// @{

  /// The overload for the width and the sign of `Integer`.
  /// `FormatNumber(-1234567LL, 1)` gives "-1,234,567".
  template <typename Integer, typename = qxfmt::OtherInteger<Integer>>
  [[nodiscard]] ResultText FormatNumber(Integer value, std::int32_t grouped) noexcept {
    return FormatNumber(static_cast<qxfmt::FixedWidth<Integer>>(value), grouped);
  }

  /// The overload for `std::uint64_t`: a least count of digits. A negative number is that of
  /// `FormatNumber`, without leading zeros.
  /// `FormatNumberEx(5, 3, 0)` gives "005", `FormatNumberEx(-5, 3, 0)` gives "-5".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint64_t>>
  [[nodiscard]] ResultText FormatNumberEx(Integer value, std::int32_t places,
                                          std::int32_t grouped) noexcept {
    if (qxfmt::IsNegative(value)) return FormatNumber(static_cast<std::int64_t>(value), grouped);
    return FormatNumberEx(static_cast<std::uint64_t>(value), places, grouped);
  }

  /// The overload for a double, which holds integers up to 2^53 without loss.
  /// `FormatDecimal(5)` gives "5.00".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer>>
  [[nodiscard]] ResultText FormatDecimal(Integer value) noexcept {
    return FormatDecimal(static_cast<double>(value));
  }

  /// The overload for `std::uint64_t`. A negative count is taken modulo 2^64; where the compiler
  /// knows that it is negative, the call does not compile (clang always knows a constant, g++ when
  /// it optimizes).
  /// `FormatByte(1536, 2)` gives "1.50 KB".
  template <typename Integer, typename = qxfmt::SignedInteger<Integer>>
  [[nodiscard]] ResultText FormatByte(Integer value, std::int32_t places) noexcept
      QXFMT_REFUSE_NEGATIVE(value) {
    return FormatByte(qxfmt::ExpectCount(value), places);
  }
  /// The overload for `std::uint64_t`. A negative count as where no unit is given.
  /// `FormatByte(1536, QXFMT_BYTES_B, 0)` gives "1,536 B".
  template <typename Integer, typename = qxfmt::SignedInteger<Integer>>
  [[nodiscard]] ResultText FormatByte(Integer value, QXFMT_BYTES_FORMAT unit,
                                      std::int32_t places) noexcept QXFMT_REFUSE_NEGATIVE(value) {
    return FormatByte(qxfmt::ExpectCount(value), unit, places);
  }
  /// The overload for `std::uint64_t`. A negative count as in `FormatByte`.
  /// `FormatBit(1500, 2)` gives "1.50 Kb".
  template <typename Integer, typename = qxfmt::SignedInteger<Integer>>
  [[nodiscard]] ResultText FormatBit(Integer value, std::int32_t places) noexcept
      QXFMT_REFUSE_NEGATIVE(value) {
    return FormatBit(qxfmt::ExpectCount(value), places);
  }
  /// The overload for `std::uint64_t`. A negative count as in `FormatByte`.
  /// `FormatBit(1500, QXFMT_BYTES_B, 0)` gives "1,500 b".
  template <typename Integer, typename = qxfmt::SignedInteger<Integer>>
  [[nodiscard]] ResultText FormatBit(Integer value, QXFMT_BYTES_FORMAT unit,
                                     std::int32_t places) noexcept QXFMT_REFUSE_NEGATIVE(value) {
    return FormatBit(qxfmt::ExpectCount(value), unit, places);
  }

  /// The overload for `std::uint64_t`, or for a double if the rate is negative, so that its sign
  /// shows.
  /// `FormatBytePerSecond(1536)` gives "1.50 KBps".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint64_t>>
  [[nodiscard]] ResultText FormatBytePerSecond(Integer value) noexcept {
    if (qxfmt::IsNegative(value)) return FormatBytePerSecond(static_cast<double>(value));
    return FormatBytePerSecond(static_cast<std::uint64_t>(value));
  }
  /// The overload for `std::uint64_t`, or for a double if the rate is negative.
  /// `FormatBytePerSecond(-1536, QXFMT_BYTES_KB, 1)` gives "-1.5 KBps".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint64_t>>
  [[nodiscard]] ResultText FormatBytePerSecond(Integer value, QXFMT_BYTES_FORMAT unit,
                                               std::int32_t places) noexcept {
    if (qxfmt::IsNegative(value)) {
      return FormatBytePerSecond(static_cast<double>(value), unit, places);
    }
    return FormatBytePerSecond(static_cast<std::uint64_t>(value), unit, places);
  }
  /// The overload for `std::uint64_t`, or for a double if the rate is negative.
  /// `FormatBitPerSecond(1000)` gives "1.00 Kbps", `FormatBitPerSecond(-1000)` gives "-1000.00
  /// bps".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint64_t>>
  [[nodiscard]] ResultText FormatBitPerSecond(Integer value) noexcept {
    if (qxfmt::IsNegative(value)) return FormatBitPerSecond(static_cast<double>(value));
    return FormatBitPerSecond(static_cast<std::uint64_t>(value));
  }
  /// The overload for `std::uint64_t`, or for a double if the rate is negative.
  /// `FormatBitPerSecond(1000, QXFMT_BYTES_KB, 0)` gives "1 Kbps".
  template <typename Integer, typename = qxfmt::IntegerExcept<Integer, std::uint64_t>>
  [[nodiscard]] ResultText FormatBitPerSecond(Integer value, QXFMT_BYTES_FORMAT unit,
                                              std::int32_t places) noexcept {
    if (qxfmt::IsNegative(value)) {
      return FormatBitPerSecond(static_cast<double>(value), unit, places);
    }
    return FormatBitPerSecond(static_cast<std::uint64_t>(value), unit, places);
  }

  /// A number with a fraction: the overload for `float`, of the nearest one. An integer of 32 bits:
  /// the one for `std::int32_t`, which is modulo 2^32 anyway. A wider integer does not compile.
  /// `FormatPercentage(0.123)` gives "12.30%", `FormatPercentage(1U)` gives "100%".
  template <typename Number, typename = qxfmt::OtherRatio<Number>>
  [[nodiscard]] ResultText FormatPercentage(Number value) noexcept {
    if constexpr (std::is_floating_point_v<Number>) {
      return FormatPercentage(static_cast<float>(value));
    } else {
      static_assert(sizeof(Number) == 4,
                    "FormatPercentage of an integer is 32 bits wide: pass std::int32_t or a float");
      return FormatPercentage(static_cast<std::int32_t>(value));
    }
  }

  /// The overload for 32 bits, if `Integer` is unsigned and that wide. Any other integer does not
  /// compile: the text has all bits of the type, and a 5 does not say how many it means.
  template <typename Integer,
            typename = qxfmt::IntegerExcept<Integer, std::uint8_t, std::uint16_t, std::uint32_t>>
  [[nodiscard]] ResultText FormatBinary(Integer value) noexcept {
    static_assert(std::is_unsigned_v<Integer> && sizeof(Integer) == 4,
                  "FormatBinary shows as many bits as its type has: pass std::uint8_t, "
                  "std::uint16_t or std::uint32_t");
    return FormatBinary(static_cast<std::uint32_t>(value));
  }
  /// @}

 protected:
  /// @name Worded durations
  /// Number-and-unit pairs without blanks, the largest unit first: "1d1h1m1s1ms1us1ns". No block is
  /// taken.
  /// @throws StatusException when memory for the text cannot be had; the text is then as it was.
  /// @{

  /// Replaces the content of `result` with the words of a duration. Only units with a value above 0
  /// show, days to the unit of the accuracy; what is finer is cut off. Where nothing shows, it is 0
  /// of that unit: "0ms".
  /// `(words.FormatDuration(QXFMT_TIME_MSECOND, QXFMT_DURATION_WORDS_EN, 1500000000, text), text)`
  /// gives "1s500ms".
  /// @param accuracy the finest unit. A value outside its list shows all units, and of a 0 none:
  ///   the empty text.
  /// @param format `QXFMT_DURATION_WORDS_CN` for Chinese unit words, any other value for Latin.
  /// @param nanoseconds a negative count reads as a minus and the words of its magnitude; without
  ///   the minus if all that shows is a 0.
  /// @param result the text to replace.
  void FormatDuration(QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                      std::int64_t nanoseconds, GrowableText& result);

  /// Appends value and unit if the value is above 0. `unit` may be `result` itself.
  /// `(words.FormatPositiveDataAndUnit(0, GrowableText().assign(u"ms"), text), text)` gives "".
  void FormatPositiveDataAndUnit(std::int32_t value, const GrowableText& unit,
                                 GrowableText& result);
  /// Appends value and unit, whatever the value. `unit` may be `result` itself.
  /// `(words.FormatDataAndUnit(5, GrowableText().assign(u"ms"), text), text)` gives "5ms".
  void FormatDataAndUnit(std::int32_t value, const GrowableText& unit, GrowableText& result);
  /// @}

 private:
  CQXBlockBuffer blocks_;
};

#if defined(__clang__)
#pragma clang diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif
