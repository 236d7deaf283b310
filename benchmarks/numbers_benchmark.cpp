#include <absl/strings/str_cat.h>
#include <absl/strings/str_format.h>

#include <cstdint>
#include <cstdio>
#include <locale>

#include "comparison.h"
#include "peers.h"

namespace qxfmt::bench {

namespace {

// Each value of a set in another type.
template <typename To, typename From>
class Cast {
 public:
  explicit Cast(Values<From> values) : values_(values) {}
  std::size_t size() const { return values_.size(); }
  To operator[](std::size_t i) const { return static_cast<To>(values_[i]); }

 private:
  Values<From> values_;
};
template <typename To, typename From>
Cast<To, From> As(Values<From> values) {
  return Cast<To, From>(values);
}

// --- Integers

constexpr auto kSnprintf = [](char* out, auto v) {
  return std::snprintf(out, kPeerBuffer, "%lld", static_cast<long long>(v));
};
constexpr auto kAbsl = [](char* out, auto v) {
  const absl::AlphaNum number(v);
  return std::copy_n(number.data(), number.size(), out);
};

// The digits of std::to_chars, with the commas put between them.
constexpr auto kGroupingLoop = [](char* out, auto v) {
  char digits[24];
  const char* const end = std::to_chars(digits, digits + sizeof digits, v).ptr;
  for (const char* at = digits; at != end;) {
    *out++ = *at++;
    if (at != end && (end - at) % 3 == 0) *out++ = ',';
  }
  return out;
};

class CommaPunctuation : public std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};
const std::locale kCommas(std::locale::classic(), new CommaPunctuation);

void AddIntegers() {
  constexpr auto plain = [](CQXDataFormat& f, auto v) { return f.FormatNumber(v, 0); };
  constexpr Peer fmt{"fmt compiled", kFmtDecimal};
  constexpr Peer to_chars{"std::to_chars", kToChars};
  constexpr Peer absl{"absl::AlphaNum", kAbsl};
  constexpr Peer snprintf{"snprintf", kSnprintf};
  Compare("FormatNumber u32, packet sizes", PacketSizes(), plain, fmt.WithGoal(1.2), to_chars, absl,
          snprintf);
  Compare("FormatNumber u64, byte counters", ByteCounters(), plain, fmt.WithGoal(1.6), to_chars,
          absl, snprintf);
  Compare("FormatNumber u64, any width", AnyWidth(), plain, fmt, to_chars, absl);
  Compare("FormatNumber i64, any width", AnyWidthSigned(), plain, fmt, to_chars, absl, snprintf);
  Compare("FormatNumber i32, any width", As<std::int32_t>(AnyWidthSigned()), plain, fmt, to_chars);
  Compare("FormatNumber u16, ports", Ports(), plain, fmt, to_chars);
  Compare("FormatNumber i16, any width", As<std::int16_t>(AnyWidthSigned()), plain, fmt, to_chars);

  constexpr auto grouped = [](CQXDataFormat& f, auto v) { return f.FormatNumber(v, 1); };
  constexpr Peer loop{"loop over std::to_chars", kGroupingLoop};
  constexpr Peer fmt_grouped{"fmt with a locale", [](char* out, auto v) {
                               return fmt::format_to(out, kCommas, "{:L}", v);
                             }};
  Compare("FormatNumber u32, grouped, packet sizes", PacketSizes(), grouped, loop, fmt_grouped);
  Compare("FormatNumber u64, grouped, byte counters", ByteCounters(), grouped, loop.WithGoal(2.5),
          fmt_grouped);
  Compare("FormatNumber i64, grouped, any width", AnyWidthSigned(), grouped, fmt_grouped);

  Compare(
      "FormatNumberEx u64, 6 digits, packet sizes", PacketSizes(),
      [](CQXDataFormat& f, std::uint32_t v) { return f.FormatNumberEx(std::uint64_t{v}, 6, 0); },
      Peer{"fmt compiled",
           [](char* out, auto v) { return fmt::format_to(out, FMT_COMPILE("{:06}"), v); }},
      Peer{"snprintf",
           [](char* out, auto v) { return std::snprintf(out, kPeerBuffer, "%.6u", v); }});
}

// --- Decimals

void AddDecimals() {
  constexpr Peer fmt{"fmt compiled", kFmtTwoPlaces};
  constexpr Peer to_chars{
      "std::to_chars", [](char* out, auto v) {
        return std::to_chars(out, out + kPeerBuffer, v, std::chars_format::fixed, 2).ptr;
      }};
  constexpr Peer absl{"absl::SNPrintF", [](char* out, auto v) {
                        return absl::SNPrintF(out, kPeerBuffer, "%.2f", v);
                      }};
  constexpr Peer snprintf{
      "snprintf", [](char* out, double v) { return std::snprintf(out, kPeerBuffer, "%.2f", v); }};
  constexpr auto places = [](CQXDataFormat& f, double v) { return f.FormatNumberEx(v, 2, 0); };
  constexpr auto decimal = [](CQXDataFormat& f, auto v) { return f.FormatDecimal(v); };
  Compare("FormatNumberEx double, 2 places, averages", Averages(), places, fmt.WithGoal(3),
          to_chars, absl, snprintf);
  Compare("FormatNumberEx double, 2 places, any magnitude", AnyMagnitude(), places, fmt, to_chars,
          absl, snprintf);
  Compare("FormatDecimal double, averages", Averages(), decimal, fmt.WithGoal(3), to_chars, absl,
          snprintf);
  Compare("FormatDecimal float, shares", Shares(), decimal, fmt.WithGoal(3), to_chars, absl,
          snprintf);
  Compare(
      "FormatNumber double, averages", Averages(),
      [](CQXDataFormat& f, double v) { return f.FormatNumber(v, 0); }, fmt.WithGoal(3), to_chars);
  Compare(
      "FormatNumber double, grouped, any magnitude", AnyMagnitude(),
      [](CQXDataFormat& f, double v) { return f.FormatNumber(v, 1); },
      Peer{"fmt with a locale",
           [](char* out, double v) { return fmt::format_to(out, kCommas, "{:.2Lf}", v); }});
}

// --- Sizes, rates and shares

// Beside what prints a number with two places and a unit; `scale(value)` gives both.
template <typename Set, typename Ours, typename Scale>
void CompareScaled(const char* operation, Set set, Ours ours, Scale scale) {
  Compare(operation, set, ours,
          Peer{"fmt compiled", [scale](char* out, auto v) { return FmtScaled(out, scale(v)); }, 3},
          Peer{"absl::SNPrintF",
               [scale](char* out, auto v) {
                 const Scaled scaled = scale(v);
                 return absl::SNPrintF(out, kPeerBuffer, "%.2f%s", scaled.number, scaled.unit);
               }},
          Peer{"snprintf", [scale](char* out, auto v) {
                 const Scaled scaled = scale(v);
                 return std::snprintf(out, kPeerBuffer, "%.2f%s", scaled.number, scaled.unit);
               }});
}

void AddSizes() {
  constexpr auto bytes = [](CQXDataFormat& f, auto v) { return f.FormatByte(v, 2); };
  CompareScaled("FormatByte, byte counters", ByteCounters(), bytes, kScaleBytes);
  CompareScaled("FormatByte, packet sizes", PacketSizes(), bytes, kScaleBytes);
  Compare("FormatByte, no places, byte counters", ByteCounters(),
          [](CQXDataFormat& f, std::uint64_t v) { return f.FormatByte(v, 0); });
  Compare("FormatByte in MB, byte counters", ByteCounters(),
          [](CQXDataFormat& f, std::uint64_t v) { return f.FormatByte(v, QXFMT_BYTES_MB, 2); });

  constexpr auto scale_bits = [](std::uint64_t v) {
    return ScaleBy(1000, static_cast<double>(v), kBitUnits);
  };
  CompareScaled(
      "FormatBit, byte counters", ByteCounters(),
      [](CQXDataFormat& f, std::uint64_t v) { return f.FormatBit(v, 2); }, scale_bits);
  Compare("FormatBit in Mb, byte counters", ByteCounters(),
          [](CQXDataFormat& f, std::uint64_t v) { return f.FormatBit(v, QXFMT_BYTES_MB, 2); });
}

void AddRates() {
  constexpr auto scale_bytes = [](auto v) {
    return ScaleBy(1024, static_cast<double>(v), kByteRateUnits);
  };
  constexpr auto bytes = [](CQXDataFormat& f, auto v) { return f.FormatBytePerSecond(v); };
  constexpr auto bytes_in_mb = [](CQXDataFormat& f, auto v) {
    return f.FormatBytePerSecond(v, QXFMT_BYTES_MB, 2);
  };
  CompareScaled("FormatBytePerSecond double", BitRates(), bytes, scale_bytes);
  CompareScaled("FormatBytePerSecond u64", WholeRates(), bytes, scale_bytes);
  Compare("FormatBytePerSecond double in MBps", BitRates(), bytes_in_mb);
  Compare("FormatBytePerSecond u64 in MBps", WholeRates(), bytes_in_mb);

  constexpr auto bits = [](CQXDataFormat& f, auto v) { return f.FormatBitPerSecond(v); };
  constexpr auto bits_in_mb = [](CQXDataFormat& f, auto v) {
    return f.FormatBitPerSecond(v, QXFMT_BYTES_MB, 2);
  };
  CompareScaled("FormatBitPerSecond double", BitRates(), bits, kScaleBitRate);
  CompareScaled("FormatBitPerSecond u64", WholeRates(), bits, kScaleBitRate);
  Compare("FormatBitPerSecond double in Mbps", BitRates(), bits_in_mb);
  Compare("FormatBitPerSecond u64 in Mbps", WholeRates(), bits_in_mb);
}

void AddShares() {
  CompareScaled(
      "FormatPercentage float, shares", Shares(),
      [](CQXDataFormat& f, float v) { return f.FormatPercentage(v); }, kScaleShare);
  Compare(
      "FormatPercentage i32, any width", As<std::int32_t>(AnyWidthSigned()),
      [](CQXDataFormat& f, std::int32_t v) { return f.FormatPercentage(v); },
      Peer{"fmt compiled", [](char* out, std::int32_t v) {
             return fmt::format_to(out, FMT_COMPILE("{}%"), std::int64_t{v} * 100);
           }});
}

// --- Bit patterns

// A blank between groups of four takes its time too.
template <typename Value>
void CompareBinary(const char* operation) {
  Compare(
      operation, As<Value>(AnyWidth()), [](CQXDataFormat& f, Value v) { return f.FormatBinary(v); },
      Peer{"loop over the bits",
           [](char* out, Value v) {
             for (int bit = 8 * sizeof v - 1; bit >= 0; --bit) {
               *out++ = static_cast<char>('0' + (v >> bit & 1));
               if (bit % 4 == 0 && bit > 0) *out++ = ' ';
             }
             return out;
           }},
      Peer{"fmt compiled, no blanks", [](char* out, Value v) {
             return fmt::format_to(out, FMT_COMPILE("{:0{}b}"), v, 8 * sizeof v);
           }});
}

}  // namespace

void AddNumberRows() {
  AddIntegers();
  AddDecimals();
  AddSizes();
  AddRates();
  AddShares();
  CompareBinary<std::uint8_t>("FormatBinary u8");
  CompareBinary<std::uint16_t>("FormatBinary u16");
  CompareBinary<std::uint32_t>("FormatBinary u32");
}

}  // namespace qxfmt::bench
