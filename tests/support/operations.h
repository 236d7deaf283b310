#pragma once

// Every operation of a formatter as a call with arguments made of bytes: random ones in a test, a
// fuzzer's in a fuzz target.

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <random>
#include <span>
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

  // An integer or an enumeration's value from -4 to 11 or, as often, one of up to eight bytes more;
  // a real of any magnitude, an infinity or a NaN; or what makes itself of arguments.
  template <typename Value>
  Value Take() {
    if constexpr (std::is_class_v<Value>) {
      return Value(*this);
    } else if constexpr (std::is_floating_point_v<Value>) {
      const double scale = std::ldexp(1.0, (TakeByte() - 127) * 8);
      return static_cast<Value>(scale * static_cast<double>(Take<std::int64_t>()));
    } else {
      const std::uint8_t first = TakeByte();
      std::uint64_t bits = first % 16U - std::uint64_t{4};
      for (int more = first / 16 - 7; more > 0; --more) bits = bits << 8 | TakeByte();
      return static_cast<Value>(bits);
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

// Units up to a zero byte, in a heap area of their size: a text, or more than the longest text for
// a parser and then without a terminator. A byte above 0x7F becomes a unit that has the low byte of
// an ASCII character but is none.
struct Units : std::vector<char16_t> {
  explicit Units(Arguments& from)
      : longest(std::array{1U, 5U, 15U, 17U, 99U}[from.TakeByte() % 5]) {
    while (const std::uint8_t byte = from.TakeByte()) {
      push_back(static_cast<char16_t>(byte + (byte & 0x80)));
    }
    push_back(u'\0');
    // Leading blanks may be any number.
    if (front() != u' ' && size() > longest) resize(longest + 1);
    shrink_to_fit();
  }
  operator std::u16string_view() const { return {data(), size()}; }

  std::size_t longest;
};

// A formatter with operations of the same form for whatever else there is.
class Formatter : public CQXDataFormat {
 public:
  ResultText FormatIntoArea(std::uint32_t address, std::int32_t length) {
    char16_t area[16];  // of which the last units are given
    return Show(FormatIpAddress(address, std::end(area) - std::clamp(length, 0, 16), length));
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
    const WideText text = units.data();
    std::uint8_t octets[16] = {};
    std::uint64_t told = units.longest >= 1 ? QXFMT_GetHexValue(text) : 0;
    if (units.longest >= 5) told += QXFMT_GetPortVal(text, nullptr);
    if (units.longest >= 15) told += QXFMT_GetIpAddress(text, nullptr);
    if (units.longest >= 17) told += QXFMT_GetMacAddress(text, separator);
    if (units.longest >= 99) told += QXFMT_GetIPv6Address(text, octets) != 0 ? 1U : 0U;
    return FormatIpv6Port(octets, static_cast<std::uint16_t>(told % 65521), QXFMT_IPV6_FULL);
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
      &F::FormatHiResTimeRange, &F::FormatIntoArea, &F::FormatOctets, &F::FormatIPXAddress,
      &F::FormatWords, &F::Parse);
}

// All operations, so many times, with random arguments.
inline std::vector<Call> RandomCalls(std::size_t rounds) {
  std::vector<std::uint8_t> bytes(rounds * 1500);
  std::generate(bytes.begin(), bytes.end(), std::mt19937());
  std::vector<Call> calls;
  for (Arguments from(bytes); from.left() > 0;) {
    for (const Operation& operation : Operations()) calls.push_back(operation(from));
  }
  return calls;
}

// The nine settings as numbers, and their values at start.
using Settings = std::array<std::int32_t, 9>;
inline constexpr Settings kStartSettings = {0, 0, 0, 0, 2, 2, 0, 2, 0};

template <typename... Values>
void Set(const Settings& settings, void (*... setters)(Values)) {
  auto next = settings.begin();
  (setters(static_cast<Values>(*next++)), ...);
}

inline void SetSettings(const Settings& settings) {
  Set(settings, QXFMT_SetByteFormat, QXFMT_SetBitFormat, QXFMT_SetBytePerSecondFormat,
      QXFMT_SetBitPerSecondFormat, QXFMT_SetNumberDecimalPlaces, QXFMT_SetPercentageDecimalPlaces,
      QXFMT_SetDateTimeFormat, QXFMT_SetTimeAccuracy, QXFMT_SetDurationFormat);
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
