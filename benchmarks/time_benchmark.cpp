#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <random>
#include <string>

#include "comparison.h"

#if defined(QXFMT_WITH_FMT)
#include <fmt/chrono.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#endif
#if defined(QXFMT_WITH_ABSL)
#include <absl/strings/str_cat.h>
#include <absl/time/time.h>
#endif

namespace qxfmt::bench {

namespace {

std::tm LocalTime(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm fields;
  localtime_r(&time, &fields);
  return fields;
}

// One day of a capture: instants close to each other, as a packet list has them.
std::vector<std::int64_t> Seconds() {
  std::mt19937_64 random(3);
  std::vector<std::int64_t> values(kValues);
  for (std::int64_t& value : values) {
    value = 1'700'000'000 + static_cast<std::int64_t>(random() % 86400);
  }
  return values;
}

std::vector<std::int64_t> Microseconds() {
  std::mt19937_64 random(4);
  std::vector<std::int64_t> values = Seconds();
  for (std::int64_t& value : values) {
    value = value * 1'000'000 + static_cast<std::int64_t>(random() % 1'000'000);
  }
  return values;
}

// Spans from a few units up to some thirty days.
std::vector<std::int64_t> Spans(std::int64_t units_per_second) {
  std::mt19937_64 random(5);
  std::vector<std::int64_t> values(kValues);
  const auto longest = static_cast<std::uint64_t>(units_per_second * 30 * 86400);
  for (std::int64_t& value : values) {
    value = static_cast<std::int64_t>((random() % longest) >> (random() % 24));
  }
  return values;
}

void RegisterDates() {
  const std::vector<std::int64_t> values = Seconds();
  const char* const operation = "FormatDateTime";
  Ours(operation, values,
       [](CQXDataFormat& f, std::int64_t v) { return f.FormatDateTime(v, QXFMT_DATE_YMD); });
  Other(operation, "localtime_r alone", values, [](std::int64_t v) { return LocalTime(v).tm_sec; });
  Peer(operation, "strftime", values, [](char* out, std::int64_t v) {
    const std::tm fields = LocalTime(v);
    return std::strftime(out, kPeerBuffer, "%Y/%m/%d %H:%M:%S", &fields);
  });
#if defined(QXFMT_WITH_FMT)
  Peer(operation, "fmt compiled", values, [](char* out, std::int64_t v) {
    return fmt::format_to(out, FMT_COMPILE("{:%Y/%m/%d %H:%M:%S}"), LocalTime(v));
  });
#endif
#if defined(QXFMT_WITH_ABSL)
  static const absl::TimeZone zone = absl::LocalTimeZone();
  Other(operation, "absl::FormatTime", values, [](std::int64_t v) {
    return absl::FormatTime("%Y/%m/%d %H:%M:%S", absl::FromUnixSeconds(v), zone);
  });
#endif
}

void RegisterStamps() {
  const std::vector<std::int64_t> values = Microseconds();
  const char* const operation = "FormatHiResDateTime";
  Ours(operation, values,
       [](CQXDataFormat& f, std::int64_t v) { return f.FormatHiResDateTime(v, QXFMT_DATE_YMD); });
  Other(operation, "localtime_r alone", values,
        [](std::int64_t v) { return LocalTime(v / 1'000'000).tm_sec; });
  Peer(operation, "strftime, snprintf", values, [](char* out, std::int64_t v) {
    const std::tm fields = LocalTime(v / 1'000'000);
    const std::size_t size = std::strftime(out, kPeerBuffer, "%Y/%m/%d %H:%M:%S", &fields);
    return std::snprintf(out + size, kPeerBuffer - size, ".%06d", static_cast<int>(v % 1'000'000));
  });
#if defined(QXFMT_WITH_FMT)
  Peer(operation, "fmt compiled", values, [](char* out, std::int64_t v) {
    return fmt::format_to(out, FMT_COMPILE("{:%Y/%m/%d %H:%M:%S}.{:06}"), LocalTime(v / 1'000'000),
                          v % 1'000'000);
  });
#endif
#if defined(QXFMT_WITH_ABSL)
  static const absl::TimeZone zone = absl::LocalTimeZone();
  Other(operation, "absl::FormatTime", values, [](std::int64_t v) {
    return absl::FormatTime("%Y/%m/%d %H:%M:%E6S", absl::FromUnixMicros(v), zone);
  });
#endif
}

// fmt on the same fields: "01:02:03.000004" with a fraction of `kPlaces` digits.
#if defined(QXFMT_WITH_FMT)
template <int kPlaces>
char* FmtClock(char* out, std::int64_t count) {
  constexpr std::int64_t kPerSecond = kPlaces == 0   ? 1
                                      : kPlaces == 3 ? 1'000
                                      : kPlaces == 6 ? 1'000'000
                                                     : 1'000'000'000;
  const std::int64_t seconds = count / kPerSecond;
  const std::int64_t hours = seconds / 3600;
  const std::int64_t minutes = seconds / 60 % 60;
  const std::int64_t rest = count % kPerSecond;
  if constexpr (kPlaces == 0) {
    return fmt::format_to(out, FMT_COMPILE("{:02}:{:02}:{:02}"), hours, minutes, seconds % 60);
  } else if constexpr (kPlaces == 3) {
    return fmt::format_to(out, FMT_COMPILE("{:02}:{:02}:{:02}.{:03}"), hours, minutes, seconds % 60,
                          rest);
  } else if constexpr (kPlaces == 6) {
    return fmt::format_to(out, FMT_COMPILE("{:02}:{:02}:{:02}.{:06}"), hours, minutes, seconds % 60,
                          rest);
  } else {
    return fmt::format_to(out, FMT_COMPILE("{:02}:{:02}:{:02}.{:09}"), hours, minutes, seconds % 60,
                          rest);
  }
}

// fmt building the words of nanoseconds, unit by unit, behind an output iterator. `print(out,
// value, unit)` prints one.
template <typename Out, typename Print>
Out FmtWords(Out out, std::int64_t count, Print print) {
  if (count == 0) return print(out, 0, "ns");
  const std::int64_t seconds = count / 1'000'000'000;
  const std::int64_t rest = count % 1'000'000'000;
  const struct {
    std::int64_t value;
    const char* unit;
  } fields[] = {{seconds / 86400, "d"}, {seconds / 3600 % 24, "h"}, {seconds / 60 % 60, "m"},
                {seconds % 60, "s"},    {rest / 1'000'000, "ms"},   {rest / 1'000 % 1'000, "us"},
                {rest % 1'000, "ns"}};
  for (const auto& field : fields) {
    if (field.value > 0) out = print(out, field.value, field.unit);
  }
  return out;
}

constexpr auto kCompiledPair = [](auto out, std::int64_t value, const char* unit) {
  return fmt::format_to(out, FMT_COMPILE("{}{}"), value, unit);
};
constexpr auto kPair = [](auto out, std::int64_t value, const char* unit) {
  return fmt::format_to(out, "{}{}", value, unit);
};
#endif

template <int kPlaces, typename Call>
void RegisterClock(const char* operation, std::int64_t units_per_second, Call call) {
  const std::vector<std::int64_t> values = Spans(units_per_second);
  Ours(operation, values, call);
#if defined(QXFMT_WITH_FMT)
  Peer(operation, "fmt compiled", values,
       [](char* out, std::int64_t v) { return FmtClock<kPlaces>(out, v); });
#endif
}

void RegisterClocks() {
  RegisterClock<0>("FormatDurationSecond, clock", 1, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationSecond(static_cast<std::uint32_t>(v), QXFMT_DURATION_CLOCK);
  });
  RegisterClock<3>("FormatDurationMSecond, clock", 1'000, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationMSecond(v, QXFMT_DURATION_CLOCK);
  });
  RegisterClock<6>("FormatDurationUSecond, clock", 1'000'000, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationUSecond(v, QXFMT_DURATION_CLOCK);
  });
  RegisterClock<9>("FormatDurationNSecond, clock", 1'000'000'000,
                   [](CQXDataFormat& f, std::int64_t v) {
                     return f.FormatDurationNSecond(v, QXFMT_DURATION_CLOCK);
                   });
}

template <typename Call>
void RegisterWords(const char* operation, std::int64_t nanoseconds_per_unit, Call call) {
  const std::vector<std::int64_t> values = Spans(1'000'000'000 / nanoseconds_per_unit);
  Ours(operation, values, call);
#if defined(QXFMT_WITH_FMT)
  Peer(operation, "fmt compiled, on the stack", values,
       [nanoseconds_per_unit](char* out, std::int64_t v) {
         return FmtWords(out, v * nanoseconds_per_unit, kCompiledPair);
       });
  // Like with like: a text of its own on the heap, which grows.
  Other(operation, "fmt compiled, std::string", values, [nanoseconds_per_unit](std::int64_t v) {
    std::string text;
    FmtWords(std::back_inserter(text), v * nanoseconds_per_unit, kCompiledPair);
    return text;
  });
  Other(operation, "fmt, std::string", values, [nanoseconds_per_unit](std::int64_t v) {
    std::string text;
    FmtWords(std::back_inserter(text), v * nanoseconds_per_unit, kPair);
    return text;
  });
#endif
#if defined(QXFMT_WITH_ABSL)
  Other(operation, "absl::FormatDuration", values, [nanoseconds_per_unit](std::int64_t v) {
    return absl::FormatDuration(absl::Nanoseconds(v * nanoseconds_per_unit));
  });
#endif
}

void RegisterWords() {
  constexpr QXFMT_DURATION_FORMAT kWords = QXFMT_DURATION_WORDS_EN;
  RegisterWords("FormatDurationSecond, words", 1'000'000'000, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationSecond(static_cast<std::uint32_t>(v), kWords);
  });
  RegisterWords("FormatDurationMSecond, words", 1'000'000, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationMSecond(v, kWords);
  });
  RegisterWords("FormatDurationUSecond, words", 1'000, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationUSecond(v, kWords);
  });
  RegisterWords("FormatDurationNSecond, words", 1, [](CQXDataFormat& f, std::int64_t v) {
    return f.FormatDurationNSecond(v, kWords);
  });
}

}  // namespace

// The zone is that of TZ, so that one program measures any: a zone without daylight saving is the
// cheapest to convert, and the hardest to keep up with.
void RegisterTime() {
  RegisterDates();
  RegisterStamps();
  RegisterClocks();
  RegisterWords();
}

}  // namespace qxfmt::bench
