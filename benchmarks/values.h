#pragma once

// The values that the rows run on: what network measurement shows, and uniform ones beside it. All
// come from fixed seeds, so that each run sees the same.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace qxfmt::bench {

// Values of a set: too many for a branch predictor to learn them.
std::size_t ValueCount();
// Before the first set is asked for.
void SetValueCount(std::size_t count);

template <typename T>
using Values = std::span<const T>;

// Counts.
Values<std::uint64_t> ByteCounters();   // cumulated, of interfaces from idle to busy
Values<std::uint32_t> PacketSizes();    // 40 to 9000, with the peaks of real traffic
Values<std::uint64_t> AnyWidth();       // each count of bits is as likely as any other
Values<std::int64_t> AnyWidthSigned();  // likewise, a half of them negative

// Measures.
Values<double> BitRates();           // idle to 400 Gbit/s, a third of them 0
Values<std::uint64_t> WholeRates();  // the same without their fractions
Values<double> Averages();           // quotients of counts: delays, sizes
Values<double> AnyMagnitude();       // thousandths to 2^64, a quarter of them negative
Values<float> Shares();              // 0 to 1

// Time.
inline constexpr std::int64_t kSecond = 1;
inline constexpr std::int64_t kMillisecond = 1'000;
inline constexpr std::int64_t kMicrosecond = 1'000'000;
inline constexpr std::int64_t kNanosecond = 1'000'000'000;

Values<std::int64_t> CaptureStamps(std::int64_t units_per_second);  // increasing, with gaps
Values<std::int64_t> RandomStamps(std::int64_t units_per_second);   // at random over eleven years
Values<std::int64_t> Durations(std::int64_t units_per_second);      // one unit to years
Values<double> OleDates();                                          // eleven years

// Addresses.
using Ipv6 = std::array<std::uint8_t, 16>;
struct Ipv4Endpoint {
  std::uint32_t address;
  std::uint16_t port;
};
struct Ipv6Endpoint {
  Ipv6 address;
  std::uint16_t port;
};

Values<std::uint32_t> CaptureIpv4();  // private networks, public hosts, groups
Values<std::uint32_t> UniformIpv4();
Values<Ipv4Endpoint> Ipv4Endpoints();
Values<Ipv6> CaptureIpv6();  // with runs of zeros and without, link-local, groups, mapped IPv4
Values<Ipv6> UniformIpv6();
Values<Ipv6Endpoint> Ipv6Endpoints();
Values<std::uint64_t> MacAddresses();
Values<std::uint16_t> Ports();
Values<std::uint8_t> PrefixLengths();
Values<std::uint32_t> Masks();

// A text in both widths: ours and the peers'. Both are terminated.
struct Text {
  const char16_t* wide;
  std::string_view narrow;
};

// A set of texts. Each width lies apart, so that a row reads its own only.
class Texts {
 public:
  Texts(const char16_t* wide, const char* narrow, Values<std::uint32_t> starts)
      : wide_(wide), narrow_(narrow), starts_(starts) {}

  std::size_t size() const { return starts_.size() - 1; }
  Text operator[](std::size_t i) const {
    const std::uint32_t start = starts_[i];
    return {wide_ + start, {narrow_ + start, starts_[i + 1] - start - 1}};
  }

 private:
  const char16_t* wide_;
  const char* narrow_;
  Values<std::uint32_t> starts_;  // one more than there are texts
};

Texts CaptureIpv4Texts();
Texts UniformIpv4Texts();
Texts CaptureIpv6Texts();
Texts UniformIpv6Texts();
Texts MacTexts();
Texts PortTexts();
Texts MaskTexts();
Texts OctetTexts();  // two hexadecimal digits

// A line of a packet list.
struct Packet {
  std::uint64_t number;
  std::int64_t microseconds;
  Ipv4Endpoint source;
  Ipv4Endpoint destination;
  std::uint64_t mac;
  std::uint32_t size;
  double rate;
  float share;
};
Values<Packet> Packets();

}  // namespace qxfmt::bench
