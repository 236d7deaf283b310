#include <cstdint>
#include <string>
#include <utility>

#include "comparison.h"
#include "peers.h"

namespace qxfmt::bench {

namespace {

// `call(text, value)` on one text a thread, which is emptied after each.
template <typename String, typename Call>
auto OnOneText(Call call) {
  return [call](const auto& value) {
    thread_local String text;
    call(text, value);
    const std::size_t size = text.size();
    text.clear();
    return size;
  };
}

// The same steps on ours and on the standard one.

template <typename String>
constexpr auto kMake = [](const Text& v) {
  String text;
  text.assign(v.wide);
  return text.c_str()[0];
};

template <typename String>
constexpr auto kCopyAndMove = [](const Text& v) {
  thread_local const String source = [] {
    String text;
    text.assign(u"1d1h1m1s");
    return text;
  }();
  String copy(source);
  const String text(std::move(copy));
  return text.size() + v.wide[0];
};

constexpr auto kAppend = [](auto& text, const Text& v) { text.append(v.wide); };

constexpr auto kResize = [](auto& text, std::uint32_t v) {
  text.reserve(63);
  text.resize(v % 64, u'0');
};

}  // namespace

void AddGrowableTextRows() {
  using Own = GrowableText;
  using Std = std::u16string;
  Compare("GrowableText, made and assigned", CaptureIpv6Texts(), kMake<Own>,
          Peer{"std::u16string", kMake<Std>});
  Compare("GrowableText, copied and moved", CaptureIpv6Texts(), kCopyAndMove<Own>,
          Peer{"std::u16string", kCopyAndMove<Std>});
  Compare("GrowableText::append", CaptureIpv6Texts(), OnOneText<Own>(kAppend),
          Peer{"std::u16string", OnOneText<Std>(kAppend)});
  Compare("GrowableText::resize", PacketSizes(), OnOneText<Own>(kResize),
          Peer{"std::u16string", OnOneText<Std>(kResize)});
  Compare("GrowableText::append_format", PacketSizes(),
          OnOneText<Own>([](Own& text, std::uint32_t v) { text.append_format(u"%u%s", v, u"ms"); }),
          Peer{"fmt compiled", [](char* out, std::uint32_t v) {
                 return fmt::format_to(out, FMT_COMPILE("{}{}"), v, "ms");
               }});
}

}  // namespace qxfmt::bench
