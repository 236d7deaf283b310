#include "values.h"

#include <arpa/inet.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace qxfmt::bench {

namespace {

std::size_t value_count = std::size_t{1} << 18;

// Plain arithmetic on the generator's bits: the distributions of the standard library may differ
// from one version to the next.
class Random {
 public:
  explicit Random(std::uint64_t seed) : bits_(seed) {}

  std::uint64_t operator()() { return bits_(); }
  std::uint64_t Below(std::uint64_t limit) { return bits_() % limit; }
  double Fraction() { return static_cast<double>(bits_() >> 11) * 0x1p-53; }
  // A number of 1 to `most` bits, each count of bits as likely as any other.
  std::uint64_t OfAnyWidth(unsigned most) {
    return (bits_() | std::uint64_t{1} << 63) >> (64 - 1 - Below(most));
  }

 private:
  std::mt19937_64 bits_;
};

template <typename Next>
auto Filled(std::uint64_t seed, Next next) {
  Random random(seed);
  std::vector<decltype(next(random))> values;
  values.reserve(value_count);
  while (values.size() < value_count) values.push_back(next(random));
  return values;
}

template <typename From, typename Convert>
auto Converted(const From& from, Convert convert) {
  std::vector<decltype(convert(from[0]))> values;
  values.reserve(from.size());
  for (const auto& value : from) values.push_back(convert(value));
  return values;
}

}  // namespace

std::size_t ValueCount() { return value_count; }
void SetValueCount(std::size_t count) { value_count = count; }

// --- Counts

Values<std::uint64_t> ByteCounters() {
  struct Interface {
    std::uint64_t rate;
    std::uint64_t total;
  };
  static const auto values = Filled(1, [interfaces = std::vector<Interface>()](Random& r) mutable {
    while (interfaces.size() < 1000) interfaces.push_back({r.OfAnyWidth(34), r.OfAnyWidth(44)});
    Interface& one = interfaces[r.Below(interfaces.size())];
    return one.total += r.Below(2 * one.rate);
  });
  return values;
}

Values<std::uint32_t> PacketSizes() {
  static const auto values = Filled(2, [](Random& r) {
    const std::uint64_t percent = r.Below(100);
    std::uint64_t size = 67 + r.Below(1433);
    if (percent < 38) size = 40 + r.Below(27);
    if (percent >= 38 && percent < 44) size = 576;
    if (percent >= 44 && percent < 80) size = 1500;
    if (percent >= 80 && percent < 84) size = 1501 + r.Below(7500);
    return static_cast<std::uint32_t>(size);
  });
  return values;
}

Values<std::uint64_t> AnyWidth() {
  static const auto values = Filled(3, [](Random& r) { return r.OfAnyWidth(64); });
  return values;
}

Values<std::int64_t> AnyWidthSigned() {
  static const auto values = Filled(4, [](Random& r) {
    const auto value = static_cast<std::int64_t>(r.OfAnyWidth(63));
    return r.Below(2) == 0 ? value : -value;
  });
  return values;
}

// --- Measures

Values<double> BitRates() {
  static const auto values = Filled(5, [](Random& r) {
    if (r.Below(3) == 0) return 0.0;
    // A count of bits, divided by an interval that is not quite a second.
    return std::min(400e9, static_cast<double>(r.OfAnyWidth(39)) / (1 + r.Fraction() / 1000));
  });
  return values;
}

Values<std::uint64_t> WholeRates() {
  static const auto values =
      Converted(BitRates(), [](double rate) { return static_cast<std::uint64_t>(rate); });
  return values;
}

Values<double> Averages() {
  static const auto values = Filled(6, [](Random& r) {
    return static_cast<double>(r.OfAnyWidth(30)) / static_cast<double>(r.OfAnyWidth(10));
  });
  return values;
}

Values<double> AnyMagnitude() {
  static const auto values = Filled(7, [](Random& r) {
    const auto mantissa = static_cast<double>(r() >> 11);  // 53 bits
    const double value = std::ldexp(mantissa, 11 - static_cast<int>(r.Below(74)));
    return r.Below(4) == 0 ? -value : value;
  });
  return values;
}

Values<float> Shares() {
  static const auto values = Filled(8, [](Random& r) {
    const std::uint64_t total = r.OfAnyWidth(20);
    return static_cast<float>(r.Below(total + 1)) / static_cast<float>(total);
  });
  return values;
}

// --- Time

namespace {

// A set for each unit, from the one in nanoseconds.
template <typename Nanoseconds>
Values<std::int64_t> InUnits(std::int64_t units_per_second, Nanoseconds nanoseconds) {
  static std::map<std::int64_t, std::vector<std::int64_t>> sets;
  if (sets.count(units_per_second) == 0) {
    sets[units_per_second] = Converted(nanoseconds(), [=](std::int64_t count) {
      return count / (kNanosecond / units_per_second);
    });
  }
  return sets[units_per_second];
}

}  // namespace

Values<std::int64_t> CaptureStamps(std::int64_t units_per_second) {
  return InUnits(units_per_second, [] {
    return Filled(9, [at = 1'700'028'800 * kNanosecond](Random& r) mutable {
      const std::uint64_t permille = r.Below(1000);
      std::uint64_t gap = r.Below(20'000);  // back to back
      if (permille >= 600) gap = r.Below(500'000);
      if (permille >= 900) gap = r.Below(20'000'000);
      if (permille >= 990) gap = r.Below(1'000'000'000);
      if (permille >= 999) gap = r.Below(60'000'000'000);
      return at += static_cast<std::int64_t>(gap);
    });
  });
}

Values<std::int64_t> RandomStamps(std::int64_t units_per_second) {
  return InUnits(units_per_second, [] {
    return Filled(10, [](Random& r) {
      constexpr std::uint64_t kElevenYears = std::uint64_t{4018} * 86400 * kNanosecond;
      return 1'420'070'400 * kNanosecond + static_cast<std::int64_t>(r.Below(kElevenYears));
    });
  });
}

Values<std::int64_t> Durations(std::int64_t units_per_second) {
  static std::map<std::int64_t, std::vector<std::int64_t>> sets;
  if (sets.count(units_per_second) == 0) {
    // 2^27 seconds are four years; ten bits more for a unit a thousand times finer.
    unsigned bits = 27;
    for (std::int64_t unit = kSecond; unit < units_per_second; unit *= 1000) bits += 10;
    sets[units_per_second] =
        Filled(11, [bits](Random& r) { return static_cast<std::int64_t>(r.OfAnyWidth(bits)); });
  }
  return sets[units_per_second];
}

Values<double> OleDates() {
  static const auto values = Filled(12, [](Random& r) {
    return static_cast<double>(42005 + r.Below(4018)) + r.Fraction();  // 2015-01-01 on
  });
  return values;
}

// --- Addresses

namespace {

std::uint32_t Octets(std::uint64_t a, std::uint64_t b, std::uint64_t c, std::uint64_t d) {
  return static_cast<std::uint32_t>(a | b << 8 | c << 16 | d << 24);
}

std::uint32_t OneIpv4(Random& r) {
  static constexpr std::uint8_t kHomes[] = {0, 1, 2, 178};
  const std::uint64_t percent = r.Below(100);
  if (percent < 35) return Octets(192, 168, kHomes[r.Below(4)], 1 + r.Below(254));
  if (percent < 55) return Octets(10, r.Below(32), r.Below(256), 1 + r.Below(254));
  if (percent < 60) return Octets(172, 16 + r.Below(16), r.Below(256), 1 + r.Below(254));
  if (percent < 97) return Octets(1 + r.Below(223), r.Below(256), r.Below(256), r.Below(256));
  if (percent < 99) return Octets(224, 0, 0, 1 + r.Below(252));
  return Octets(255, 255, 255, 255);
}

std::uint16_t OnePort(Random& r) {
  static constexpr std::uint16_t kServers[] = {443, 443, 443, 80, 53, 53, 123, 22, 8080, 5353};
  return r.Below(2) == 0 ? kServers[r.Below(10)]
                         : static_cast<std::uint16_t>(32768 + r.Below(28232));
}

// A prefix, and a bit mask of the bytes that are random, the first byte in the lowest bit.
struct Ipv6Kind {
  unsigned percent;
  Ipv6 prefix;
  std::uint16_t random_bytes;
};

constexpr Ipv6Kind kIpv6Kinds[] = {
    {20, {}, 0xFFFF},
    // Hosts with a random interface identifier, and with one made from a MAC address.
    {25, {0x20, 0x01, 0x0d, 0xb8}, 0xFFF0},
    {10, {0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xfe}, 0xE7F0},
    // Servers with a short number, in a public and in a private network.
    {15, {0x2a, 0x00, 0x14, 0x50, 0x40, 0x01, 0x08}, 0xC080},
    {5, {0xfd, 0x12, 0x34, 0x56, 0x78, 0x9a}, 0x8080},
    // Link-local, groups, IPv4-mapped.
    {15, {0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xfe}, 0xE700},
    {3, {0xff, 0x02}, 0x8000},
    {2, {0xff, 0x02, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0xff}, 0xE000},
    {5, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}, 0xF000}};

Ipv6 OneIpv6(Random& r) {
  const Ipv6Kind* kind = kIpv6Kinds;
  for (std::uint64_t left = r.Below(100); left >= kind->percent; ++kind) left -= kind->percent;
  Ipv6 address = kind->prefix;
  for (std::size_t i = 0; i < address.size(); ++i) {
    if ((kind->random_bytes >> i & 1) != 0) address[i] = static_cast<std::uint8_t>(r());
  }
  return address;
}

}  // namespace

Values<std::uint32_t> CaptureIpv4() {
  static const auto values = Filled(13, OneIpv4);
  return values;
}

Values<std::uint32_t> UniformIpv4() {
  static const auto values = Filled(14, [](Random& r) { return static_cast<std::uint32_t>(r()); });
  return values;
}

Values<Ipv4Endpoint> Ipv4Endpoints() {
  static const auto values = Filled(15, [](Random& r) {
    const std::uint32_t address = OneIpv4(r);
    return Ipv4Endpoint{address, OnePort(r)};
  });
  return values;
}

Values<Ipv6> CaptureIpv6() {
  static const auto values = Filled(16, OneIpv6);
  return values;
}

Values<Ipv6> UniformIpv6() {
  static const auto values = Filled(17, [](Random& r) {
    Ipv6 address;
    for (std::uint8_t& byte : address) byte = static_cast<std::uint8_t>(r());
    return address;
  });
  return values;
}

Values<Ipv6Endpoint> Ipv6Endpoints() {
  static const auto values = Filled(18, [](Random& r) {
    const Ipv6 address = OneIpv6(r);
    return Ipv6Endpoint{address, OnePort(r)};
  });
  return values;
}

Values<std::uint64_t> MacAddresses() {
  static const auto values = Filled(19, [makers = std::vector<std::uint64_t>()](Random& r) mutable {
    while (makers.size() < 64) makers.push_back(r.Below(1 << 24) & ~std::uint64_t{3});
    return makers[r.Below(makers.size())] | r.Below(1 << 24) << 24;
  });
  return values;
}

Values<std::uint16_t> Ports() {
  static const auto values = Filled(20, OnePort);
  return values;
}

Values<std::uint8_t> PrefixLengths() {
  static const auto values = Filled(21, [](Random& r) {
    static constexpr std::uint8_t kUsual[] = {8, 16, 24, 24, 24, 32};
    return r.Below(2) == 0 ? kUsual[r.Below(6)] : static_cast<std::uint8_t>(r.Below(33));
  });
  return values;
}

Values<std::uint32_t> Masks() {
  static const auto values = Converted(PrefixLengths(), [](std::uint8_t bits) {
    return htonl(static_cast<std::uint32_t>(~(0xFFFF'FFFFULL >> bits)));
  });
  return values;
}

// --- Texts

namespace {

struct TextPool {
  template <typename From, typename Print>
  TextPool(const From& values, Print print) {
    for (const auto& value : values) {
      char buffer[64];
      print(buffer, value);
      starts.push_back(static_cast<std::uint32_t>(narrow.size()));
      narrow.append(buffer).push_back('\0');
    }
    starts.push_back(static_cast<std::uint32_t>(narrow.size()));
    wide.assign(narrow.begin(), narrow.end());
  }

  operator Texts() const { return {wide.data(), narrow.data(), starts}; }

  std::u16string wide;
  std::string narrow;
  std::vector<std::uint32_t> starts;
};

constexpr auto kPrintIpv4 = [](char* out, std::uint32_t address) {
  inet_ntop(AF_INET, &address, out, INET_ADDRSTRLEN);
};
constexpr auto kPrintIpv6 = [](char* out, const Ipv6& address) {
  inet_ntop(AF_INET6, address.data(), out, INET6_ADDRSTRLEN);
};

}  // namespace

Texts CaptureIpv4Texts() {
  static const TextPool texts(CaptureIpv4(), kPrintIpv4);
  return texts;
}

Texts UniformIpv4Texts() {
  static const TextPool texts(UniformIpv4(), kPrintIpv4);
  return texts;
}

Texts CaptureIpv6Texts() {
  static const TextPool texts(CaptureIpv6(), kPrintIpv6);
  return texts;
}

Texts UniformIpv6Texts() {
  static const TextPool texts(UniformIpv6(), kPrintIpv6);
  return texts;
}

Texts MacTexts() {
  static const TextPool texts(MacAddresses(), [](char* out, std::uint64_t mac) {
    for (int i = 0; i < 6; ++i) {
      std::sprintf(out + 3 * i, "%02X:", static_cast<unsigned>(mac >> 8 * i & 0xFF));
    }
    out[17] = '\0';
  });
  return texts;
}

Texts PortTexts() {
  static const TextPool texts(
      Ports(), [](char* out, std::uint16_t port) { std::sprintf(out, "%u", unsigned{port}); });
  return texts;
}

Texts MaskTexts() {
  static const TextPool texts(Masks(), kPrintIpv4);
  return texts;
}

Texts OctetTexts() {
  static const TextPool texts(MacAddresses(), [](char* out, std::uint64_t mac) {
    std::sprintf(out, mac % 2 == 0 ? "%02X" : "%02x", static_cast<unsigned>(mac >> 40 & 0xFF));
  });
  return texts;
}

Values<Packet> Packets() {
  static const auto values = [] {
    std::vector<Packet> packets;
    packets.reserve(value_count);
    for (std::size_t i = 0; i < value_count; ++i) {
      packets.push_back({i + 1, CaptureStamps(kMicrosecond)[i], Ipv4Endpoints()[i],
                         Ipv4Endpoints()[value_count - 1 - i], MacAddresses()[i], PacketSizes()[i],
                         BitRates()[i], Shares()[i]});
    }
    return packets;
  }();
  return values;
}

}  // namespace qxfmt::bench
