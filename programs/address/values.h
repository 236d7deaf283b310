#pragma once

// What a typed text can be.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace address {

struct Ipv4 {
  std::uint32_t address = 0;          // first octet in the lowest byte, as the library has it
  std::optional<std::uint32_t> mask;  // likewise
  std::optional<std::uint16_t> port;
};

using Ipv6Octets = std::array<std::uint8_t, 16>;  // network order

struct Ipv6 {
  Ipv6Octets address{};
  std::u16string zone;  // of a link-local address: the interface that it is on
  std::optional<std::uint8_t> prefix;
  std::optional<std::uint16_t> port;
};

struct Mac {
  std::uint64_t address = 0;  // first octet in the lowest byte
};

struct Port {
  std::uint16_t number = 0;
};

using Value = std::variant<Ipv4, Ipv6, Mac, Port>;

}  // namespace address
