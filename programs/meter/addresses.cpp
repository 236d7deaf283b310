#include "meter/addresses.h"

#include <ifaddrs.h>
#include <netinet/in.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include <qxfmt/qxfmt.h>

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

std::runtime_error BadSocket(const std::string& path, const std::string& line) {
  return std::runtime_error(path + ": not a line of a socket: '" + line + "'");
}

std::uint32_t ReadHex(std::string_view digits) {
  std::uint32_t value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
  if (error != std::errc() || stop != end) throw std::invalid_argument("not hexadecimal");
  return value;
}

// "0100007F:1F90": the address as one 32-bit number, or four, in the byte order of the machine.
Endpoint ReadEndpoint(std::string_view text, bool is_ipv6) {
  const std::size_t words = is_ipv6 ? 4 : 1;
  if (text.size() != 8 * words + 5 || text[8 * words] != ':') {
    throw std::invalid_argument("not an endpoint");
  }
  Endpoint endpoint;
  for (std::size_t i = 0; i < words; ++i) {
    const std::uint32_t word = ReadHex(text.substr(8 * i, 8));
    std::memcpy(&endpoint.ipv6[4 * i], &word, sizeof(word));
    if (!is_ipv6) endpoint.ipv4 = FirstOctetLowest(&word);
  }
  endpoint.port = static_cast<std::uint16_t>(ReadHex(text.substr(8 * words + 1)));
  return endpoint;
}

// The kernel's numbers for the states of a TCP socket; UDP uses two of them.
std::string StateName(std::uint32_t state, bool is_udp) {
  static constexpr const char* kNames[] = {"established", "syn-sent",  "syn-received", "fin-wait-1",
                                           "fin-wait-2",  "time-wait", "closed",       "close-wait",
                                           "last-ack",    "listening", "closing"};
  if (is_udp && state == 7) return "open";
  return state >= 1 && state <= std::size(kNames) ? kNames[state - 1] : "unknown";
}

// "   0: LOCAL REMOTE STATE ..."
Socket ParseSocket(const std::string& line, const std::string& protocol) {
  std::istringstream fields(line);
  std::string number;
  std::string local;
  std::string remote;
  std::string state;
  fields >> number >> local >> remote >> state;
  Socket socket;
  socket.protocol = protocol;
  socket.is_ipv6 = protocol.back() == '6';
  socket.local = ReadEndpoint(local, socket.is_ipv6);
  socket.remote = ReadEndpoint(remote, socket.is_ipv6);
  socket.state = StateName(ReadHex(state), protocol.rfind("udp", 0) == 0);
  return socket;
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
  std::ifstream file(root + "/sys/class/net/" + interface + "/address");
  std::string line;
  std::getline(file, line);
  const std::u16string text(line.begin(), line.end());
  if (QXFMT_IsValidMacAddress(text.c_str()) == 0) return {};
  CQXDataFormat format;
  return format.FormatMacAddress(QXFMT_GetMacAddress(text.c_str(), u':'));
}

std::vector<Socket> ReadSockets(const std::string& root) {
  std::vector<Socket> sockets;
  bool any = false;
  for (const char* const protocol : {"tcp", "tcp6", "udp", "udp6"}) {
    const std::string path = root + "/proc/net/" + protocol;
    std::ifstream file(path);
    std::string line;
    if (!std::getline(file, line)) continue;  // the headings
    any = true;
    while (std::getline(file, line)) {
      try {
        sockets.push_back(ParseSocket(line, protocol));
      } catch (const std::invalid_argument&) {
        throw BadSocket(path, line);
      }
    }
  }
  if (!any) throw std::runtime_error("cannot read " + root + "/proc/net/tcp or its like");
  return sockets;
}

}  // namespace meter
