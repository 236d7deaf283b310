#include <absl/time/time.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <iterator>
#include <string>

#include "comparison.h"
#include "peers.h"

namespace qxfmt::bench {

namespace {

using F = CQXDataFormat;

absl::TimeZone LoadZone(const char* name) {
  absl::TimeZone zone;
  if (!absl::LoadTimeZone(name, &zone)) ReportFailure(std::string("no zone ") + name);
  return zone;
}

template <std::int64_t kUnitsPerSecond>
constexpr Peer kBare{"localtime_r alone",
                     [](std::int64_t v) { return LocalTime(v / kUnitsPerSecond).tm_sec; }};
template <std::int64_t kUnitsPerSecond>
constexpr Peer kFmt{"localtime_r, fmt compiled",
                    [](char* out, std::int64_t v) { return FmtStamp<kUnitsPerSecond>(out, v); }};

// --- The two that fill packet lists, in both orders and zones

struct Goals {
  double bare;  // against localtime_r alone
  double fmt;   // against localtime_r and compiled fmt
};

void AddDateTime(const std::string& order, Values<std::int64_t> values, const char* zone,
                 Goals goals) {
  CompareIn(
      zone, "FormatDateTime, " + order + ", " + zone, values,
      [](F& f, std::int64_t v) { return f.FormatDateTime(v, QXFMT_DATE_YMD); },
      kBare<kSecond>.WithGoal(goals.bare), kFmt<kSecond>.WithGoal(goals.fmt),
      Peer{"localtime_r, strftime",
           [](char* out, std::int64_t v) {
             const std::tm fields = LocalTime(v);
             return std::strftime(out, kPeerBuffer, "%Y/%m/%d %H:%M:%S", &fields);
           }},
      Peer{"absl::FormatTime", [absl_zone = LoadZone(zone)](std::int64_t v) {
             return absl::FormatTime("%Y/%m/%d %H:%M:%S", absl::FromUnixSeconds(v), absl_zone);
           }});
}

void AddHiResDateTime(const std::string& order, Values<std::int64_t> values, const char* zone,
                      Goals goals) {
  CompareIn(
      zone, "FormatHiResDateTime, " + order + ", " + zone, values,
      [](F& f, std::int64_t v) { return f.FormatHiResDateTime(v, QXFMT_DATE_YMD); },
      kBare<kMicrosecond>.WithGoal(goals.bare), kFmt<kMicrosecond>.WithGoal(goals.fmt),
      Peer{"localtime_r, strftime, snprintf",
           [](char* out, std::int64_t v) {
             const std::tm fields = LocalTime(v / kMicrosecond);
             const std::size_t size = std::strftime(out, kPeerBuffer, "%Y/%m/%d %H:%M:%S", &fields);
             return std::snprintf(out + size, kPeerBuffer - size, ".%06d",
                                  static_cast<int>(v % kMicrosecond));
           }},
      Peer{"absl::FormatTime", [absl_zone = LoadZone(zone)](std::int64_t v) {
             return absl::FormatTime("%Y/%m/%d %H:%M:%E6S", absl::FromUnixMicros(v), absl_zone);
           }});
}

void AddPacketStamps() {
  for (const char* zone : {kNewYork, kUtc}) {
    AddDateTime("capture order", CaptureStamps(kSecond), zone, {zone == kUtc ? 2 : 2.5, 0});
    AddDateTime("random order", RandomStamps(kSecond), zone, {0.87, 0});
    AddHiResDateTime("capture order", CaptureStamps(kMicrosecond), zone, {0, 6});
    AddHiResDateTime("random order", RandomStamps(kMicrosecond), zone, {0, 0});
  }
}

// --- All others, in capture order

// In New York.
template <std::int64_t kUnitsPerSecond, typename Ours>
void AddStamp(const std::string& operation, Ours ours) {
  CompareIn(kNewYork, operation, CaptureStamps(kUnitsPerSecond), ours, kBare<kUnitsPerSecond>,
            kFmt<kUnitsPerSecond>);
}

void AddStamps() {
  // clang-format off
  AddStamp<kSecond>("FormatDate",
      [](F& f, auto v) { return f.FormatDate(v, QXFMT_DATE_YMD); });
  AddStamp<kSecond>("FormatDate, month name",
      [](F& f, auto v) { return f.FormatDate(v, QXFMT_DATE_MONTH_NAME); });
  AddStamp<kSecond>("FormatTime",
      [](F& f, auto v) { return f.FormatTime(v); });
  AddStamp<kMillisecond>("FormatMSecondDataTime",
      [](F& f, auto v) { return f.FormatMSecondDataTime(v, QXFMT_DATE_YMD); });
  AddStamp<kNanosecond>("FormatMaxHiResDateTime",
      [](F& f, auto v) { return f.FormatMaxHiResDateTime(v, QXFMT_DATE_YMD); });
  AddStamp<kMillisecond>("FormatMSecondTime",
      [](F& f, auto v) { return f.FormatMSecondTime(v); });
  AddStamp<kMicrosecond>("FormatHiResTime",
      [](F& f, auto v) { return f.FormatHiResTime(v); });
  AddStamp<kNanosecond>("FormatMaxHiResTime",
      [](F& f, auto v) { return f.FormatMaxHiResTime(v); });
  AddStamp<kNanosecond>("FormatAllDateTime, seconds",
      [](F& f, auto v) { return f.FormatAllDateTime(v, QXFMT_TIME_SECOND, QXFMT_DATE_YMD); });
  AddStamp<kNanosecond>("FormatAllDateTime, microseconds",
      [](F& f, auto v) { return f.FormatAllDateTime(v, QXFMT_TIME_USECOND, QXFMT_DATE_YMD); });
  AddStamp<kNanosecond>("FormatAllTime, seconds",
      [](F& f, auto v) { return f.FormatAllTime(v, QXFMT_TIME_SECOND); });
  AddStamp<kNanosecond>("FormatAllTime, microseconds",
      [](F& f, auto v) { return f.FormatAllTime(v, QXFMT_TIME_USECOND); });
  // clang-format on
}

void AddOleDates() {
  Compare(
      "FormatOleDateTime", OleDates(),
      [](F& f, double v) { return f.FormatOleDateTime(v, QXFMT_DATE_YMD); },
      Peer{"gmtime_r, fmt compiled", [](char* out, double v) {
             const std::time_t seconds = std::llround((v - 25569) * 86400);  // days to 1970-01-01
             std::tm fields;
             gmtime_r(&seconds, &fields);
             return FmtDateTime(out, fields);
           }});
}

// --- Durations

constexpr QXFMT_DURATION_FORMAT kClock = QXFMT_DURATION_CLOCK;
constexpr QXFMT_DURATION_FORMAT kWords = QXFMT_DURATION_WORDS_EN;

template <std::int64_t kUnitsPerSecond, typename Ours>
void AddClock(const char* operation, Ours ours) {
  Compare(operation, Durations(kUnitsPerSecond), ours,
          Peer{"fmt compiled",
               [](char* out, std::int64_t v) { return FmtClock<kUnitsPerSecond>(out, v); }, 9});
}

// Pairs of value and unit, printed by fmt.
template <std::int64_t kUnitsPerSecond, typename Out>
Out FmtWords(Out out, std::int64_t count) {
  const std::int64_t seconds = count / kUnitsPerSecond;
  const std::int64_t rest = count % kUnitsPerSecond * (kNanosecond / kUnitsPerSecond);
  const struct {
    std::int64_t value;
    const char* unit;
  } fields[] = {{seconds / 86400, "d"}, {seconds / 3600 % 24, "h"}, {seconds / 60 % 60, "m"},
                {seconds % 60, "s"},    {rest / 1'000'000, "ms"},   {rest / 1'000 % 1'000, "us"},
                {rest % 1'000, "ns"}};
  for (const auto& field : fields) {
    if (field.value > 0) out = fmt::format_to(out, FMT_COMPILE("{}{}"), field.value, field.unit);
  }
  return out;
}

template <std::int64_t kUnitsPerSecond, typename Ours>
void AddWords(const char* operation, Ours ours) {
  Compare(
      operation, Durations(kUnitsPerSecond), ours,
      Peer{"fmt compiled, on the stack",
           [](char* out, std::int64_t v) { return FmtWords<kUnitsPerSecond>(out, v); }, 2},
      Peer{"fmt compiled, std::string",
           [](std::int64_t v) {
             std::string text;
             FmtWords<kUnitsPerSecond>(std::back_inserter(text), v);
             return text;
           }},
      Peer{"absl::FormatDuration", [](std::int64_t v) {
             return absl::FormatDuration(absl::Nanoseconds(v) * (kNanosecond / kUnitsPerSecond));
           }});
}

void AddDurations() {
  // clang-format off
  AddClock<kSecond>("FormatDurationSecond, clock",
      [](F& f, auto v) { return f.FormatDurationSecond(static_cast<std::uint32_t>(v), kClock); });
  AddClock<kMillisecond>("FormatDurationMSecond, clock",
      [](F& f, auto v) { return f.FormatDurationMSecond(v, kClock); });
  AddClock<kMicrosecond>("FormatDurationUSecond, clock",
      [](F& f, auto v) { return f.FormatDurationUSecond(v, kClock); });
  AddClock<kNanosecond>("FormatDurationNSecond, clock",
      [](F& f, auto v) { return f.FormatDurationNSecond(v, kClock); });
  AddWords<kSecond>("FormatDurationSecond, words",
      [](F& f, auto v) { return f.FormatDurationSecond(static_cast<std::uint32_t>(v), kWords); });
  AddWords<kMillisecond>("FormatDurationMSecond, words",
      [](F& f, auto v) { return f.FormatDurationMSecond(v, kWords); });
  AddWords<kMicrosecond>("FormatDurationUSecond, words",
      [](F& f, auto v) { return f.FormatDurationUSecond(v, kWords); });
  AddWords<kNanosecond>("FormatDurationNSecond, words",
      [](F& f, auto v) { return f.FormatDurationNSecond(v, kWords); });
  Compare("FormatDurationNSecond, Chinese words", Durations(kNanosecond),
      [](F& f, auto v) { return f.FormatDurationNSecond(v, QXFMT_DURATION_WORDS_CN); });
  Compare("FormatDurationNSecond, plain", Durations(kNanosecond),
      [](F& f, auto v) { return f.FormatDurationNSecond(v, QXFMT_DURATION_PLAIN); });
  Compare("FormatDurationAllSecond, clock, milliseconds", Durations(kNanosecond),
      [](F& f, auto v) { return f.FormatDurationAllSecond(v, QXFMT_TIME_MSECOND, kClock); });
  // clang-format on
  // Up to some 376 days, as it takes them.
  Compare("FormatHiResTimeRange", Durations(kMillisecond),
          [](F& f, std::int64_t v) { return f.FormatHiResTimeRange(v % QXFMT_TIME_LIMIT); });
}

// The protected steps of a worded duration.
struct Steps : CQXDataFormat {
  using CQXDataFormat::FormatDataAndUnit;
  using CQXDataFormat::FormatDuration;
  using CQXDataFormat::FormatPositiveDataAndUnit;

  GrowableText result;
  GrowableText unit;
};

template <typename Call>
void AddStep(const char* operation, Call call) {
  Compare(operation, Durations(kNanosecond), [call](std::int64_t v) {
    thread_local Steps steps;
    call(steps, v);
    const std::size_t size = steps.result.size();
    steps.result.clear();
    return size;
  });
}

void AddSteps() {
  AddStep("FormatDuration", [](Steps& s, std::int64_t v) {
    s.FormatDuration(QXFMT_TIME_NSECOND, kWords, v, s.result);
  });
  AddStep("FormatDataAndUnit", [](Steps& s, std::int64_t v) {
    s.FormatDataAndUnit(static_cast<std::int32_t>(v % 1000), s.unit, s.result);
  });
  AddStep("FormatPositiveDataAndUnit", [](Steps& s, std::int64_t v) {
    s.FormatPositiveDataAndUnit(static_cast<std::int32_t>(v % 1000), s.unit, s.result);
  });
}

}  // namespace

void AddTimeRows() {
  AddPacketStamps();
  AddStamps();
  AddOleDates();
  AddDurations();
  AddSteps();
}

}  // namespace qxfmt::bench
