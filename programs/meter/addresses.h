#pragma once

// The addresses of the host's interfaces, as the kernel gives them.

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

}  // namespace meter
