#pragma once

// The addresses of the host's interfaces and of its open sockets, as the kernel gives them.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace meter {

struct Ipv4Address {
  std::uint32_t address = 0;  // first octet in the lowest byte
  std::uint32_t mask = 0;     // likewise
};

struct Ipv6Address {
  std::array<std::uint8_t, 16> address{};  // network order
  int prefix = 0;
};

struct Addresses {
  std::vector<Ipv4Address> ipv4;
  std::vector<Ipv6Address> ipv6;
};

// Of one interface. Throws std::runtime_error if the kernel does not tell.
Addresses ReadAddresses(const std::string& interface);

// The link-layer address of ROOT/sys/class/net/INTERFACE/address, as text; empty where the
// kernel tells none.
std::u16string ReadMac(const std::string& root, const std::string& interface);

struct Endpoint {
  std::uint32_t ipv4 = 0;               // first octet in the lowest byte
  std::array<std::uint8_t, 16> ipv6{};  // network order
  std::uint16_t port = 0;
};

struct Socket {
  std::string protocol;  // "tcp", "tcp6", "udp", "udp6"
  bool is_ipv6 = false;
  Endpoint local;
  Endpoint remote;
  std::string state;
};

// The entries of ROOT/proc/net/tcp, tcp6, udp and udp6; a kernel without IPv6 has only two of them.
// Throws std::runtime_error if none can be read, or one does not look as it should.
std::vector<Socket> ReadSockets(const std::string& root);

}  // namespace meter
