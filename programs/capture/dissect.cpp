#include "capture/dissect.h"

#include <algorithm>

namespace capture {

namespace {

constexpr std::uint16_t kFirstEtherType = 0x0600;  // below it the field is a length
constexpr std::uint16_t kArpType = 0x0806;
constexpr std::uint16_t kIpv4Type = 0x0800;
constexpr std::uint16_t kIpv6Type = 0x86DD;
constexpr std::uint16_t kFragmentHeader = 44;

// Walks over the headers, the next one always at the front.
class Dissection {
 public:
  Dissection(std::span<const std::uint8_t> captured, std::uint32_t length)
      : bytes_(captured), on_wire_(std::max<std::size_t>(length, captured.size())) {}

  const Packet& packet() const { return packet_; }

  void ReadLink(Link link) {
    switch (link) {
      case Link::kUnknown:
        return;
      case Link::kEthernet:
        return ReadEthernet();
      case Link::kLinuxCooked1:
        return ReadLinuxCooked1();
      case Link::kLinuxCooked2:
        return ReadLinuxCooked2();
      case Link::kRawIp:
        return ReadRawIp();
      case Link::kLoopbackHostOrder:
      case Link::kLoopbackNetworkOrder:
        return ReadLoopback(link);
    }
  }

 private:
  // Whether the next so many bytes can be read. If not, the packet tells why.
  bool Has(std::size_t count) {
    if (count <= bytes_.size()) return true;
    packet_.reading = count <= on_wire_ ? Reading::kTruncated : Reading::kMalformed;
    return false;
  }

  std::uint16_t Read16(std::size_t at) const {
    return static_cast<std::uint16_t>(bytes_[at] << 8 | bytes_[at + 1]);
  }

  template <std::size_t kSize>
  void Copy(std::size_t at, std::array<std::uint8_t, kSize>& octets) const {
    std::copy_n(&bytes_[at], kSize, octets.begin());
  }

  Endpoint ReadEndpoint(Endpoint::Kind kind, std::size_t at, std::size_t size) const {
    Endpoint endpoint;
    endpoint.kind = kind;
    endpoint.size = static_cast<std::uint8_t>(size);
    std::copy_n(&bytes_[at], size, endpoint.octets.begin());
    return endpoint;
  }

  void Skip(std::size_t count) {
    bytes_ = bytes_.subspan(count);
    on_wire_ -= count;
  }

  // Leaves out what follows the next `size` bytes: the padding of short frames.
  void Limit(std::size_t size) {
    on_wire_ = std::min(on_wire_, size);
    bytes_ = bytes_.first(std::min(bytes_.size(), size));
  }

  void SetMalformed() { packet_.reading = Reading::kMalformed; }

  void ReadEthernet() {
    if (!Has(14)) return;
    packet_.destination = ReadEndpoint(Endpoint::Kind::kLinkLayer, 0, 6);
    packet_.source = ReadEndpoint(Endpoint::Kind::kLinkLayer, 6, 6);
    const std::uint16_t type = Read16(12);
    Skip(14);
    ReadNetwork(type);
  }

  // The sender's address has room for 8 octets, and may be absent or longer.
  void ReadCookedSource(std::size_t size, std::size_t at) {
    if (size == 0) return;
    packet_.source = ReadEndpoint(Endpoint::Kind::kLinkLayer, at, std::min<std::size_t>(size, 8));
  }

  void ReadLinuxCooked1() {
    if (!Has(16)) return;
    ReadCookedSource(Read16(4), 6);
    const std::uint16_t type = Read16(14);
    Skip(16);
    ReadNetwork(type);
  }

  void ReadLinuxCooked2() {
    if (!Has(20)) return;
    ReadCookedSource(bytes_[11], 12);
    const std::uint16_t type = Read16(0);
    Skip(20);
    ReadNetwork(type);
  }

  void ReadRawIp() {
    if (!Has(1)) return;
    const int version = bytes_[0] >> 4;
    if (version == 4) return ReadIpv4();
    if (version == 6) return ReadIpv6();
    SetMalformed();
  }

  // The numbers of the address families differ between systems, and the machine's byte order is not
  // recorded; but none is above 255.
  void ReadLoopback(Link link) {
    if (!Has(4)) return;
    const bool is_swapped = link == Link::kLoopbackHostOrder && bytes_[0] != 0;
    const int family = is_swapped ? bytes_[0] : bytes_[3];
    Skip(4);
    switch (family) {
      case 2:
        return ReadIpv4();
      case 10:  // Linux
      case 24:  // NetBSD, OpenBSD
      case 28:  // FreeBSD
      case 30:  // macOS
        return ReadIpv6();
      default:
        packet_.next = static_cast<std::uint16_t>(family);
    }
  }

  void ReadNetwork(std::uint16_t type) {
    // 802.1Q, 802.1ad and what switches used before that.
    while (type == 0x8100 || type == 0x88A8 || type == 0x9100) {
      packet_.next = type;
      if (!Has(4)) return;
      if (packet_.vlans < packet_.vlan.size()) packet_.vlan[packet_.vlans] = Read16(0) & 0xFFF;
      if (packet_.vlans < 255) ++packet_.vlans;
      type = Read16(2);
      Skip(4);
    }
    packet_.next = type;
    if (type == kIpv4Type) return ReadIpv4();
    if (type == kIpv6Type) return ReadIpv6();
    if (type == kArpType) return ReadArp();
    if (type < kFirstEtherType) packet_.protocol = Protocol::kLlc;
  }

  void ReadArp() {
    packet_.protocol = Protocol::kArp;
    if (!Has(8)) return;
    const bool is_ipv4_on_ethernet =
        Read16(0) == 1 && Read16(2) == kIpv4Type && bytes_[4] == 6 && bytes_[5] == 4;
    if (!is_ipv4_on_ethernet || !Has(28)) return;
    packet_.arp.operation = Read16(6);
    Copy(8, packet_.arp.sender_mac);
    Copy(14, packet_.arp.sender);
    Copy(24, packet_.arp.target);
  }

  void ReadIpv4() {
    packet_.protocol = Protocol::kIpv4;
    if (!Has(20)) return;
    const std::size_t header = (bytes_[0] & 0xFU) << 2;
    const std::size_t total = Read16(2);  // 0 where the network card is to split the packet
    if (bytes_[0] >> 4 != 4 || header < 20 || (total != 0 && total < header)) {
      return SetMalformed();
    }
    packet_.source = ReadEndpoint(Endpoint::Kind::kIpv4, 12, 4);
    packet_.destination = ReadEndpoint(Endpoint::Kind::kIpv4, 16, 4);
    packet_.next = bytes_[9];
    packet_.fragment_offset = static_cast<std::uint16_t>(Read16(6) << 3);
    if (total != 0) Limit(total);
    if (!Has(header)) return;
    Skip(header);
    ReadTransport(Protocol::kIcmp);
  }

  void ReadIpv6() {
    packet_.protocol = Protocol::kIpv6;
    if (!Has(40)) return;
    if (bytes_[0] >> 4 != 6) return SetMalformed();
    packet_.source = ReadEndpoint(Endpoint::Kind::kIpv6, 8, 16);
    packet_.destination = ReadEndpoint(Endpoint::Kind::kIpv6, 24, 16);
    packet_.next = bytes_[6];
    const std::size_t payload = Read16(4);  // 0 in jumbograms and where the card is to split
    Skip(40);
    if (payload != 0) Limit(payload);
    if (SkipExtensionHeaders()) ReadTransport(Protocol::kIcmpv6);
  }

  // RFC 8200 section 4; the authentication header counts in units of 4 bytes (RFC 4302). Whether
  // all of them were read.
  bool SkipExtensionHeaders() {
    for (;;) {
      std::size_t unit = 8;
      switch (packet_.next) {
        case 0:    // hop-by-hop options
        case 43:   // routing
        case 60:   // destination options
        case 135:  // mobility
          break;
        case kFragmentHeader:
          unit = 0;
          break;
        case 51:  // authentication
          unit = 4;
          break;
        default:
          return true;
      }
      if (!Has(8)) return false;
      const std::size_t size = 8 + unit * bytes_[1];
      if (!Has(size)) return false;
      if (packet_.next == kFragmentHeader) packet_.fragment_offset = Read16(2) & 0xFFF8;
      packet_.next = bytes_[0];
      Skip(size);
      if (packet_.fragment_offset != 0) return true;
    }
  }

  void ReadTransport(Protocol icmp) {
    if (packet_.fragment_offset != 0) return;
    if (packet_.next == 6) return ReadTcp();
    if (packet_.next == 17) return ReadUdp();
    if (packet_.next == 1 && icmp == Protocol::kIcmp) return ReadIcmp(icmp);
    if (packet_.next == 58 && icmp == Protocol::kIcmpv6) return ReadIcmp(icmp);
  }

  bool ReadPorts() {
    if (!Has(4)) return false;
    packet_.source.has_port = packet_.destination.has_port = true;
    packet_.source.port = Read16(0);
    packet_.destination.port = Read16(2);
    return true;
  }

  void ReadTcp() {
    packet_.protocol = Protocol::kTcp;
    if (!ReadPorts() || !Has(14)) return;
    packet_.tcp_flags = bytes_[13];
    const std::size_t header = (bytes_[12] & 0xF0U) >> 2;
    if (header < 20) return SetMalformed();
    Has(header);
  }

  void ReadUdp() {
    packet_.protocol = Protocol::kUdp;
    if (!ReadPorts() || !Has(8)) return;
    const std::uint16_t length = Read16(4);  // 0 in jumbograms
    if (length != 0 && length < 8) SetMalformed();
  }

  void ReadIcmp(Protocol protocol) {
    packet_.protocol = protocol;
    if (!Has(4)) return;
    packet_.icmp_type = bytes_[0];
    packet_.icmp_code = bytes_[1];
  }

  std::span<const std::uint8_t> bytes_;  // captured, from the next header on
  std::size_t on_wire_;                  // bytes that the packet had from there on
  Packet packet_;
};

}  // namespace

const char* Name(Protocol protocol) {
  static constexpr const char* kNames[] = {"unknown", "802.3",  "ARP", "IPv4", "IPv6",
                                           "ICMP",    "ICMPv6", "TCP", "UDP"};
  static_assert(std::size(kNames) == kProtocols);
  return kNames[static_cast<std::size_t>(protocol)];
}

Packet Dissect(Link link, std::span<const std::uint8_t> captured, std::uint32_t length) {
  Dissection dissection(captured, length);
  dissection.ReadLink(link);
  return dissection.packet();
}

}  // namespace capture
