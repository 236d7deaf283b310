#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <locale>
#include <random>

#include "comparison.h"

#if defined(QXFMT_WITH_FMT)
#include <fmt/compile.h>
#include <fmt/format.h>
#endif
#if defined(QXFMT_WITH_ABSL)
#include <absl/strings/str_cat.h>
#include <absl/strings/str_format.h>
#endif

namespace qxfmt::bench {

namespace {

// A fixed mix over all magnitudes: every bit width is as likely as any other.
std::vector<std::uint64_t> MixedIntegers() {
  std::mt19937_64 random(1);
  std::vector<std::uint64_t> values(kValues);
  for (std::uint64_t& value : values) value = random() >> (random() % 64);
  return values;
}

// Likewise, from thousandths up to 2^64, with a full mantissa.
std::vector<double> MixedDoubles() {
  std::mt19937_64 random(2);
  std::vector<double> values(kValues);
  for (double& value : values) {
    const auto mantissa = static_cast<double>(random() >> 11);  // 53 bits
    value = std::ldexp(mantissa, -static_cast<int>(random() % 74) + 11);
    if (random() % 4 == 0) value = -value;
  }
  return values;
}

#if defined(QXFMT_WITH_FMT)
class CommaPunctuation : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};
#endif

void RegisterIntegers() {
  const std::vector<std::uint64_t> values = MixedIntegers();
  const char* const plain = "FormatNumber u64, ungrouped";
  Ours(plain, values, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatNumber(v, 0); });
  Peer(plain, "std::to_chars", values,
       [](char* out, std::uint64_t v) { return std::to_chars(out, out + kPeerBuffer, v).ptr; });
  Peer(plain, "snprintf", values, [](char* out, std::uint64_t v) {
    return std::snprintf(out, kPeerBuffer, "%llu", static_cast<unsigned long long>(v));
  });
  const char* const grouped = "FormatNumber u64, grouped";
  Ours(grouped, values, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatNumber(v, 1); });
#if defined(QXFMT_WITH_FMT)
  Peer(plain, "fmt compiled", values,
       [](char* out, std::uint64_t v) { return fmt::format_to(out, FMT_COMPILE("{}"), v); });
  static const std::locale commas(std::locale::classic(), new CommaPunctuation);
  Peer(grouped, "fmt with a locale", values,
       [](char* out, std::uint64_t v) { return fmt::format_to(out, commas, "{:L}", v); });
#endif
#if defined(QXFMT_WITH_ABSL)
  Peer(plain, "absl::AlphaNum", values, [](char* out, std::uint64_t v) {
    const absl::AlphaNum number(v);
    return std::copy_n(number.data(), number.size(), out);
  });
#endif
}

// The peers of an operation that prints a number with two places, and a unit behind it or not.
// `scale(value)` gives what to print.
struct Scaled {
  double number;
  const char* unit;
};

template <typename Value, typename Scale>
void DecimalPeers(const std::string& operation, const std::vector<Value>& values, Scale scale) {
  Peer(operation, "snprintf", values, [scale](char* out, Value v) {
    const Scaled scaled = scale(v);
    return std::snprintf(out, kPeerBuffer, "%.2f%s", scaled.number, scaled.unit);
  });
#if defined(QXFMT_WITH_FMT)
  Peer(operation, "fmt compiled", values, [scale](char* out, Value v) {
    const Scaled scaled = scale(v);
    return fmt::format_to(out, FMT_COMPILE("{:.2f}{}"), scaled.number, scaled.unit);
  });
#endif
#if defined(QXFMT_WITH_ABSL)
  Peer(operation, "absl::SNPrintF", values, [scale](char* out, Value v) {
    const Scaled scaled = scale(v);
    return absl::SNPrintF(out, kPeerBuffer, "%.2f%s", scaled.number, scaled.unit);
  });
#endif
}

void RegisterDecimals() {
  const std::vector<double> values = MixedDoubles();
  const char* const plain = "FormatNumberEx double, 2 places";
  Ours(plain, values, [](CQXDataFormat& f, double v) { return f.FormatNumberEx(v, 2, 0); });
  Peer(plain, "std::to_chars", values, [](char* out, double v) {
    return std::to_chars(out, out + kPeerBuffer, v, std::chars_format::fixed, 2).ptr;
  });
  Peer(plain, "snprintf", values,
       [](char* out, double v) { return std::snprintf(out, kPeerBuffer, "%.2f", v); });
#if defined(QXFMT_WITH_FMT)
  Peer(plain, "fmt compiled", values,
       [](char* out, double v) { return fmt::format_to(out, FMT_COMPILE("{:.2f}"), v); });
#endif
#if defined(QXFMT_WITH_ABSL)
  Peer(plain, "absl::SNPrintF", values,
       [](char* out, double v) { return absl::SNPrintF(out, kPeerBuffer, "%.2f", v); });
#endif

  const char* const decimal = "FormatDecimal";
  Ours(decimal, values, [](CQXDataFormat& f, double v) { return f.FormatDecimal(v); });
  Peer(decimal, "std::to_chars", values, [](char* out, double v) {
    return std::to_chars(out, out + kPeerBuffer, v, std::chars_format::fixed, 2).ptr;
  });
  const char* const grouped = "FormatNumber double, grouped";
  Ours(grouped, values, [](CQXDataFormat& f, double v) { return f.FormatNumber(v, 1); });
#if defined(QXFMT_WITH_FMT)
  static const std::locale commas(std::locale::classic(), new CommaPunctuation);
  Peer(grouped, "fmt with a locale", values,
       [](char* out, double v) { return fmt::format_to(out, commas, "{:.2Lf}", v); });
#endif
}

constexpr const char* kByteUnits[] = {" B", " KB", " MB", " GB", " TB"};
constexpr const char* kBitRateUnits[] = {" bps", " Kbps", " Mbps", " Gbps", " Tbps"};

Scaled ScaleBy(double step, double number, const char* const* units) {
  int unit = 0;
  for (; number >= step && unit < 4; ++unit) number /= step;
  return {number, units[unit]};
}

void RegisterQuantities() {
  const std::vector<std::uint64_t> counts = MixedIntegers();
  const std::vector<double> rates = MixedDoubles();

  const char* const bytes = "FormatByte, 2 places";
  Ours(bytes, counts, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatByte(v, 2); });
  DecimalPeers(bytes, counts,
               [](std::uint64_t v) { return ScaleBy(1024, static_cast<double>(v), kByteUnits); });
  const char* const bits = "FormatBit, 2 places";
  Ours(bits, counts, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatBit(v, 2); });
  DecimalPeers(bits, counts,
               [](std::uint64_t v) { return ScaleBy(1000, static_cast<double>(v), kByteUnits); });
  const char* const byte_rate = "FormatBytePerSecond double";
  Ours(byte_rate, rates, [](CQXDataFormat& f, double v) { return f.FormatBytePerSecond(v); });
  DecimalPeers(byte_rate, rates, [](double v) { return ScaleBy(1024, v, kByteUnits); });
  const char* const bit_rate = "FormatBitPerSecond double";
  Ours(bit_rate, rates, [](CQXDataFormat& f, double v) { return f.FormatBitPerSecond(v); });
  DecimalPeers(bit_rate, rates, [](double v) { return ScaleBy(1000, v, kBitRateUnits); });

  std::vector<float> shares;
  for (const double rate : rates) shares.push_back(static_cast<float>(std::fmod(rate, 1.0)));
  const char* const percentage = "FormatPercentage float";
  Ours(percentage, shares, [](CQXDataFormat& f, float v) { return f.FormatPercentage(v); });
  DecimalPeers(percentage, shares, [](float v) {
    return Scaled{static_cast<double>(v * 100.0F), "%"};
  });
}

void RegisterOthers() {
  const std::vector<std::uint64_t> values = MixedIntegers();
  const char* const padded = "FormatNumberEx u64, 6 digits";
  Ours(padded, values, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatNumberEx(v, 6, 0); });
  Peer(padded, "snprintf", values, [](char* out, std::uint64_t v) {
    return std::snprintf(out, kPeerBuffer, "%.6llu", static_cast<unsigned long long>(v));
  });
  std::vector<std::int32_t> ratios;
  for (const std::uint64_t value : values) ratios.push_back(static_cast<std::int32_t>(value % 999));
  const char* const percentage = "FormatPercentage int";
  Ours(percentage, ratios, [](CQXDataFormat& f, std::int32_t v) { return f.FormatPercentage(v); });
  Peer(percentage, "snprintf", ratios,
       [](char* out, std::int32_t v) { return std::snprintf(out, kPeerBuffer, "%d%%", v * 100); });
  const char* const binary = "FormatBinary u32";
  Ours(binary, values, [](CQXDataFormat& f, std::uint64_t v) {
    return f.FormatBinary(static_cast<std::uint32_t>(v));
  });
  Peer(binary, "std::to_chars base 2", values, [](char* out, std::uint64_t v) {
    return std::to_chars(out, out + kPeerBuffer, static_cast<std::uint32_t>(v), 2).ptr;
  });
  const char* const single = "one result of a new formatter";
  Other(single, "qxfmt", values, [](std::uint64_t v) {
    CQXDataFormat format;
    return *format.FormatNumber(v, 1);
  });
#if defined(QXFMT_WITH_FMT)
  Peer(padded, "fmt compiled", values,
       [](char* out, std::uint64_t v) { return fmt::format_to(out, FMT_COMPILE("{:06}"), v); });
  Peer(percentage, "fmt compiled", ratios,
       [](char* out, std::int32_t v) { return fmt::format_to(out, FMT_COMPILE("{}%"), v * 100); });
  Peer(binary, "fmt compiled", values, [](char* out, std::uint64_t v) {
    return fmt::format_to(out, FMT_COMPILE("{:032b}"), static_cast<std::uint32_t>(v));
  });
  static const std::locale commas(std::locale::classic(), new CommaPunctuation);
  Other(single, "fmt into a std::string", values,
        [](std::uint64_t v) { return fmt::format(commas, "{:L}", v).size(); });
#endif
}

}  // namespace

void RegisterNumbers() {
  RegisterIntegers();
  RegisterDecimals();
  RegisterQuantities();
  RegisterOthers();
}

}  // namespace qxfmt::bench
