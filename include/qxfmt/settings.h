#pragma once

/// @file
/// The nine display settings of the process.
///
/// A setter stores the 32 bits that it is given and a getter returns exactly the stored bits: no
/// value is refused, checked or mapped. What a reader makes of a value outside its table is
/// documented with the operation that reads it.
///
/// A change applies from the next call on, in all formatters alike; results already made stay as
/// they are. Any thread may call any of these functions at any time; an operation that runs at the
/// same moment sees the old value or the new one. The settings live as long as the library is
/// loaded and are saved nowhere.
///
/// C can include this header, and link the library.

#include <stdint.h>  // NOLINT(modernize-deprecated-headers): which C has too

#include <qxfmt/export.h>
#include <qxfmt/formats.h>

#if defined(__cplusplus)
extern "C" {
#endif

/// Unit of `FormatByte` where its argument names none. At start `QXFMT_BYTES_AUTO`.
QXFMT_API void QXFMT_SetByteFormat(QXFMT_BYTES_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetByteFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_BYTES_FORMAT QXFMT_GetByteFormat(void) QXFMT_NOEXCEPT;

/// Unit of `FormatBit` where its argument names none. At start `QXFMT_BYTES_AUTO`.
QXFMT_API void QXFMT_SetBitFormat(QXFMT_BYTES_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetBitFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_BYTES_FORMAT QXFMT_GetBitFormat(void) QXFMT_NOEXCEPT;

/// Unit of `FormatBytePerSecond` where its argument names none. At start `QXFMT_BYTES_AUTO`.
QXFMT_API void QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetBytePerSecondFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_BYTES_FORMAT QXFMT_GetBytePerSecondFormat(void) QXFMT_NOEXCEPT;

/// Unit of `FormatBitPerSecond` where its argument names none. At start `QXFMT_BYTES_AUTO`.
QXFMT_API void QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetBitPerSecondFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_BYTES_FORMAT QXFMT_GetBitPerSecondFormat(void) QXFMT_NOEXCEPT;

/// Decimals of `FormatNumber` of a double, of the rates that take only a value, and of
/// `FormatPercentage` of a float. At start 2. Capped to 0..32 where it is read.
QXFMT_API void QXFMT_SetNumberDecimalPlaces(int32_t places) QXFMT_NOEXCEPT;
/// What `QXFMT_SetNumberDecimalPlaces` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API int32_t QXFMT_GetNumberDecimalPlaces(void) QXFMT_NOEXCEPT;

/// Despite its name a grouping switch of `FormatPercentage`: 0 is off, any other value on.
/// At start 2.
QXFMT_API void QXFMT_SetPercentageDecimalPlaces(int32_t places) QXFMT_NOEXCEPT;
/// What `QXFMT_SetPercentageDecimalPlaces` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API int32_t QXFMT_GetPercentageDecimalPlaces(void) QXFMT_NOEXCEPT;

/// Date layout where an operation is given `QXFMT_DATE_DEFAULT`. At start `QXFMT_DATE_DEFAULT`,
/// which acts as `QXFMT_DATE_YMD`.
QXFMT_API void QXFMT_SetDateTimeFormat(QXFMT_DATE_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetDateTimeFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_DATE_FORMAT QXFMT_GetDateTimeFormat(void) QXFMT_NOEXCEPT;

/// Stored for the application's own use: no operation of the library reads it.
/// At start `QXFMT_TIME_USECOND`.
QXFMT_API void QXFMT_SetTimeAccuracy(QXFMT_TIME_ACCURACY accuracy) QXFMT_NOEXCEPT;
/// What `QXFMT_SetTimeAccuracy` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_TIME_ACCURACY QXFMT_GetTimeAccuracy(void) QXFMT_NOEXCEPT;

/// Stored for the application's own use: no operation of the library reads it.
/// At start `QXFMT_DURATION_CLOCK`.
QXFMT_API void QXFMT_SetDurationFormat(QXFMT_DURATION_FORMAT format) QXFMT_NOEXCEPT;
/// What `QXFMT_SetDurationFormat` stored last, or the value at start.
QXFMT_NODISCARD QXFMT_API QXFMT_DURATION_FORMAT QXFMT_GetDurationFormat(void) QXFMT_NOEXCEPT;

#if defined(__cplusplus)
}  // extern "C"
#endif
