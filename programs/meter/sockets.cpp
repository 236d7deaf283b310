#include "meter/sockets.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/files.h"

namespace meter {

namespace {

struct Endpoint {
  bool is_ipv6 = false;
  std::array<std::uint8_t, 16> octets{};  // network order; of IPv4 the first four
  std::uint16_t port = 0;
};

struct Socket {
  Endpoint local;
  Endpoint remote;
  const char* state = "";
  std::uint32_t receive_queue = 0;  // bytes; connections that wait, where it listens
  std::uint32_t send_queue = 0;     // bytes
};

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
  endpoint.is_ipv6 = is_ipv6;
  for (std::size_t i = 0; i < words; ++i) {
    const std::uint32_t word = ReadHex(text.substr(8 * i, 8));
    std::memcpy(&endpoint.octets[4 * i], &word, sizeof(word));
  }
  endpoint.port = static_cast<std::uint16_t>(ReadHex(text.substr(8 * words + 1)));
  return endpoint;
}

// The kernel's numbers for the states of a TCP socket; UDP uses two of them.
const char* StateName(std::uint32_t state, bool is_udp) {
  static constexpr const char* kNames[] = {
      "established", "syn-sent",   "syn-received", "fin-wait-1", "fin-wait-2", "time-wait",
      "closed",      "close-wait", "last-ack",     "listening",  "closing",    "syn-received"};
  if (is_udp && state == 7) return "open";
  return state >= 1 && state <= std::size(kNames) ? kNames[state - 1] : "unknown";
}

// "   0: LOCAL REMOTE STATE SENT:RECEIVED ..."
Socket ParseSocket(const std::string& line, std::string_view protocol) {
  std::istringstream fields(line);
  std::string number;
  std::string local;
  std::string remote;
  std::string state;
  std::string queues;
  fields >> number >> local >> remote >> state >> queues;
  const bool is_ipv6 = protocol.back() == '6';
  const std::size_t colon = queues.find(':');
  if (colon == std::string::npos) throw std::invalid_argument("no queues");
  Socket socket;
  socket.local = ReadEndpoint(local, is_ipv6);
  socket.remote = ReadEndpoint(remote, is_ipv6);
  socket.state = StateName(ReadHex(state), protocol.substr(0, 3) == "udp");
  socket.send_queue = ReadHex(std::string_view(queues).substr(0, colon));
  socket.receive_queue = ReadHex(std::string_view(queues).substr(colon + 1));
  return socket;
}

bool IsMapped(const Endpoint& endpoint) {
  static constexpr std::array<std::uint8_t, 12> kPrefix = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 255, 255};
  return std::memcmp(endpoint.octets.data(), kPrefix.data(), kPrefix.size()) == 0;
}

std::u16string Text(CQXDataFormat& format, const Endpoint& endpoint) {
  const bool has_port = endpoint.port != 0;  // 0 stands for any
  const std::uint8_t* const octets = endpoint.octets.data();
  if (endpoint.is_ipv6) {
    const auto form = IsMapped(endpoint) ? QXFMT_IPV6_EMBEDDED_V4 : QXFMT_IPV6_COMPRESSED;
    if (has_port) return format.FormatIpv6Port(octets, endpoint.port, form);
    return std::u16string(u"[") + format.FormatIPv6Address(octets, form) + u"]:*";
  }
  std::uint32_t address = 0;  // first octet in the lowest byte
  for (unsigned i = 0; i < 4; ++i) address |= std::uint32_t{octets[i]} << (8 * i);
  if (has_port) return format.FormatIpPort(address, endpoint.port);
  return std::u16string(format.FormatIpAddress(address)) + u":*";
}

void AddRow(programs::Table& table, CQXDataFormat& format, const char* protocol,
            const Socket& socket) {
  table.Add(std::string_view(protocol));
  table.Add(Text(format, socket.local));
  table.Add(Text(format, socket.remote));
  table.Add(std::string_view(socket.state));
  table.Add(format.FormatNumber(socket.receive_queue, 0));
  table.Add(format.FormatNumber(socket.send_queue, 0));
}

}  // namespace

programs::Table SocketTable(const std::string& root) {
  CQXDataFormat format;
  programs::Table table({"protocol", "local", "remote", "state", "receive queue", "send queue"}, 4);
  bool any = false;
  for (const char* const protocol : {"tcp", "tcp6", "udp", "udp6"}) {
    const std::string path = root + "/proc/net/" + protocol;
    std::error_code unused;
    if (!std::filesystem::exists(path, unused)) continue;
    any = true;
    const std::vector<std::string> lines = ReadLines(path);
    for (std::size_t i = 1; i < lines.size(); ++i) {  // after the headings
      try {
        AddRow(table, format, protocol, ParseSocket(lines[i], protocol));
      } catch (const std::invalid_argument&) {
        throw std::runtime_error(path + ": not a line of a socket: '" + lines[i] + "'");
      }
    }
    format.Reset();  // its texts are in the table
  }
  if (!any) throw std::runtime_error("cannot read " + root + "/proc/net/tcp or its like");
  return table;
}

}  // namespace meter
