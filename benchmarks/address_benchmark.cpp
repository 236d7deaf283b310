#include <arpa/inet.h>
#include <netinet/ether.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>

#include "comparison.h"

#if defined(QXFMT_WITH_FMT)
#include <fmt/compile.h>
#include <fmt/format.h>
#endif

namespace qxfmt::bench {

namespace {

using Ipv6Bytes = std::array<std::uint8_t, 16>;

// One text for both sides, each in its own width.
struct AddressText {
  std::u16string wide;
  std::string narrow;
};

std::vector<std::uint64_t> RandomValues() {
  std::mt19937_64 random(1);
  std::vector<std::uint64_t> values(kValues);
  for (std::uint64_t& value : values) value = random();
  return values;
}

std::vector<std::uint32_t> Ipv4Addresses() {
  std::vector<std::uint32_t> addresses;
  for (const std::uint64_t value : RandomValues()) {
    addresses.push_back(static_cast<std::uint32_t>(value));
  }
  return addresses;
}

// In turn: all random; a host in a /64 with an interface identifier made from a MAC address; a
// server with a short number; a link-local address; an IPv4-mapped one.
std::vector<Ipv6Bytes> Ipv6Addresses() {
  static constexpr Ipv6Bytes kPrefixes[] = {
      {0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xfe},
      {0x2a, 0x00, 0x14, 0x50, 0x40, 0x01},
      {0xfe, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xfe},
      {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}};
  static constexpr std::uint16_t kRandomBytes[] = {0xE7F0, 0xC0C0, 0xE700, 0xF000};
  std::mt19937_64 random(2);
  std::vector<Ipv6Bytes> addresses(kValues);
  for (std::size_t i = 0; i < kValues; ++i) {
    const std::size_t kind = i % 5;
    if (kind > 0) addresses[i] = kPrefixes[kind - 1];
    const unsigned randomised = kind == 0 ? 0xFFFF : kRandomBytes[kind - 1];
    for (std::size_t byte = 0; byte < 16; ++byte) {
      if ((randomised >> byte & 1) != 0) addresses[i][byte] = static_cast<std::uint8_t>(random());
    }
  }
  return addresses;
}

std::vector<AddressText> Texts(int family, const void* addresses, std::size_t bytes) {
  std::vector<AddressText> texts(kValues);
  for (std::size_t i = 0; i < kValues; ++i) {
    char buffer[INET6_ADDRSTRLEN];
    inet_ntop(family, static_cast<const char*>(addresses) + i * bytes, buffer, sizeof buffer);
    texts[i].narrow = buffer;
    texts[i].wide.assign(texts[i].narrow.begin(), texts[i].narrow.end());
  }
  return texts;
}

void RegisterPresentations() {
  const std::vector<std::uint32_t> ipv4 = Ipv4Addresses();
  const char* const dotted = "FormatIpAddress";
  Ours(dotted, ipv4, [](CQXDataFormat& f, std::uint32_t v) { return f.FormatIpAddress(v); });
  Peer(dotted, "inet_ntop", ipv4,
       [](char* out, std::uint32_t v) { return inet_ntop(AF_INET, &v, out, kPeerBuffer); });
  const char* const into = "FormatIpAddress, caller's area";
  Other(into, "qxfmt", ipv4, [](std::uint32_t v) {
    static CQXDataFormat format;
    char16_t area[16];
    benchmark::DoNotOptimize(format.FormatIpAddress(v, area, 16));
    return area[0];
  });
  const char* const port = "FormatIpPort";
  Ours(port, ipv4, [](CQXDataFormat& f, std::uint32_t v) {
    return f.FormatIpPort(v, static_cast<std::uint16_t>(v >> 8));
  });

  const std::vector<std::uint64_t> macs = RandomValues();
  const char* const mac = "FormatMacAddress";
  Ours(mac, macs, [](CQXDataFormat& f, std::uint64_t v) { return f.FormatMacAddress(v); });

#if defined(QXFMT_WITH_FMT)
  Peer(dotted, "fmt compiled", ipv4, [](char* out, std::uint32_t v) {
    return fmt::format_to(out, FMT_COMPILE("{}.{}.{}.{}"), v & 0xFF, v >> 8 & 0xFF, v >> 16 & 0xFF,
                          v >> 24);
  });
  Peer(into, "fmt compiled", ipv4, [](char* out, std::uint32_t v) {
    return fmt::format_to(out, FMT_COMPILE("{}.{}.{}.{}"), v & 0xFF, v >> 8 & 0xFF, v >> 16 & 0xFF,
                          v >> 24);
  });
  Peer(port, "fmt compiled", ipv4, [](char* out, std::uint32_t v) {
    return fmt::format_to(out, FMT_COMPILE("{}.{}.{}.{}:{}"), v & 0xFF, v >> 8 & 0xFF,
                          v >> 16 & 0xFF, v >> 24, v >> 8 & 0xFFFF);
  });
  Peer(mac, "fmt compiled", macs, [](char* out, std::uint64_t v) {
    return fmt::format_to(out, FMT_COMPILE("{:02X}:{:02X}:{:02X}:{:02X}:{:02X}:{:02X}"), v & 0xFF,
                          v >> 8 & 0xFF, v >> 16 & 0xFF, v >> 24 & 0xFF, v >> 32 & 0xFF,
                          v >> 40 & 0xFF);
  });
#endif

  const std::vector<Ipv6Bytes> ipv6 = Ipv6Addresses();
  struct Form {
    const char* name;
    QXFMT_IPV6_TYPE type;
  };
  for (const Form& form : {Form{"FormatIPv6Address, compressed", QXFMT_IPV6_COMPRESSED},
                           Form{"FormatIPv6Address, full", QXFMT_IPV6_FULL},
                           Form{"FormatIPv6Address, embedded", QXFMT_IPV6_EMBEDDED_V4}}) {
    const QXFMT_IPV6_TYPE type = form.type;
    Ours(form.name, ipv6, [type](CQXDataFormat& f, const Ipv6Bytes& v) {
      return f.FormatIPv6Address(v.data(), type);
    });
    Peer(form.name, "inet_ntop (compressed)", ipv6, [](char* out, const Ipv6Bytes& v) {
      return inet_ntop(AF_INET6, v.data(), out, kPeerBuffer);
    });
  }
  const char* const ipv6_port = "FormatIpv6Port";
  Ours(ipv6_port, ipv6, [](CQXDataFormat& f, const Ipv6Bytes& v) {
    return f.FormatIpv6Port(v.data(), v[15], QXFMT_IPV6_COMPRESSED);
  });
  Peer(ipv6_port, "inet_ntop and snprintf", ipv6, [](char* out, const Ipv6Bytes& v) {
    char address[INET6_ADDRSTRLEN];
    inet_ntop(AF_INET6, v.data(), address, sizeof address);
    return std::snprintf(out, kPeerBuffer, "[%s]:%u", address, unsigned{v[15]});
  });
}

void RegisterParsers() {
  const std::vector<std::uint32_t> ipv4 = Ipv4Addresses();
  const std::vector<AddressText> dotted = Texts(AF_INET, ipv4.data(), sizeof ipv4[0]);
  const char* const get = "QXFMT_GetIpAddress";
  Other(get, "qxfmt", dotted, [](const AddressText& text) {
    std::int32_t valid = 0;
    return QXFMT_GetIpAddress(text.wide.c_str(), &valid) + static_cast<std::uint32_t>(valid);
  });
  Other(get, "inet_pton", dotted, [](const AddressText& text) {
    std::uint32_t address = 0;
    const int valid = inet_pton(AF_INET, text.narrow.c_str(), &address);
    return address + static_cast<std::uint32_t>(valid);
  });

  const std::vector<Ipv6Bytes> ipv6 = Ipv6Addresses();
  const std::vector<AddressText> colons = Texts(AF_INET6, ipv6.data(), sizeof ipv6[0]);
  const char* const get_ipv6 = "QXFMT_GetIPv6Address";
  Other(get_ipv6, "qxfmt", colons, [](const AddressText& text) {
    Ipv6Bytes address;
    benchmark::DoNotOptimize(QXFMT_GetIPv6Address(text.wide.c_str(), address.data()));
    return address;
  });
  Other(get_ipv6, "inet_pton", colons, [](const AddressText& text) {
    Ipv6Bytes address;
    benchmark::DoNotOptimize(inet_pton(AF_INET6, text.narrow.c_str(), address.data()));
    return address;
  });

  std::vector<AddressText> macs;
  for (const std::uint64_t value : RandomValues()) {
    CQXDataFormat format;
    const std::u16string text = format.FormatMacAddress(value);
    macs.push_back({text, {text.begin(), text.end()}});
  }
  const char* const mac = "QXFMT_GetMacAddress";
  Other(mac, "qxfmt", macs,
        [](const AddressText& text) { return QXFMT_GetMacAddress(text.wide.c_str(), u':'); });
  Other(mac, "ether_aton_r", macs, [](const AddressText& text) {
    ether_addr address;
    benchmark::DoNotOptimize(ether_aton_r(text.narrow.c_str(), &address));
    return address;
  });
}

}  // namespace

void RegisterAddresses() {
  RegisterPresentations();
  RegisterParsers();
}

}  // namespace qxfmt::bench
