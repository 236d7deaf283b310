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
}

struct Scaled {
  double number;
  const char* unit;
};

Scaled ScaleBytes(std::uint64_t value) {
  static constexpr const char* kUnits[] = {"B", "KB", "MB", "GB", "TB"};
  int unit = 0;
  auto number = static_cast<double>(value);
  for (; number >= 1024 && unit < 4; ++unit) number /= 1024;
  return {number, kUnits[unit]};
}

void RegisterQuantities() {
  const std::vector<std::uint64_t> values = MixedIntegers();
  const char* const bytes = "FormatByte, 2 places";
  Ours(bytes, values, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatByte(v, 2); });
  Peer(bytes, "snprintf", values, [](char* out, std::uint64_t v) {
    const Scaled scaled = ScaleBytes(v);
    return std::snprintf(out, kPeerBuffer, "%.2f %s", scaled.number, scaled.unit);
  });
#if defined(QXFMT_WITH_FMT)
  Peer(bytes, "fmt compiled", values, [](char* out, std::uint64_t v) {
    const Scaled scaled = ScaleBytes(v);
    return fmt::format_to(out, FMT_COMPILE("{:.2f} {}"), scaled.number, scaled.unit);
  });
#endif
#if defined(QXFMT_WITH_ABSL)
  Peer(bytes, "absl::SNPrintF", values, [](char* out, std::uint64_t v) {
    const Scaled scaled = ScaleBytes(v);
    return absl::SNPrintF(out, kPeerBuffer, "%.2f %s", scaled.number, scaled.unit);
  });
#endif
}

}  // namespace

void RegisterNumbers() {
  RegisterIntegers();
  RegisterDecimals();
  RegisterQuantities();
}

}  // namespace qxfmt::bench
