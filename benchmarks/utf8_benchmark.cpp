#include <string>
#include <string_view>

#include <qxfmt/utf8.h>

#include "comparison.h"

namespace qxfmt::bench {

namespace {

// Right for ASCII alone: what one writes without a conversion at hand.
constexpr auto kLoop = [](char* out, const Text& v) {
  for (const char16_t* unit = v.wide; *unit != 0; ++unit) *out++ = static_cast<char>(*unit);
  *out = '\0';
  return out;
};
constexpr auto kStringOfUnits = [](const Text& v) {
  const std::u16string_view text = v.wide;
  return std::string(text.begin(), text.end()).size();
};

template <typename String>
constexpr auto kAppendUnits = [](const auto& text) {
  thread_local String out;
  out.clear();
  for (const auto unit : text) out += static_cast<typename String::value_type>(unit);
  return out.size();
};

}  // namespace

void AddUtf8Rows() {
  Compare(
      "qxfmt::Utf8, IPv6 addresses", CaptureIpv6Texts(),
      [](const Text& v) {
        const Utf8 bytes(v.wide);
        benchmark::DoNotOptimize(bytes.c_str());
        return bytes.size();
      },
      Peer{"std::string(begin, end)", kStringOfUnits, 1.0});
  Compare(
      "qxfmt::CopyUtf8, IPv6 addresses", CaptureIpv6Texts(),
      [](const Text& v) {
        char out[kPeerBuffer];
        const std::size_t size = CopyUtf8(v.wide, out, sizeof out);
        benchmark::DoNotOptimize(out);
        return size;
      },
      Peer{"loop over ASCII", kLoop, 1.0});
  Compare(
      "qxfmt::AppendUtf8, IPv6 addresses", CaptureIpv6Texts(),
      [](const Text& v) {
        thread_local std::string out;
        out.clear();
        AppendUtf8(out, v.wide);
        return out.size();
      },
      Peer{"loop over ASCII",
           [](const Text& v) { return kAppendUnits<std::string>(std::u16string_view(v.wide)); },
           1.0});
  Compare(
      "qxfmt::AppendUtf16, IPv6 addresses", CaptureIpv6Texts(),
      [](const Text& v) {
        thread_local std::u16string out;
        out.clear();
        AppendUtf16(out, v.narrow);
        return out.size();
      },
      Peer{"loop over ASCII", [](const Text& v) { return kAppendUnits<std::u16string>(v.narrow); },
           1.0});
}

}  // namespace qxfmt::bench
