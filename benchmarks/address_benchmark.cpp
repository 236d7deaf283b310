#include <arpa/inet.h>
#include <netinet/ether.h>

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <qxfmt/net.h>
#include <boost/asio/ip/address_v4.hpp>
#include <boost/asio/ip/address_v6.hpp>

#include "comparison.h"
#include "peers.h"

namespace qxfmt::bench {

namespace {

using F = CQXDataFormat;
using AsioV4 = boost::asio::ip::address_v4;
using AsioV6 = boost::asio::ip::address_v6;

// --- Writing IPv4

constexpr Peer kFmtIpv4{"fmt compiled", [](char* out, std::uint32_t v) { return FmtIpv4(out, v); }};

// Octets by std::to_chars.
constexpr auto kIpv4Loop = [](char* out, std::uint32_t v) {
  for (int i = 0; i < 4; ++i, v >>= 8) {
    if (i > 0) *out++ = '.';
    out = std::to_chars(out, out + 3, v & 0xFF).ptr;
  }
  return out;
};

void AddIpv4Writers() {
  constexpr auto ours = [](F& f, std::uint32_t v) { return f.FormatIpAddress(v); };
  constexpr Peer loop{"loop over std::to_chars", kIpv4Loop};
  constexpr Peer ntop{"inet_ntop", [](char* out, std::uint32_t v) {
                        return inet_ntop(AF_INET, &v, out, kPeerBuffer);
                      }};
  constexpr Peer asio{"Boost.Asio", [](std::uint32_t v) { return AsioV4(ntohl(v)).to_string(); }};
  Compare("FormatIpAddress, as captured", CaptureIpv4(), ours, kFmtIpv4.WithGoal(5), loop, ntop,
          asio);
  Compare("FormatIpAddress, uniform", UniformIpv4(), ours, kFmtIpv4.WithGoal(5), loop, ntop, asio);
  Compare(
      "FormatAddress of an in_addr, as captured", CaptureIpv4(),
      [](F& f, std::uint32_t v) { return FormatAddress(f, ToInAddr(v)); }, ntop);
  Compare(
      "FormatIpAddress, caller's area", CaptureIpv4(),
      [](std::uint32_t v) {
        thread_local CQXDataFormat format;
        char16_t area[16];
        benchmark::DoNotOptimize(format.FormatIpAddress(v, area, 16));
        return area[0];
      },
      kFmtIpv4);
  Compare(
      "FormatIpPort", Ipv4Endpoints(),
      [](F& f, const Ipv4Endpoint& v) { return f.FormatIpPort(v.address, v.port); },
      Peer{"fmt compiled",
           [](char* out, const Ipv4Endpoint& v) {
             const std::uint32_t a = v.address;
             return fmt::format_to(out, FMT_COMPILE("{}.{}.{}.{}:{}"), a & 0xFF, a >> 8 & 0xFF,
                                   a >> 16 & 0xFF, a >> 24, v.port);
           },
           3},
      Peer{"inet_ntop, snprintf", [](char* out, const Ipv4Endpoint& v) {
             char address[INET_ADDRSTRLEN];
             inet_ntop(AF_INET, &v.address, address, sizeof address);
             return std::snprintf(out, kPeerBuffer, "%s:%u", address, unsigned{v.port});
           }});
}

// --- Writing MAC addresses

// The two digits of each octet.
constexpr auto kHexPairs = [] {
  std::array<std::array<char, 2>, 256> pairs{};
  for (std::size_t i = 0; i < 256; ++i) {
    pairs[i] = {"0123456789ABCDEF"[i / 16], "0123456789ABCDEF"[i % 16]};
  }
  return pairs;
}();

constexpr auto kMacTable = [](char* out, std::uint64_t v) {
  for (int i = 0; i < 6; ++i, v >>= 8) {
    std::memcpy(out, kHexPairs[v & 0xFF].data(), 2);
    out[2] = ':';
    out += 3;
  }
  *--out = '\0';
  return out;
};

void AddMacWriters() {
  constexpr Peer fmt{"fmt compiled", [](char* out, std::uint64_t v) { return FmtMac(out, v); }};
  constexpr Peer table{"table of 8-bit pairs", kMacTable};
  constexpr auto octets = [](F& f, std::uint64_t v) {
    std::uint8_t bytes[8];
    std::memcpy(bytes, &v, sizeof bytes);
    return f.FormatMacAddress(bytes, 6);
  };
  Compare(
      "FormatMacAddress u64", MacAddresses(),
      [](F& f, std::uint64_t v) { return f.FormatMacAddress(v); }, fmt.WithGoal(15),
      table.WithGoal(1));
  Compare("FormatMacAddress of six octets", MacAddresses(), octets, fmt, table);
  Compare("FormatIPXAddress", MacAddresses(), [](F& f, const std::uint64_t& v) {
    return f.FormatIPXAddress(reinterpret_cast<const std::uint8_t*>(&v), 6);
  });
}

// --- Writing IPv6

template <QXFMT_IPV6_TYPE kForm>
constexpr auto kFormatIpv6 =
    [](F& f, const Ipv6& v) { return f.FormatIPv6Address(v.data(), kForm); };

void AddIpv6Writers() {
  constexpr Peer ntop{"inet_ntop", [](char* out, const Ipv6& v) {
                        return inet_ntop(AF_INET6, v.data(), out, kPeerBuffer);
                      }};
  constexpr Peer asio{"Boost.Asio", [](const Ipv6& v) { return AsioV6(v).to_string(); }};
  Compare("FormatIPv6Address, as captured", CaptureIpv6(), kFormatIpv6<QXFMT_IPV6_COMPRESSED>,
          ntop.WithGoal(9), asio);
  Compare("FormatIPv6Address, uniform", UniformIpv6(), kFormatIpv6<QXFMT_IPV6_COMPRESSED>,
          ntop.WithGoal(9), asio);
  Compare("FormatIPv6Address, full", CaptureIpv6(), kFormatIpv6<QXFMT_IPV6_FULL>, ntop);
  Compare("FormatIPv6Address, embedded", CaptureIpv6(), kFormatIpv6<QXFMT_IPV6_EMBEDDED_V4>, ntop);
  Compare(
      "FormatIpv6Port", Ipv6Endpoints(),
      [](F& f, const Ipv6Endpoint& v) {
        return f.FormatIpv6Port(v.address.data(), v.port, QXFMT_IPV6_COMPRESSED);
      },
      Peer{"inet_ntop, snprintf", [](char* out, const Ipv6Endpoint& v) {
             char address[INET6_ADDRSTRLEN];
             inet_ntop(AF_INET6, v.address.data(), address, sizeof address);
             return std::snprintf(out, kPeerBuffer, "[%s]:%u", address, unsigned{v.port});
           }});
}

// --- Reading IPv4

constexpr auto kFourFromChars = [](const Text& text) -> std::uint32_t {
  const char* at = text.narrow.data();
  const char* const end = at + text.narrow.size();
  std::uint32_t address = 0;
  for (int i = 0; i < 4; ++i) {
    if (i > 0 && (at == end || *at++ != '.')) return 0;
    std::uint8_t octet;
    const auto [next, error] = std::from_chars(at, end, octet);
    if (error != std::errc{}) return 0;
    address |= std::uint32_t{octet} << 8 * i;
    at = next;
  }
  return at == end ? address : 0;
};

void AddIpv4Readers() {
  constexpr auto read = [](const Text& text) {
    std::int32_t valid;
    return QXFMT_GetIpAddress(text.wide, &valid) + static_cast<std::uint32_t>(valid);
  };
  constexpr auto test = [](const Text& text) { return QXFMT_IsValidIpAddress(text.wide); };
  constexpr Peer pton{"inet_pton", [](const Text& text) {
                        std::uint32_t address = 0;
                        const int valid = inet_pton(AF_INET, text.narrow.data(), &address);
                        return address + static_cast<std::uint32_t>(valid);
                      }};
  constexpr Peer four{"four std::from_chars", kFourFromChars};
  constexpr Peer asio{
      "Boost.Asio", [](const Text& text) {
        boost::system::error_code error;
        return boost::asio::ip::make_address_v4(text.narrow.data(), error).to_uint();
      }};
  Compare("QXFMT_GetIpAddress, as captured", CaptureIpv4Texts(), read, pton.WithGoal(2.5), four,
          asio);
  Compare("QXFMT_GetIpAddress, uniform", UniformIpv4Texts(), read, pton.WithGoal(2.5), four, asio);
  Compare("QXFMT_IsValidIpAddress, as captured", CaptureIpv4Texts(), test, pton, four);
}

// --- Ports and masks

void AddPorts() {
  constexpr Peer from_chars{"std::from_chars", [](const Text& text) {
                              std::uint16_t port = 0;
                              std::from_chars(text.narrow.begin(), text.narrow.end(), port);
                              return port;
                            }};
  constexpr Peer strtoul{
      "strtoul", [](const Text& text) { return std::strtoul(text.narrow.data(), nullptr, 10); }};
  Compare(
      "QXFMT_GetPortVal", PortTexts(),
      [](const Text& text) {
        std::int32_t valid;
        return QXFMT_GetPortVal(text.wide, &valid) + valid;
      },
      from_chars, strtoul);
  Compare(
      "QXFMT_IsValidPort, text", PortTexts(),
      [](const Text& text) { return QXFMT_IsValidPort(text.wide); }, from_chars, strtoul);
  Compare("QXFMT_IsValidPort u16", Ports(), [](std::uint16_t v) { return QXFMT_IsValidPort(v); });
}

void AddMasks() {
  Compare(
      "QXFMT_BitsToMask", PrefixLengths(), [](std::uint8_t v) { return QXFMT_BitsToMask(v); },
      Peer{"shift, htonl", [](std::uint8_t v) {
             return htonl(static_cast<std::uint32_t>(~(0xFFFF'FFFFULL >> v)));
           }});
  Compare(
      "QXFMT_MaskToBits", Masks(), [](std::uint32_t v) { return QXFMT_MaskToBits(v); },
      Peer{"std::countl_one, ntohl", [](std::uint32_t v) { return std::countl_one(ntohl(v)); }});
  Compare("QXFMT_IsValidIpMask u32", Masks(),
          [](std::uint32_t v) { return QXFMT_IsValidIpMask(v); });
  Compare("QXFMT_IsValidIpMask, text", MaskTexts(),
          [](const Text& text) { return QXFMT_IsValidIpMask(text.wide); });
}

// --- Reading MAC addresses

constexpr auto kSixFromChars = [](const Text& text) -> std::uint64_t {
  const char* at = text.narrow.data();
  const char* const end = at + text.narrow.size();
  std::uint64_t address = 0;
  for (int i = 0; i < 6; ++i) {
    if (i > 0 && (at == end || *at++ != ':')) return 0;
    std::uint8_t octet;
    const auto [next, error] = std::from_chars(at, end, octet, 16);
    if (error != std::errc{}) return 0;
    address |= std::uint64_t{octet} << 8 * i;
    at = next;
  }
  return at == end ? address : 0;
};

void AddMacReaders() {
  constexpr Peer six{"six std::from_chars", kSixFromChars};
  constexpr Peer aton{"ether_aton_r", [](const Text& text) {
                        ether_addr address;
                        benchmark::DoNotOptimize(ether_aton_r(text.narrow.data(), &address));
                        return address;
                      }};
  Compare(
      "QXFMT_GetMacAddress, text", MacTexts(),
      [](const Text& text) { return QXFMT_GetMacAddress(text.wide, u':'); }, six.WithGoal(2.5),
      aton);
  Compare("QXFMT_GetMacAddress of six octets", MacAddresses(), [](const std::uint64_t& v) {
    return QXFMT_GetMacAddress(reinterpret_cast<const std::uint8_t*>(&v), 6);
  });
  Compare(
      "QXFMT_IsValidMacAddress, text", MacTexts(),
      [](const Text& text) { return QXFMT_IsValidMacAddress(text.wide); }, six, aton);
  Compare("QXFMT_IsValidMacAddress u64", MacAddresses(),
          [](std::uint64_t v) { return QXFMT_IsValidMacAddress(v); });
  Compare("QXFMT_IsValidMacAddress of six octets", MacAddresses(), [](const std::uint64_t& v) {
    return QXFMT_IsValidMacAddress(reinterpret_cast<const std::uint8_t*>(&v), 6);
  });
  Compare(
      "QXFMT_GetHexValue", OctetTexts(),
      [](const Text& text) { return QXFMT_GetHexValue(text.wide); },
      Peer{"std::from_chars", [](const Text& text) {
             std::uint8_t octet = 0;
             std::from_chars(text.narrow.begin(), text.narrow.end(), octet, 16);
             return octet;
           }});
}

// --- Reading IPv6

void AddIpv6Readers() {
  constexpr auto read = [](const Text& text) {
    Ipv6 address;
    benchmark::DoNotOptimize(QXFMT_GetIPv6Address(text.wide, address.data()));
    return address;
  };
  constexpr Peer pton{
      "inet_pton", [](const Text& text) {
        Ipv6 address;
        benchmark::DoNotOptimize(inet_pton(AF_INET6, text.narrow.data(), address.data()));
        return address;
      }};
  constexpr Peer asio{
      "Boost.Asio", [](const Text& text) {
        boost::system::error_code error;
        return boost::asio::ip::make_address_v6(text.narrow.data(), error).to_bytes();
      }};
  Compare("QXFMT_GetIPv6Address, as captured", CaptureIpv6Texts(), read, pton.WithGoal(5), asio);
  Compare("QXFMT_GetIPv6Address, uniform", UniformIpv6Texts(), read, pton.WithGoal(5), asio);
  Compare(
      "QXFMT_IsValidIPv6Address, as captured", CaptureIpv6Texts(),
      [](const Text& text) { return QXFMT_IsValidIPv6Address(text.wide); }, pton);
}

}  // namespace

void AddAddressRows() {
  AddIpv4Writers();
  AddMacWriters();
  AddIpv6Writers();
  AddIpv4Readers();
  AddPorts();
  AddMasks();
  AddMacReaders();
  AddIpv6Readers();
}

}  // namespace qxfmt::bench
