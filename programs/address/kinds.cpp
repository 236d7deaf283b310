#include "address/kinds.h"

#include <algorithm>
#include <iterator>

#include <qxfmt/qxfmt.h>

namespace address {

namespace {

struct Block {
  WideText first;
  std::uint8_t prefix;  // bits in common with the first address
  Kind kind;
};

// The registries of special-purpose and of multicast addresses. In each list the longest prefix
// that fits counts, so that a part of a block may be of another kind.
constexpr Block kIpv4Blocks[] = {
    {u"0.0.0.0", 0, {"global", "RFC 7249"}},
    {u"0.0.0.0", 8, {"this network", "RFC 791"}},
    {u"0.0.0.0", 32, {"unspecified: this host", "RFC 1122"}},
    {u"10.0.0.0", 8, {"private", "RFC 1918"}},
    {u"100.64.0.0", 10, {"shared by a carrier's customers (CGNAT)", "RFC 6598"}},
    {u"127.0.0.0", 8, {"loopback", "RFC 1122"}},
    {u"169.254.0.0", 16, {"link-local", "RFC 3927"}},
    {u"172.16.0.0", 12, {"private", "RFC 1918"}},
    {u"192.0.0.0", 24, {"IETF protocol assignments", "RFC 6890"}},
    {u"192.0.0.0", 29, {"IPv4 service continuity", "RFC 7335"}},
    {u"192.0.0.8", 32, {"IPv4 dummy address", "RFC 7600"}},
    {u"192.0.0.9", 32, {"port control protocol, anycast", "RFC 7723"}},
    {u"192.0.0.10", 32, {"TURN, anycast", "RFC 8155"}},
    {u"192.0.0.170", 31, {"discovery of NAT64", "RFC 8880"}},
    {u"192.0.2.0", 24, {"documentation", "RFC 5737"}},
    {u"192.31.196.0", 24, {"AS112", "RFC 7535"}},
    {u"192.52.193.0", 24, {"multicast tunneling (AMT)", "RFC 7450"}},
    {u"192.88.99.0", 24, {"6to4 relays, deprecated", "RFC 7526"}},
    {u"192.88.99.2", 32, {"6a44 relay, anycast", "RFC 6751"}},
    {u"192.168.0.0", 16, {"private", "RFC 1918"}},
    {u"192.175.48.0", 24, {"AS112", "RFC 7534"}},
    {u"198.18.0.0", 15, {"benchmarking", "RFC 2544"}},
    {u"198.51.100.0", 24, {"documentation", "RFC 5737"}},
    {u"203.0.113.0", 24, {"documentation", "RFC 5737"}},
    {u"224.0.0.0", 4, {"multicast", "RFC 5771"}},
    {u"224.0.0.0", 24, {"multicast, local network", "RFC 5771"}},
    {u"232.0.0.0", 8, {"multicast, source-specific", "RFC 4607"}},
    {u"233.252.0.0", 24, {"multicast, documentation", "RFC 6676"}},
    {u"239.0.0.0", 8, {"multicast, within an organization", "RFC 2365"}},
    {u"240.0.0.0", 4, {"reserved", "RFC 1112"}},
    {u"255.255.255.255", 32, {"broadcast", "RFC 919"}},
};

constexpr Block kIpv6Blocks[] = {
    {u"::", 0, {"reserved", "RFC 4291"}},
    {u"::", 96, {"IPv4-compatible, deprecated", "RFC 4291"}},
    {u"::", 128, {"unspecified", "RFC 4291"}},
    {u"::1", 128, {"loopback", "RFC 4291"}},
    {u"::ffff:0:0", 96, {"IPv4-mapped", "RFC 4291"}},
    {u"64:ff9b::", 96, {"translation to IPv4 (NAT64)", "RFC 6052"}},
    {u"64:ff9b:1::", 48, {"translation to IPv4 (NAT64), local", "RFC 8215"}},
    {u"100::", 64, {"discarded", "RFC 6666"}},
    {u"100:0:0:1::", 64, {"dummy prefix", "RFC 9780"}},
    {u"2000::", 3, {"global", "RFC 4291"}},
    {u"2001::", 23, {"IETF protocol assignments", "RFC 2928"}},
    {u"2001::", 32, {"Teredo", "RFC 4380"}},
    {u"2001:1::1", 128, {"port control protocol, anycast", "RFC 7723"}},
    {u"2001:1::2", 128, {"TURN, anycast", "RFC 8155"}},
    {u"2001:1::3", 128, {"service registration, anycast", "RFC 9665"}},
    {u"2001:2::", 48, {"benchmarking", "RFC 5180"}},
    {u"2001:3::", 32, {"multicast tunneling (AMT)", "RFC 7450"}},
    {u"2001:4:112::", 48, {"AS112", "RFC 7535"}},
    {u"2001:10::", 28, {"ORCHID, deprecated", "RFC 4843"}},
    {u"2001:20::", 28, {"ORCHIDv2", "RFC 7343"}},
    {u"2001:30::", 28, {"remote identification of drones", "RFC 9374"}},
    {u"2001:db8::", 32, {"documentation", "RFC 3849"}},
    {u"2002::", 16, {"6to4", "RFC 3056"}},
    {u"2620:4f:8000::", 48, {"AS112", "RFC 7534"}},
    {u"3fff::", 20, {"documentation", "RFC 9637"}},
    {u"5f00::", 16, {"segment routing (SRv6)", "RFC 9602"}},
    {u"fc00::", 7, {"unique local (ULA)", "RFC 4193"}},
    {u"fe80::", 10, {"link-local", "RFC 4291"}},
    {u"fec0::", 10, {"site-local, deprecated", "RFC 3879"}},
    {u"ff00::", 8, {"multicast", "RFC 4291"}},
    {u"ff01::", 16, {"multicast, within an interface", "RFC 7346"}},
    {u"ff02::", 16, {"multicast, within a link", "RFC 7346"}},
    {u"ff02::1:ff00:0", 104, {"multicast, solicited node", "RFC 4291"}},
    {u"ff05::", 16, {"multicast, within a site", "RFC 7346"}},
    {u"ff08::", 16, {"multicast, within an organization", "RFC 7346"}},
    {u"ff0e::", 16, {"multicast, global", "RFC 7346"}},
    {u"ff30::", 12, {"multicast, by a unicast prefix", "RFC 3306"}},
};

constexpr Block kMacBlocks[] = {
    {u"00:00:5e:00:01:00", 40, {"virtual router, IPv4 (VRRP)", "RFC 9568"}},
    {u"00:00:5e:00:02:00", 40, {"virtual router, IPv6 (VRRP)", "RFC 9568"}},
    {u"00:00:5e:00:53:00", 40, {"documentation", "RFC 9542"}},
    {u"01:00:5e:00:00:00", 25, {"multicast of IPv4", "RFC 1112"}},
    {u"01:00:5e:90:10:00", 40, {"multicast, documentation", "RFC 9542"}},
    {u"01:80:c2:00:00:00", 44, {"multicast, to the next bridge", "IEEE 802.1Q"}},
    {u"33:33:00:00:00:00", 16, {"multicast of IPv6", "RFC 2464"}},
    {u"ff:ff:ff:ff:ff:ff", 48, {"broadcast", "IEEE 802"}},
};

// Whether the first `bits` bits are the same; the first octet has the first eight.
template <typename Octets>
bool StartAlike(const Octets& one, const Octets& other, unsigned bits) {
  const auto whole = std::next(one.begin(), bits / 8);
  const auto [differing, against] = std::mismatch(one.begin(), whole, other.begin());
  if (differing != whole) return false;
  return bits % 8 == 0 || (*differing ^ *against) >> (8 - bits % 8) == 0;
}

using MacOctets = std::array<std::uint8_t, 6>;

MacOctets OctetsOf(std::uint64_t mac) {
  MacOctets octets;
  for (std::size_t i = 0; i < octets.size(); ++i) {
    octets[i] = static_cast<std::uint8_t>(mac >> (8 * i));
  }
  return octets;
}

// Of the blocks that hold the address, the smallest.
template <std::size_t kCount, typename Holds>
const Block* Find(const Block (&blocks)[kCount], Holds holds) {
  const Block* found = nullptr;
  for (const Block& block : blocks) {
    if (holds(block) && (found == nullptr || block.prefix > found->prefix)) found = &block;
  }
  return found;
}

}  // namespace

Kind KindOf(const Ipv4& ipv4) {
  const auto holds = [&ipv4](const Block& block) {
    const std::uint32_t first = QXFMT_GetIpAddress(block.first, nullptr);
    return (ipv4.address & QXFMT_BitsToMask(block.prefix)) == first;
  };
  return Find(kIpv4Blocks, holds)->kind;
}

Kind KindOf(const Ipv6& ipv6) {
  const auto holds = [&ipv6](const Block& block) {
    Ipv6Octets first;
    return QXFMT_GetIPv6Address(block.first, first.data()) != 0 &&
           StartAlike(ipv6.address, first, block.prefix);
  };
  return Find(kIpv6Blocks, holds)->kind;
}

Kind KindOf(const Mac& mac) {
  const MacOctets octets = OctetsOf(mac.address);
  const auto holds = [&octets](const Block& block) {
    return StartAlike(octets, OctetsOf(QXFMT_GetMacAddress(block.first, u':')), block.prefix);
  };
  const Block* const block = Find(kMacBlocks, holds);
  if (block != nullptr) return block->kind;
  if ((octets[0] & 1) != 0) return {"multicast", "IEEE 802"};
  if ((octets[0] & 2) != 0) return {"locally administered: random or set by hand", "IEEE 802"};
  return {"universal: of its maker", "IEEE 802"};
}

Kind KindOf(const Port& port) {
  if (port.number == 0) return {"reserved", "RFC 6335"};
  if (port.number < 1024) return {"system port", "RFC 6335"};
  if (port.number < 49152) return {"user port", "RFC 6335"};
  return {"dynamic port", "RFC 6335"};
}

}  // namespace address
