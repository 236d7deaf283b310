#pragma once

/// @file
/// The addresses of the socket interface as text and back, on POSIX systems and on Windows. Brings
/// their headers, so that qxfmt/qxfmt.h does not include it.
///
/// Nothing here needs `htonl`, `ntohl`, `htons` or `ntohs`: addresses and ports are taken as the
/// socket interface holds them, and the texts are the same on machines of either byte order.
///
/// Texts to read are NUL-terminated 16-bit units; a null one is refused. `qxfmt::Utf16` makes them
/// of UTF-8. What is read goes to the caller's object, which stays as it is if the text is refused.
///
/// Nothing here throws or has a state of its own. Threads are as with `CQXDataFormat` for what
/// takes one; any thread may call the rest at any time.

#include <cstdint>
#include <cstring>

#if defined(_WIN32)
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <netinet/in.h>
#include <sys/socket.h>
#if __has_include(<net/ethernet.h>)
#include <net/ethernet.h>
#endif
#endif

#include <qxfmt/address.h>
#include <qxfmt/data_format.h>
#include <qxfmt/formats.h>
#include <qxfmt/text.h>

namespace qxfmt {

/// @name IPv4 values
/// For masks, and for the operations that take an address as a number.
/// @{

/// The address with the first octet of its text in the lowest 8 bits, as `FormatIpAddress`,
/// `QXFMT_MaskToBits` and `QXFMT_IsValidIpMask` take it.
/// `qxfmt::ToIpv4Value(qxfmt::ToInAddr(24))` gives 24.
[[nodiscard]] inline std::uint32_t ToIpv4Value(const in_addr& address) noexcept {
  std::uint8_t octets[4];
  std::memcpy(octets, &address, sizeof octets);
  return octets[0] | std::uint32_t{octets[1]} << 8U | std::uint32_t{octets[2]} << 16U |
         std::uint32_t{octets[3]} << 24U;
}

/// The address of such a value: `qxfmt::ToInAddr(QXFMT_BitsToMask(24))` is the mask 255.255.255.0.
/// `qxfmt::FormatAddress(format, qxfmt::ToInAddr(0x0102A8C0))` gives "192.168.2.1".
[[nodiscard]] inline in_addr ToInAddr(std::uint32_t value) noexcept {
  const std::uint8_t octets[4] = {
      static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8U),
      static_cast<std::uint8_t>(value >> 16U), static_cast<std::uint8_t>(value >> 24U)};
  in_addr address = {};
  std::memcpy(&address, octets, sizeof octets);
  return address;
}
/// @}

/// How the conversions work. Not for direct use.
namespace internal {

/// The number of a port in network order, and back.
inline std::uint16_t PortNumber(std::uint16_t network) noexcept {
  std::uint8_t octets[2];
  std::memcpy(octets, &network, sizeof octets);
  return static_cast<std::uint16_t>(octets[0] << 8 | octets[1]);
}

/// Copies what stands before a unit and returns what follows it; null if the unit does not come
/// within the room of the head, its terminator included.
inline WideText Split(WideText text, char16_t at, char16_t* head, int room) noexcept {
  for (int i = 0; i < room && text[i] != u'\0'; ++i) {
    const bool found = text[i] == at;
    head[i] = found ? u'\0' : text[i];
    if (found) return text + i + 1;
  }
  return nullptr;
}

/// Reads a port into network order.
template <typename Port>
bool ReadPort(WideText text, Port& port) noexcept {
  std::int32_t valid = 0;
  const std::uint16_t number = QXFMT_GetPortVal(text, &valid);
  if (valid != 0) port = PortNumber(number);  // the same step both ways
  return valid != 0;
}

}  // namespace internal

/// @name To text
/// @param format the formatter that holds the result.
/// @param address the address, as the socket interface holds it.
/// @param type the form of an IPv6 text.
///
/// Blocks, failures and life of the result are those of the operation named.
/// @{

/// As `FormatIpAddress`. `qxfmt::FormatAddress(format, in_addr{})` gives "0.0.0.0".
[[nodiscard]] inline ResultText FormatAddress(CQXDataFormat& format,
                                              const in_addr& address) noexcept {
  return format.FormatIpAddress(ToIpv4Value(address));
}

/// As `FormatIPv6Address`. `qxfmt::FormatAddress(format, in6_addr{})` gives "::".
[[nodiscard]] inline ResultText FormatAddress(
    CQXDataFormat& format, const in6_addr& address,
    QXFMT_IPV6_TYPE type = QXFMT_IPV6_COMPRESSED) noexcept {
  return format.FormatIPv6Address(address.s6_addr, type);
}

/// As `FormatIpPort`. `qxfmt::FormatAddress(format, sockaddr_in{})` gives "0.0.0.0:0". Without the
/// port: `FormatAddress` of its `sin_addr`.
[[nodiscard]] inline ResultText FormatAddress(CQXDataFormat& format,
                                              const sockaddr_in& address) noexcept {
  return format.FormatIpPort(ToIpv4Value(address.sin_addr), internal::PortNumber(address.sin_port));
}

/// As `FormatIpv6Port`. `qxfmt::FormatAddress(format, sockaddr_in6{})` gives "[::]:0". Without the
/// port: `FormatAddress` of its `sin6_addr`. The scope of a link-local address does not show.
[[nodiscard]] inline ResultText FormatAddress(
    CQXDataFormat& format, const sockaddr_in6& address,
    QXFMT_IPV6_TYPE type = QXFMT_IPV6_COMPRESSED) noexcept {
  return format.FormatIpv6Port(address.sin6_addr.s6_addr, internal::PortNumber(address.sin6_port),
                               type);
}

/// As for the address that it holds by its family, `AF_INET` or `AF_INET6`. Of any other the text
/// is a static one: `qxfmt::FormatAddress(format, sockaddr_storage{})` gives "???".
[[nodiscard]] inline ResultText FormatAddress(
    CQXDataFormat& format, const sockaddr_storage& address,
    QXFMT_IPV6_TYPE type = QXFMT_IPV6_COMPRESSED) noexcept {
  if (address.ss_family == AF_INET) {
    sockaddr_in ipv4;
    std::memcpy(&ipv4, &address, sizeof ipv4);
    return FormatAddress(format, ipv4);
  }
  if (address.ss_family == AF_INET6) {
    sockaddr_in6 ipv6;
    std::memcpy(&ipv6, &address, sizeof ipv6);
    return FormatAddress(format, ipv6, type);
  }
  return u"???";
}
/// @}

/// @name From text
/// @param text the text.
/// @param address set at the end of success, and untouched otherwise.
/// @return whether the text was read.
/// @{

/// "192.0.2.1", as `QXFMT_IsValidIpAddress` accepts it: `qxfmt::ReadAddress(u"192.0.2.1",
/// address)`.
[[nodiscard]] inline bool ReadAddress(WideText text, in_addr& address) noexcept {
  if (QXFMT_IsValidIpAddress(text) == 0) return false;
  address = ToInAddr(QXFMT_GetIpAddress(text, nullptr));
  return true;
}

/// "2001:db8::1", as `QXFMT_GetIPv6Address` reads it.
[[nodiscard]] inline bool ReadAddress(WideText text, in6_addr& address) noexcept {
  return QXFMT_GetIPv6Address(text, address.s6_addr) != 0;
}

/// "192.0.2.1:443": both an address and a port. Sets the family as well, and nothing else.
[[nodiscard]] inline bool ReadAddress(WideText text, sockaddr_in& address) noexcept {
  char16_t head[16];  // the longest address and its terminator
  const WideText port = text == nullptr ? nullptr : internal::Split(text, u':', head, 16);
  sockaddr_in read = {};
  if (port == nullptr || !ReadAddress(head, read.sin_addr)) return false;
  if (!internal::ReadPort(port, read.sin_port)) return false;
  read.sin_family = AF_INET;
#if defined(SIN6_LEN)  // where socket addresses begin with their length
  read.sin_len = sizeof read;
#endif
  address = read;
  return true;
}

/// "[2001:db8::1]:443": both an address, of at most 99 units in the brackets, and a port. Sets the
/// family as well, and nothing else; there is no scope.
[[nodiscard]] inline bool ReadAddress(WideText text, sockaddr_in6& address) noexcept {
  if (text == nullptr || *text != u'[') return false;
  char16_t head[100];
  const WideText behind = internal::Split(text + 1, u']', head, 100);
  sockaddr_in6 read = {};
  if (behind == nullptr || *behind != u':' || !ReadAddress(head, read.sin6_addr)) return false;
  if (!internal::ReadPort(behind + 1, read.sin6_port)) return false;
  read.sin6_family = AF_INET6;
#if defined(SIN6_LEN)
  read.sin6_len = sizeof read;
#endif
  address = read;
  return true;
}

/// Either of the two with a port.
[[nodiscard]] inline bool ReadAddress(WideText text, sockaddr_storage& address) noexcept {
  sockaddr_in ipv4;
  sockaddr_in6 ipv6;
  sockaddr_storage read = {};
  if (ReadAddress(text, ipv4)) {
    std::memcpy(&read, &ipv4, sizeof ipv4);
  } else if (ReadAddress(text, ipv6)) {
    std::memcpy(&read, &ipv6, sizeof ipv6);
  } else {
    return false;
  }
  address = read;
  return true;
}
/// @}

#if __has_include(<net/ethernet.h>)
/// @name Link-layer addresses
/// Where the system has `ether_addr`.
/// @{

/// As `FormatMacAddress` of six octets.
/// `qxfmt::FormatAddress(format, ether_addr{})` gives "00:00:00:00:00:00".
[[nodiscard]] inline ResultText FormatAddress(CQXDataFormat& format,
                                              const ether_addr& address) noexcept {
  std::uint8_t octets[6];
  std::memcpy(octets, &address, sizeof octets);
  return format.FormatMacAddress(octets, 6);
}

/// Text that `QXFMT_IsValidMacAddress` accepts: "00:1a:2b:3c:4d:5e", "001a-2b3c-4d5e".
/// @return whether the text was read; the address is untouched otherwise.
[[nodiscard]] inline bool ReadAddress(WideText text, ether_addr& address) noexcept {
  if (QXFMT_IsValidMacAddress(text) == 0) return false;
  const std::uint64_t value = QXFMT_GetMacAddress(text, u':');
  std::uint8_t octets[6];
  for (int i = 0; i < 6; ++i) octets[i] = static_cast<std::uint8_t>(value >> 8 * i);
  std::memcpy(&address, octets, sizeof octets);
  return true;
}
/// @}
#endif

}  // namespace qxfmt
