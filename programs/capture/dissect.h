#pragma once

// One captured packet as the fields that the views show. Knows nothing of where packets come from,
// and never reads beyond what was captured.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>

namespace capture {

// How the first bytes of a packet are to be read.
enum class Link : std::uint8_t {
  kUnknown,
  kEthernet,
  kLinuxCooked1,
  kLinuxCooked2,
  kRawIp,
  kLoopbackHostOrder,     // BSD loopback, the family in the byte order of the capturing machine
  kLoopbackNetworkOrder,  // the same of OpenBSD
};

// The innermost protocol whose header is known.
enum class Protocol : std::uint8_t {
  kUnknown,
  kLlc,
  kArp,
  kIpv4,
  kIpv6,
  kIcmp,
  kIcmpv6,
  kTcp,
  kUdp
};

inline constexpr std::size_t kProtocols = static_cast<std::size_t>(Protocol::kUdp) + 1;

const char* Name(Protocol protocol);

enum class Reading : std::uint8_t {
  kComplete,
  kTruncated,  // a header goes on where the capture of this packet ends
  kMalformed,  // a header contradicts itself, or goes on beyond the packet
};

// One side of a packet by the innermost layer that was read.
struct Endpoint {
  enum class Kind : std::uint8_t { kNone, kLinkLayer, kIpv4, kIpv6 };

  Kind kind = Kind::kNone;
  std::uint8_t size = 0;                  // octets of the address
  std::array<std::uint8_t, 16> octets{};  // in network order; zeros beyond the size
  bool has_port = false;
  std::uint16_t port = 0;

  bool operator==(const Endpoint&) const = default;
  bool operator<(const Endpoint& other) const {
    return std::tie(kind, size, octets, has_port, port) <
           std::tie(other.kind, other.size, other.octets, other.has_port, other.port);
  }
};

// The question or answer of an ARP packet for IPv4 on Ethernet.
struct Arp {
  std::uint16_t operation = 0;  // 0: of other kinds of addresses
  std::array<std::uint8_t, 6> sender_mac{};
  std::array<std::uint8_t, 4> sender{};
  std::array<std::uint8_t, 4> target{};

  bool operator==(const Arp&) const = default;
};

struct Packet {
  Endpoint source;
  Endpoint destination;
  Protocol protocol = Protocol::kUnknown;
  Reading reading = Reading::kComplete;
  std::uint8_t vlans = 0;               // VLAN tags
  std::array<std::uint16_t, 2> vlan{};  // identifiers of the two outermost
  // What follows the innermost known header, where that is not known: an EtherType, or with IPv4
  // and IPv6 the number of a protocol.
  std::uint16_t next = 0;
  std::uint16_t fragment_offset = 0;  // bytes; above 0 what follows is no header
  std::uint8_t tcp_flags = 0;
  std::uint8_t icmp_type = 0;
  std::uint8_t icmp_code = 0;
  Arp arp;

  bool operator==(const Packet&) const = default;
};

// `length` is that of the packet before the capture cut it to `captured`.
Packet Dissect(Link link, std::span<const std::uint8_t> captured, std::uint32_t length);

}  // namespace capture
