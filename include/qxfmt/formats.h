#pragma once

/// @file
/// The enumerations that settings and formatters share, and the limit of timestamps. All
/// enumerations are signed 32-bit wide and none is ever range-checked: each operation documents the
/// path that a value outside its list takes.
///
/// C can include this header. There the enumerations are 32-bit integers and named constants.

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): which C has too

/// @def QXFMT_32_BITS
/// The width of the enumerations, which C cannot say: it has integers of the same names instead.
#if defined(__cplusplus)
#define QXFMT_32_BITS : int32_t
#else
#define QXFMT_32_BITS
typedef int32_t QXFMT_BYTES_FORMAT;
typedef int32_t QXFMT_DATE_FORMAT;
typedef int32_t QXFMT_TIME_ACCURACY;
typedef int32_t QXFMT_DURATION_FORMAT;
typedef int32_t QXFMT_IPV6_TYPE;
#endif

/// The unit of a size or a rate. Bytes scale by powers of 1024, bits by powers of 1000.
/// A value outside the list means: unscaled, with the text of `QXFMT_BYTES_B`.
enum QXFMT_BYTES_FORMAT QXFMT_32_BITS {
  QXFMT_BYTES_AUTO = 0,  ///< by the setting or, if that is 0 too, by the magnitude of the value
  QXFMT_BYTES_B = 1,     ///< bytes or bits, unscaled
  QXFMT_BYTES_KB = 2,    ///< kilo
  QXFMT_BYTES_MB = 3,    ///< mega
  QXFMT_BYTES_GB = 4,    ///< giga
  QXFMT_BYTES_TB = 5,    ///< tera
};

/// The order of a date's fields. Any value outside the list acts as `QXFMT_DATE_YMD`.
enum QXFMT_DATE_FORMAT QXFMT_32_BITS {
  QXFMT_DATE_DEFAULT = 0,     ///< what `QXFMT_SetDateTimeFormat` set
  QXFMT_DATE_YMD = 1,         ///< 2023/11/15
  QXFMT_DATE_YDM = 2,         ///< 2023/15/11
  QXFMT_DATE_MDY = 3,         ///< 11/15/2023
  QXFMT_DATE_MONTH_NAME = 4,  ///< Nov. 15, 2023
  QXFMT_DATE_DMY = 5,         ///< 15/11/2023
};

/// The largest timestamp that is accepted, in whole seconds since 1970-01-01 00:00:00 UTC; itself
/// included. 2999-12-31 16:00:00 UTC, whatever the local zone.
#if defined(__cplusplus)
inline constexpr int64_t QXFMT_TIME_LIMIT = 32503651200;
#else
#define QXFMT_TIME_LIMIT INT64_C(32503651200)
#endif

/// The finest unit that a timestamp or a duration shows.
enum QXFMT_TIME_ACCURACY QXFMT_32_BITS {
  QXFMT_TIME_SECOND = 0,   ///< whole seconds
  QXFMT_TIME_MSECOND = 1,  ///< milliseconds
  QXFMT_TIME_USECOND = 2,  ///< microseconds
  QXFMT_TIME_NSECOND = 3,  ///< nanoseconds
};

/// The kind of text for a duration. Any value outside the list acts as `QXFMT_DURATION_PLAIN`.
enum QXFMT_DURATION_FORMAT QXFMT_32_BITS {
  QXFMT_DURATION_CLOCK = 0,     ///< 01:01:01.500
  QXFMT_DURATION_WORDS_CN = 1,  ///< worded, with Chinese unit words
  QXFMT_DURATION_WORDS_EN = 2,  ///< worded, with Latin unit letters: 1h1m1s500ms
  QXFMT_DURATION_PLAIN = 3,     ///< seconds and fraction: 3661.500
};

/// The form of an IPv6 text. Any value other than 1 and 3 acts as `QXFMT_IPV6_COMPRESSED`.
enum QXFMT_IPV6_TYPE QXFMT_32_BITS {
  QXFMT_IPV6_COMPRESSED = 0,   ///< 2001:db8::102:304
  QXFMT_IPV6_FULL = 1,         ///< 2001:0db8:0000:0000:0000:0000:0102:0304
  QXFMT_IPV6_EMBEDDED_V4 = 3,  ///< 2001:db8::1.2.3.4
};
