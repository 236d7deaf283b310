#pragma once

// All that differs by compiler, C library and operating system. The rest is the same everywhere.

#include <cfloat>
#include <cstdint>
#include <ctime>
#include <optional>

#if defined(_WIN32)
#include <clocale>
#else
#include <langinfo.h>
#endif

namespace qxfmt {

// Results are defined by plain IEEE arithmetic in the declared width. The x87 has another one.
static_assert(FLT_EVAL_METHOD == 0, "build with SSE2: -msse2 -mfpmath=sse");

// The widest unsigned integer.
#if defined(__SIZEOF_INT128__)
__extension__ using Widest = unsigned __int128;
#else
using Widest = std::uint64_t;
#endif

// The decimal point of the C locale that the calling thread is in, in that locale's encoding.
inline const char* DecimalPointText() noexcept {
#if defined(_WIN32)
  // The C runtime keeps this structure per thread.
  return std::localeconv()->decimal_point;
#else
  // Only reads the locale, whereas localeconv fills a structure that all threads share.
  return ::nl_langinfo(RADIXCHAR);
#endif
}

#if !defined(_WIN32)
static_assert(sizeof(std::time_t) == 8, "timestamps reach the year 3000: build with 64-bit time");
#endif

// Seconds since 1970-01-01 00:00:00 UTC to fields in the process's local zone. False if the
// platform cannot tell.
//
// POSIX frees localtime_r from acting as if tzset had been called, but none of the C libraries in
// use (glibc, musl, the BSDs' and Apple's) leaves the zone unread at a first conversion.
inline bool ConvertToLocal(std::int64_t seconds, std::tm& broken_down) noexcept {
#if defined(_WIN32)
  const __time64_t time = seconds;
  return ::_localtime64_s(&broken_down, &time) == 0;
#else
  const std::time_t time = seconds;
  return ::localtime_r(&time, &broken_down) != nullptr;
#endif
}

// The seconds that the zone is ahead of UTC, where the C library states them with the fields.
inline std::optional<std::int64_t> StatedOffset(
    [[maybe_unused]] const std::tm& broken_down) noexcept {
#if defined(_WIN32)
  return {};
#else
  return broken_down.tm_gmtoff;
#endif
}

}  // namespace qxfmt
