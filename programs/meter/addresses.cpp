#include "meter/addresses.h"

#include <ifaddrs.h>
#include <netinet/in.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <qxfmt/qxfmt.h>

#include "meter/files.h"

namespace meter {

namespace {

// A network-order value in memory as QXFMT takes it, on a machine of any byte order.
std::uint32_t FirstOctetLowest(const void* memory) {
  std::array<std::uint8_t, 4> octets{};
  std::memcpy(octets.data(), memory, octets.size());
  std::uint32_t value = 0;
  for (unsigned i = 0; i < 4; ++i) value |= std::uint32_t{octets[i]} << (8 * i);
  return value;
}

int PrefixOf(const in6_addr& mask) {
  int prefix = 0;
  for (const std::uint8_t octet : mask.s6_addr) prefix += __builtin_popcount(octet);
  return prefix;
}

void Append(const ifaddrs& entry, Addresses& addresses) {
  if (entry.ifa_addr == nullptr || entry.ifa_netmask == nullptr) return;
  if (entry.ifa_addr->sa_family == AF_INET) {
    const auto* const address = reinterpret_cast<const sockaddr_in*>(entry.ifa_addr);
    const auto* const mask = reinterpret_cast<const sockaddr_in*>(entry.ifa_netmask);
    addresses.ipv4.push_back(
        {FirstOctetLowest(&address->sin_addr), FirstOctetLowest(&mask->sin_addr)});
  } else if (entry.ifa_addr->sa_family == AF_INET6) {
    const auto* const address = reinterpret_cast<const sockaddr_in6*>(entry.ifa_addr);
    const auto* const mask = reinterpret_cast<const sockaddr_in6*>(entry.ifa_netmask);
    Ipv6Address ipv6;
    std::memcpy(ipv6.address.data(), &address->sin6_addr, ipv6.address.size());
    ipv6.prefix = PrefixOf(mask->sin6_addr);
    addresses.ipv6.push_back(ipv6);
  }
}

}  // namespace

Addresses ReadAddresses(const std::string& interface) {
  ifaddrs* list = nullptr;
  if (::getifaddrs(&list) != 0) {
    throw std::runtime_error(std::string("cannot read the host's addresses: ") +
                             std::strerror(errno));
  }
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, ::freeifaddrs);
  Addresses addresses;
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (interface == entry->ifa_name) Append(*entry, addresses);
  }
  return addresses;
}

std::u16string ReadMac(const std::string& root, const std::string& interface) {
  const std::string line = ReadFirstLine(root + "/sys/class/net/" + interface + "/address");
  const std::u16string text(line.begin(), line.end());
  if (QXFMT_IsValidMacAddress(text.c_str()) == 0) return {};
  CQXDataFormat format;
  return format.FormatMacAddress(QXFMT_GetMacAddress(text.c_str(), u':'));
}

}  // namespace meter
