#pragma once

// Every operation of a formatter as a call whose arguments come from bytes: random ones in a test,
// a fuzzer's in a fuzz target.

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <random>
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

  std::size_t left() const { return bytes_.size(); }

  std::uint8_t TakeByte() {
    if (bytes_.empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  // An integer of any size, a real near one or of any bits, an enumeration's value in its list,
  // beside it or anywhere, or what makes itself of arguments.
  template <typename Value>
  Value Take() {
    if constexpr (std::is_class_v<Value>) {
      return Value(*this);
    } else if constexpr (std::is_enum_v<Value>) {
      const std::uint8_t byte = TakeByte();
      return static_cast<Value>(byte < 0xE0 ? byte % 8 - 1 : Take<std::int32_t>());
    } else if constexpr (std::is_floating_point_v<Value>) {
      const std::uint8_t divisor = TakeByte();
      const auto integer = Take<std::int64_t>();
      return static_cast<Value>(divisor != 0 ? static_cast<double>(integer) / divisor
                                             : std::bit_cast<double>(integer));
    } else {
      const std::size_t bytes = TakeByte() % (sizeof(Value) + 1);
      std::int64_t value = static_cast<std::int8_t>(bytes > 0 ? TakeByte() : 0);
      for (std::size_t i = 1; i < bytes; ++i) value = value * 256 + TakeByte();
      return static_cast<Value>(value);
    }
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

// Sixteen octets, or fewer, in a heap area of their size.
struct Octets : std::vector<std::uint8_t> {
  explicit Octets(Arguments& from) {
    reserve(std::min(from.TakeByte(), std::uint8_t{16}));
    while (size() < capacity()) push_back(from.TakeByte());
  }
  operator const std::uint8_t*() const { return size() == 16 ? data() : nullptr; }
};

// Units up to a zero byte, and a terminator, in a heap area of their size; for parsers of texts of
// at most so many units, leading blanks not counted. A longer text is cut off one unit later, and
// has no terminator. A byte above 0x7F becomes a unit that has the low byte of an ASCII character
// but is none.
struct Units : std::vector<char16_t> {
  explicit Units(Arguments& from)
      : longest(std::array{1U, 5U, 15U, 17U, 99U}[from.TakeByte() % 5]) {
    std::size_t most = longest;
    while (const std::uint8_t byte = from.TakeByte()) {
      if (size() + longest == most && byte == ' ') ++most;
      if (size() <= most) push_back(static_cast<char16_t>(byte + (byte & 0x80)));
    }
    if (size() <= most) push_back(u'\0');
    shrink_to_fit();
  }
  operator std::u16string_view() const { return {data(), size()}; }

  std::size_t longest;
};

// A formatter with operations of the same form for whatever else there is.
class Formatter : public CQXDataFormat {
 public:
  ResultText FormatIntoArea(std::uint32_t address, std::int32_t length) {
    char16_t area[16];
    return Show(FormatIpAddress(address, area, length));
  }

  ResultText FormatOctets(const Octets& octets) {
    return FormatMacAddress(octets.data(), static_cast<std::int32_t>(octets.size()));
  }

  ResultText FormatWords(QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                         std::int64_t nanoseconds, std::int32_t value, const Units& units) {
    GrowableText text;
    FormatDuration(accuracy, format, nanoseconds, text);
    FormatDataAndUnit(value, text, text);
    FormatPositiveDataAndUnit(value, text.append(units), text);
    GrowableText other(text);
    text = other.append_format(u"%s%d", text, value);
    return Show(text);
  }

  // A sum of what the parsers tell that read no more than is there.
  ResultText Parse(const Units& units, std::uint16_t separator) {
    std::uint8_t octets[16] = {QXFMT_GetHexValue(units.data())};
    std::uint64_t told = 0;
    if (units.longest >= 5) told += QXFMT_GetPortVal(units.data(), nullptr);
    if (units.longest >= 15) told += QXFMT_GetIpAddress(units.data(), nullptr);
    if (units.longest >= 17) told += QXFMT_GetMacAddress(units.data(), separator);
    if (units.longest >= 99) QXFMT_GetIPv6Address(units.data(), octets);
    for (const std::uint8_t octet : octets) told = told * 31 + octet;
    return FormatNumber(told, 1);
  }

 private:
  // A text that is in no block.
  ResultText Show(std::u16string_view text) {
    return FormatNumber(std::uint64_t{std::hash<std::u16string_view>()(text)}, 1);
  }
};

// An operation with its arguments.
using Call = std::function<ResultText(Formatter&)>;

// Takes the arguments of an operation.
using Operation = std::function<Call(Arguments&)>;

// An overload of an operation.
template <typename... Values>
using Member = ResultText (CQXDataFormat::*)(Values...);

// An address is given by the area that holds it.
template <typename Value>
using Held = std::conditional_t<std::is_pointer_v<Value>, Octets, std::decay_t<Value>>;

template <typename Class, typename... Values>
Operation Bind(ResultText (Class::*member)(Values...)) {
  return [member](Arguments& from) -> Call {
    std::tuple<Held<Values>...> held{from.Take<Held<Values>>()...};
    return [member, held](Formatter& format) {
      return std::apply([&](const auto&... values) { return (format.*member)(values...); }, held);
    };
  };
}

template <typename... Members>
std::vector<Operation> BindAll(Members... members) {
  return {Bind(members)...};
}

inline std::vector<Operation> Operations() {
  using F = Formatter;
  using i32 = std::int32_t;
  using u16 = std::uint16_t;
  using u32 = std::uint32_t;
  using u64 = std::uint64_t;
  using Unit = QXFMT_BYTES_FORMAT;
  return BindAll(
      Member<u64, i32>(&F::FormatNumber), Member<std::int64_t, i32>(&F::FormatNumber),
      Member<u32, i32>(&F::FormatNumber), Member<i32, i32>(&F::FormatNumber),
      Member<u16, i32>(&F::FormatNumber), Member<std::int16_t, i32>(&F::FormatNumber),
      Member<double, i32>(&F::FormatNumber), Member<double, i32, i32>(&F::FormatNumberEx),
      Member<u64, i32, i32>(&F::FormatNumberEx), Member<float>(&F::FormatDecimal),
      Member<double>(&F::FormatDecimal), Member<u64, i32>(&F::FormatByte),
      Member<u64, Unit, i32>(&F::FormatByte), Member<u64, i32>(&F::FormatBit),
      Member<u64, Unit, i32>(&F::FormatBit), Member<u64>(&F::FormatBytePerSecond),
      Member<u64, Unit, i32>(&F::FormatBytePerSecond), Member<double>(&F::FormatBytePerSecond),
      Member<double, Unit, i32>(&F::FormatBytePerSecond), Member<u64>(&F::FormatBitPerSecond),
      Member<u64, Unit, i32>(&F::FormatBitPerSecond), Member<double>(&F::FormatBitPerSecond),
      Member<double, Unit, i32>(&F::FormatBitPerSecond), Member<i32>(&F::FormatPercentage),
      Member<float>(&F::FormatPercentage), Member<std::uint8_t>(&F::FormatBinary),
      Member<u16>(&F::FormatBinary), Member<u32>(&F::FormatBinary),
      Member<u32>(&F::FormatIpAddress), Member<u64>(&F::FormatMacAddress), &F::FormatIpPort,
      &F::FormatIPv6Address, &F::FormatIpv6Port, &F::FormatDate, &F::FormatTime, &F::FormatDateTime,
      &F::FormatMSecondDataTime, &F::FormatHiResDateTime, &F::FormatMaxHiResDateTime,
      &F::FormatMSecondTime, &F::FormatHiResTime, &F::FormatMaxHiResTime, &F::FormatAllDateTime,
      &F::FormatAllTime, &F::FormatOleDateTime, &F::FormatDurationSecond, &F::FormatDurationMSecond,
      &F::FormatDurationUSecond, &F::FormatDurationNSecond, &F::FormatDurationAllSecond,
      &F::FormatHiResTimeRange, &F::FormatIntoArea, &F::FormatOctets, &F::FormatWords, &F::Parse);
}

// All operations, so many times, each with random arguments.
inline std::vector<Call> RandomCalls(int rounds) {
  std::mt19937 random(1);
  std::vector<Call> calls;
  for (; rounds > 0; --rounds) {
    for (const Operation& operation : Operations()) {
      std::vector<std::uint8_t> bytes(64);
      for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
      Arguments arguments(bytes);
      calls.push_back(operation(arguments));
    }
  }
  return calls;
}

// The nine settings, as numbers, and what they are at start.
inline constexpr std::array<std::int32_t, 9> kStartSettings = {0, 0, 0, 0, 2, 2, 0, 2, 0};

inline void SetSettings(const std::array<std::int32_t, 9>& values) {
  std::size_t next = 0;
  const auto set = [&]<typename Value>(void (*setter)(Value)) {
    setter(static_cast<Value>(values[next++]));
  };
  set(QXFMT_SetByteFormat);
  set(QXFMT_SetBitFormat);
  set(QXFMT_SetBytePerSecondFormat);
  set(QXFMT_SetBitPerSecondFormat);
  set(QXFMT_SetNumberDecimalPlaces);
  set(QXFMT_SetPercentageDecimalPlaces);
  set(QXFMT_SetDateTimeFormat);
  set(QXFMT_SetTimeAccuracy);
  set(QXFMT_SetDurationFormat);
}

// What a call gives while one allocation is refused, counted from 0, or none.
struct Outcome {
  Outcome(const Call& call, Formatter& format, int refused_allocation = -1) {
    const Refusal refusal(refused_allocation);
    try {
      text = call(format);
    } catch (const StatusException& failure) {
      text = failure.status() == StatusException::kNoMemory ? u"no memory" : u"failed";
    }
    refused = refusal.has_happened();
  }

  // Whether a refusal may give this in place of the whole text: for want of a string, of the block,
  // or of the block of an inner text, whose place the failure then takes.
  bool IsToldFor(std::u16string_view whole) const {
    if (text == u"no memory") return true;
    const std::size_t error = text.find(u"[MEM_ERR]");
    if (error > 1) return false;
    return whole.empty() || whole.ends_with(text.substr(error + 9));  // too long with a number
  }

  std::u16string_view text;
  bool refused;
};

}  // namespace qxfmt::test
