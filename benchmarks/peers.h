#pragma once

// What more than one row is compared with.

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>

#include <fmt/compile.h>
#include <fmt/format.h>

#include "comparison.h"

namespace qxfmt::bench {

// --- Numbers

inline constexpr auto kFmtDecimal = [](char* out, auto v) {
  return fmt::format_to(out, FMT_COMPILE("{}"), v);
};
inline constexpr auto kToChars = [](char* out, auto v) {
  return std::to_chars(out, out + kPeerBuffer, v).ptr;
};
inline constexpr auto kFmtTwoPlaces = [](char* out, auto v) {
  return fmt::format_to(out, FMT_COMPILE("{:.2f}"), v);
};

struct Scaled {
  double number;
  const char* unit;
};

inline constexpr const char* kByteUnits[] = {" B", " KB", " MB", " GB", " TB"};
inline constexpr const char* kBitUnits[] = {" b", " Kb", " Mb", " Gb", " Tb"};
inline constexpr const char* kByteRateUnits[] = {" Bps", " KBps", " MBps", " GBps", " TBps"};
inline constexpr const char* kBitRateUnits[] = {" bps", " Kbps", " Mbps", " Gbps", " Tbps"};

inline Scaled ScaleBy(double step, double number, const char* const* units) {
  int unit = 0;
  for (; number >= step && unit < 4; ++unit) number /= step;
  return {number, units[unit]};
}

inline constexpr auto kScaleBytes = [](auto count) {
  return ScaleBy(1024, static_cast<double>(count), kByteUnits);
};
inline constexpr auto kScaleBitRate = [](auto rate) {
  return ScaleBy(1000, static_cast<double>(rate), kBitRateUnits);
};
inline constexpr auto kScaleShare = [](float share) { return Scaled{double{share * 100.0F}, "%"}; };

template <typename Out>
Out FmtScaled(Out out, const Scaled& scaled) {
  return fmt::format_to(out, FMT_COMPILE("{:.2f}{}"), scaled.number, scaled.unit);
}

// --- Time

inline std::tm LocalTime(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm fields;
  localtime_r(&time, &fields);
  return fields;
}

// By fields, which is faster than fmt's own "{:%Y/%m/%d %H:%M:%S}".
template <typename Out>
Out FmtDateTime(Out out, const std::tm& fields) {
  return fmt::format_to(out, FMT_COMPILE("{:04}/{:02}/{:02} {:02}:{:02}:{:02}"),
                        fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
                        fields.tm_min, fields.tm_sec);
}

// ".000123"; nothing for whole seconds.
template <std::int64_t kUnitsPerSecond, typename Out>
Out FmtFraction(Out out, std::int64_t count) {
  if constexpr (kUnitsPerSecond == kMillisecond) {
    return fmt::format_to(out, FMT_COMPILE(".{:03}"), count % kUnitsPerSecond);
  } else if constexpr (kUnitsPerSecond == kMicrosecond) {
    return fmt::format_to(out, FMT_COMPILE(".{:06}"), count % kUnitsPerSecond);
  } else if constexpr (kUnitsPerSecond == kNanosecond) {
    return fmt::format_to(out, FMT_COMPILE(".{:09}"), count % kUnitsPerSecond);
  } else {
    return out;
  }
}

template <std::int64_t kUnitsPerSecond, typename Out>
Out FmtStamp(Out out, std::int64_t count) {
  return FmtFraction<kUnitsPerSecond>(FmtDateTime(out, LocalTime(count / kUnitsPerSecond)), count);
}

template <std::int64_t kUnitsPerSecond, typename Out>
Out FmtClock(Out out, std::int64_t count) {
  const std::int64_t seconds = count / kUnitsPerSecond;
  return FmtFraction<kUnitsPerSecond>(
      fmt::format_to(out, FMT_COMPILE("{:02}:{:02}:{:02}"), seconds / 3600, seconds / 60 % 60,
                     seconds % 60),
      count);
}

// --- Addresses

template <typename Out>
Out FmtIpv4(Out out, std::uint32_t v) {
  return fmt::format_to(out, FMT_COMPILE("{}.{}.{}.{}"), v & 0xFF, v >> 8 & 0xFF, v >> 16 & 0xFF,
                        v >> 24);
}

template <typename Out>
Out FmtMac(Out out, std::uint64_t v) {
  return fmt::format_to(out, FMT_COMPILE("{:02X}:{:02X}:{:02X}:{:02X}:{:02X}:{:02X}"), v & 0xFF,
                        v >> 8 & 0xFF, v >> 16 & 0xFF, v >> 24 & 0xFF, v >> 32 & 0xFF,
                        v >> 40 & 0xFF);
}

}  // namespace qxfmt::bench
