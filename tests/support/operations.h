#pragma once

// Every public operation as a call whose arguments come from bytes: random ones in a test, a
// fuzzer's in a fuzz target.

#include <algorithm>
#include <bit>
#include <functional>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "support/counted_heap.h"

namespace qxfmt::test {

// Makes arguments of bytes, and of zeros when these are used up.
class Arguments {
 public:
  explicit Arguments(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool empty() const { return bytes_.empty(); }

  std::uint8_t TakeByte() {
    if (empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  // An integer of any size, a real near one or of any bits, an enumeration's value in or near its
  // list or anywhere, or what makes itself of arguments.
  template <typename Value>
  Value Take() {
    if constexpr (std::is_class_v<Value>) {
      return Value(*this);
    } else if constexpr (std::is_enum_v<Value>) {
      const std::uint8_t byte = TakeByte();
      return static_cast<Value>(byte < 0xE0 ? byte % 8 - 1 : Take<std::int32_t>());
    } else if constexpr (std::is_floating_point_v<Value>) {
      const std::uint8_t divisor = TakeByte();
      if (divisor != 0) return static_cast<Value>(Take<std::int64_t>()) / divisor;
      using Bits = std::conditional_t<sizeof(Value) == 8, std::int64_t, std::int32_t>;
      return std::bit_cast<Value>(static_cast<Bits>(TakeSigned(sizeof(Value))));
    } else {
      return static_cast<Value>(TakeSigned(TakeByte() % (sizeof(Value) + 1)));
    }
  }

 private:
  std::int64_t TakeSigned(std::size_t bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i) value = value << 8 | TakeByte();
    const std::size_t unused = bytes == 0 ? 0 : 64 - 8 * bytes;
    return static_cast<std::int64_t>(value << unused) >> unused;
  }

  std::span<const std::uint8_t> bytes_;
};

// Octets in a heap area of exactly their size; a null pointer if there are none.
struct Octets {
  Octets(Arguments& from, std::int32_t size, std::int32_t most) : count(size) {
    octets.reserve(static_cast<std::size_t>(std::clamp(size, 0, most)));
    while (octets.size() < octets.capacity()) octets.push_back(from.TakeByte());
  }
  operator const std::uint8_t*() const { return octets.data(); }

  std::int32_t count;  // as the operation is told
  std::vector<std::uint8_t> octets;
};

struct MacOctets : Octets {
  explicit MacOctets(Arguments& from) : Octets(from, from.TakeByte() % 11 - 1, 8) {}
};

struct Ipv6Octets : Octets {
  explicit Ipv6Octets(Arguments& from) : Octets(from, from.TakeByte() % 8 == 0 ? 0 : 16, 16) {}
};

// Units up to a zero byte, in a heap area of exactly their size. A byte above 0x7F becomes a unit
// that has the low byte of an ASCII character but is none. After leading blanks, a text has either
// up to kLongest units and a terminator, or one unit more and none.
template <std::size_t kLongest>
struct Typed {
  explicit Typed(Arguments& from) {
    std::u16string text;
    while (const std::uint8_t byte = from.TakeByte())
      text += static_cast<char16_t>(byte + (byte & 0x80));
    const std::size_t first = std::min(text.find_first_not_of(u' '), text.size());
    units.assign(text.c_str(), text.c_str() + std::min(text.size(), first + kLongest) + 1);
  }
  operator WideText() const { return units.data(); }

  std::vector<char16_t> units;
};

using AnyText = Typed<10000>;

// A formatter with its protected operations, and with room for a text that is in no block.
class Formatter : public CQXDataFormat {
 public:
  using CQXDataFormat::FormatDataAndUnit;
  using CQXDataFormat::FormatDuration;
  using CQXDataFormat::FormatPositiveDataAndUnit;

  // Valid until the next one.
  ResultText Keep(std::u16string_view text) {
    room_[text.copy(room_, std::size(room_) - 1)] = u'\0';
    return room_;
  }
  bool IsKept(ResultText text) const { return text == room_; }

 private:
  char16_t room_[1000];
};

// An operation with its arguments.
using Call = std::function<ResultText(Formatter&)>;

struct Operation {
  const char* name;
  std::function<Call(Arguments&)> bind;
};

class Operations : public std::vector<Operation> {
 public:
  Operations();

 private:
  // One for each signature.
  template <typename... Signatures, typename Function>
  void Add(const char* name, Function function) {
    (push_back({name, Binding(function, static_cast<Signatures*>(nullptr))}), ...);
  }

  template <typename Function, typename... Values>
  static auto Binding(Function function, void (*)(Values...)) {
    return [=](Arguments& from) -> Call {
      return [=, values = std::tuple<Values...>{from.Take<Values>()...}](Formatter& format) {
        return std::apply([&](const auto&... value) { return function(format, value...); }, values);
      };
    };
  }
};

inline Operations::Operations() {
  using i16 = std::int16_t;
  using i32 = std::int32_t;
  using i64 = std::int64_t;
  using u8 = std::uint8_t;
  using u16 = std::uint16_t;
  using u32 = std::uint32_t;
  using u64 = std::uint64_t;
  using Unit = QXFMT_BYTES_FORMAT;
  using Layout = QXFMT_DATE_FORMAT;
  using Accuracy = QXFMT_TIME_ACCURACY;
  using Kind = QXFMT_DURATION_FORMAT;
#define ADD(name, ...) \
  Add<__VA_ARGS__>(    \
      #name, [](Formatter& format, const auto&... values) { return format.name(values...); })
  ADD(FormatNumber, void(u64, i32), void(i64, i32), void(u32, i32), void(i32, i32), void(u16, i32),
      void(i16, i32), void(double, i32));
  ADD(FormatNumberEx, void(double, i32, i32), void(u64, i32, i32));
  ADD(FormatDecimal, void(float), void(double));
  ADD(FormatByte, void(u64, i32), void(u64, Unit, i32));
  ADD(FormatBit, void(u64, i32), void(u64, Unit, i32));
  ADD(FormatBytePerSecond, void(u64), void(double), void(u64, Unit, i32), void(double, Unit, i32));
  ADD(FormatBitPerSecond, void(u64), void(double), void(u64, Unit, i32), void(double, Unit, i32));
  ADD(FormatPercentage, void(i32), void(float));
  ADD(FormatBinary, void(u8), void(u16), void(u32));
  ADD(FormatIpAddress, void(u32));
  ADD(FormatIpPort, void(u32, u16));
  ADD(FormatMacAddress, void(u64));
  ADD(FormatIPv6Address, void(Ipv6Octets, QXFMT_IPV6_TYPE));
  ADD(FormatIpv6Port, void(Ipv6Octets, u16, QXFMT_IPV6_TYPE));
  ADD(FormatDate, void(i64, Layout));
  ADD(FormatTime, void(i64));
  ADD(FormatDateTime, void(i64, Layout));
  ADD(FormatMSecondDataTime, void(i64, Layout));
  ADD(FormatHiResDateTime, void(i64, Layout));
  ADD(FormatMaxHiResDateTime, void(i64, Layout));
  ADD(FormatMSecondTime, void(i64));
  ADD(FormatHiResTime, void(i64));
  ADD(FormatMaxHiResTime, void(i64));
  ADD(FormatAllDateTime, void(i64, Accuracy, Layout));
  ADD(FormatAllTime, void(i64, Accuracy));
  ADD(FormatOleDateTime, void(double, Layout));
  ADD(FormatDurationSecond, void(u32, Kind));
  ADD(FormatDurationMSecond, void(i64, Kind));
  ADD(FormatDurationUSecond, void(i64, Kind));
  ADD(FormatDurationNSecond, void(i64, Kind));
  ADD(FormatDurationAllSecond, void(i64, Accuracy, Kind));
  ADD(FormatHiResTimeRange, void(i64));
#undef ADD
  Add<void(u32, i32)>("FormatIpAddress, area", [](Formatter& format, u32 address, i32 length) {
    char16_t area[16];
    return format.Keep(format.FormatIpAddress(address, area, length));
  });
  Add<void(MacOctets)>("FormatMacAddress, octets", [](Formatter& format, const Octets& octets) {
    return format.FormatMacAddress(octets, octets.count);
  });
  Add<void(MacOctets)>("FormatIPXAddress", [](Formatter& format, const Octets& octets) {
    return format.FormatIPXAddress(octets, octets.count);
  });
  Add<void(Accuracy, Kind, i64, i32)>(
      "FormatDuration", [](Formatter& format, Accuracy accuracy, Kind kind, i64 span, i32 value) {
        GrowableText text;
        format.FormatDuration(accuracy, kind, span, text);
        format.FormatPositiveDataAndUnit(value, text, text);
        format.FormatDataAndUnit(value, text, text);
        return format.Keep(text);
      });
  Add<void(u16, AnyText)>("GrowableText", [](Formatter& format, u16 capacity, WideText units) {
    GrowableText text;
    text.assign(units).append(text);
    GrowableText other(text);
    other.reserve(capacity);
    other.append_format(u"%s%u", text, capacity);
    text = other;
    return format.Keep(text);
  });
  // Of the parsers, all that they tell, as one number.
  Add<void(Typed<15>)>("IPv4", [](Formatter& format, WideText text) {
    i32 valid;
    const u64 address = QXFMT_GetIpAddress(text, &valid);
    return format.FormatNumber(address * 4 + u64(valid * 2 + QXFMT_IsValidIpMask(text)), 1);
  });
  Add<void(Typed<5>)>("port", [](Formatter& format, WideText text) {
    i32 valid;
    return format.FormatNumber(QXFMT_GetPortVal(text, &valid) * 2 + valid, 1);
  });
  Add<void(u8, Typed<17>)>("MAC", [](Formatter& format, u8 separator, WideText text) {
    return format.FormatNumber(QXFMT_GetMacAddress(text, separator), 1);
  });
  Add<void(Typed<1>)>("hexadecimal value", [](Formatter& format, WideText text) {
    return format.FormatNumber(u16{QXFMT_GetHexValue(text)}, 1);
  });
  Add<void(Typed<99>)>("IPv6", [](Formatter& format, WideText text) {
    u8 address[16] = {};
    const bool valid = QXFMT_GetIPv6Address(text, address) == 1;
    return format.FormatIpv6Port(address, valid ? 1 : 0, QXFMT_IPV6_FULL);
  });
  Add<void(u8, u32)>("masks", [](Formatter& format, u8 bits, u32 mask) {
    const u8 more = QXFMT_MaskToBits(mask);
    return format.FormatIpPort(QXFMT_BitsToMask(bits), u16(more * 2 + QXFMT_IsValidIpMask(mask)));
  });
}

// What a call gives while one allocation is refused, counted from 0, or none.
struct Outcome {
  Outcome(const Call& call, Formatter& format, int refused_allocation = -1) {
    heap.until_refusal = refused_allocation;
    try {
      text = call(format);
    } catch (const StatusException& failure) {
      text = failure.status() == StatusException::kNoMemory ? u"no memory" : u"failed";
    }
    refused = refused_allocation >= 0 && heap.until_refusal < 0;
    heap.until_refusal = -1;
  }

  // Whether a refusal may give this in place of the whole text: without a block, without the block
  // of an inner text, or without memory for a string.
  bool IsToldFor(std::u16string_view whole) const {
    const bool in_brackets = whole.starts_with(u'[');
    const std::size_t rest = std::min(whole.rfind(in_brackets ? u']' : u' '), whole.size());
    const std::u16string without_inner =
        (in_brackets ? u"[[MEM_ERR]" : u"[MEM_ERR]") + std::u16string(whole.substr(rest));
    return text == u"[MEM_ERR]" || text == without_inner || text == u"no memory" ||
           (whole.empty() && text.starts_with(u"[MEM_ERR] "));  // the unit fits beside that
  }

  std::u16string_view text;
  bool refused;
};

}  // namespace qxfmt::test
