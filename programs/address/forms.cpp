#include "address/forms.h"

#include <string_view>

#include <qxfmt/qxfmt.h>
#include <qxfmt/utf8.h>

#include "address/kinds.h"

namespace address {

namespace {

// "001a.2b3c.4d5e" from the library's "00:1A:2B:3C:4D:5E".
std::u16string Dotted(std::u16string_view mac) {
  std::u16string dotted;
  for (const char16_t unit : mac) {
    if (unit == u':') continue;
    if (dotted.size() % 5 == 4) dotted += u'.';
    dotted += unit >= u'A' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
  }
  return dotted;
}

class Writer {
 public:
  void operator()(const Ipv4& ipv4) {
    Add("IPv4", format_.FormatIpAddress(ipv4.address));
    if (ipv4.mask) AddNetwork(ipv4.address, *ipv4.mask);
    if (ipv4.port) Add("port", format_.FormatIpPort(ipv4.address, *ipv4.port));
    AddKind(KindOf(ipv4));
  }

  void operator()(const Ipv6& ipv6) {
    const std::uint8_t* const address = ipv6.address.data();
    Add("IPv6", format_.FormatIPv6Address(address, QXFMT_IPV6_COMPRESSED));
    Add("full", format_.FormatIPv6Address(address, QXFMT_IPV6_FULL));
    Add("dotted", format_.FormatIPv6Address(address, QXFMT_IPV6_EMBEDDED_V4));
    if (!ipv6.zone.empty()) Add("zone", ipv6.zone);
    if (ipv6.prefix) AddNetwork(ipv6.address, *ipv6.prefix);
    if (ipv6.port) {
      Add("port", format_.FormatIpv6Port(address, *ipv6.port, QXFMT_IPV6_COMPRESSED));
    }
    AddKind(KindOf(ipv6));
  }

  void operator()(const Mac& mac) {
    const ResultText text = format_.FormatMacAddress(mac.address);
    Add("MAC", text);
    Add("dotted", Dotted(text));
    AddKind(KindOf(mac));
  }

  void operator()(const Port& port) {
    Add("port", format_.FormatNumber(port.number, 0));
    AddKind(KindOf(port));
  }

  std::string Take() { return std::move(lines_); }

 private:
  void Add(std::string_view name, std::string_view form) {
    constexpr std::size_t kWidth = 11;
    lines_.append("  ").append(name).append(kWidth - name.size(), ' ').append(form).append("\n");
  }
  void Add(std::string_view name, std::u16string_view form) { Add(name, qxfmt::Utf8(form)); }

  void AddKind(const Kind& kind) { Add("kind", std::string(kind.name) + " (" + kind.source + ")"); }

  void AddNetwork(std::uint32_t address, std::uint32_t mask) {
    const std::uint8_t bits = QXFMT_MaskToBits(mask);
    const bool has_holes = QXFMT_BitsToMask(bits) != mask;
    const std::uint32_t network = address & mask;
    Add("mask", format_.FormatIpAddress(mask));
    if (has_holes) {
      Add("prefix", "none, the mask has holes");
      Add("network", format_.FormatIpAddress(network));
      return;
    }
    Add("prefix", format_.FormatNumber(std::uint16_t{bits}, 0));
    Add("network", format_.FormatIpAddress(network));
    AddHosts(network, network | ~mask, bits);
  }

  // The first and the last address of a network are the network's own and its broadcast, except
  // where there would be no others (RFC 3021).
  void AddHosts(std::uint32_t network, std::uint32_t last, std::uint8_t bits) {
    constexpr std::uint32_t kOne = 1U << 24;  // in the last octet
    const bool has_broadcast = bits < 31;
    const std::uint64_t addresses = std::uint64_t{1} << (32 - bits);
    Add("first", format_.FormatIpAddress(has_broadcast ? network | kOne : network));
    Add("last", format_.FormatIpAddress(has_broadcast ? last & ~kOne : last));
    if (has_broadcast) Add("broadcast", format_.FormatIpAddress(last));
    Add("hosts", format_.FormatNumber(has_broadcast ? addresses - 2 : addresses, 1));
  }

  void AddNetwork(const Ipv6Octets& address, std::uint8_t bits) {
    Ipv6Octets first = address;
    Ipv6Octets last = address;
    for (unsigned bit = bits; bit < 128; ++bit) {
      const auto mask = static_cast<std::uint8_t>(0x80 >> bit % 8);
      first[bit / 8] &= static_cast<std::uint8_t>(~mask);
      last[bit / 8] |= mask;
    }
    Add("prefix", format_.FormatNumber(std::uint16_t{bits}, 0));
    Add("first", format_.FormatIPv6Address(first.data(), QXFMT_IPV6_COMPRESSED));
    Add("last", format_.FormatIPv6Address(last.data(), QXFMT_IPV6_COMPRESSED));
    // Counts of 64 bits and more do not fit an integer, and say more as what they are.
    const int host_bits = 128 - bits;
    Add("hosts", host_bits < 64
                     ? std::u16string(format_.FormatNumber(std::uint64_t{1} << host_bits, 1))
                     : u"2^" + std::u16string(format_.FormatNumber(host_bits, 0)));
  }

  CQXDataFormat format_;
  std::string lines_;
};

}  // namespace

std::string Forms(const Value& value) {
  Writer writer;
  std::visit(writer, value);
  return writer.Take();
}

}  // namespace address
