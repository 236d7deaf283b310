#include "capture/dissect.h"
#include "fuzzing.h"

namespace {

using capture::Endpoint;
using capture::Packet;
using capture::Protocol;
using capture::Reading;

void CheckFields(const Packet& packet) {
  Check(packet.source.has_port == packet.destination.has_port);
  Check(!packet.source.has_port || packet.protocol == Protocol::kTcp ||
        packet.protocol == Protocol::kUdp);
  const bool is_ip = packet.protocol >= Protocol::kIcmp;
  Check(!is_ip || packet.source.kind >= Endpoint::Kind::kIpv4);
  Check(packet.source.size <= 16 && packet.destination.size <= 16);
}

}  // namespace

// Packets of every link, and each of them captured shorter: in an area of exactly its size, so that
// a byte read beyond it shows.
void Fuzz(WideText /*text*/, const std::uint8_t* data, std::size_t size) {
  if (size < 2) return;
  const auto link = static_cast<capture::Link>(data[0] % 7);
  const std::uint32_t beyond = data[1];  // bytes of the packet that were not captured at all
  const auto length = static_cast<std::uint32_t>(size - 2 + beyond);
  const Packet whole = capture::Dissect(link, {data + 2, size - 2}, length);
  CheckFields(whole);
  for (std::size_t cut = 0; cut < size - 2; ++cut) {
    const std::vector<std::uint8_t> captured(data + 2, data + 2 + cut);
    const Packet packet = capture::Dissect(link, captured, length);
    CheckFields(packet);
    // What needs no more bytes says the same.
    Check(packet.reading == Reading::kTruncated || packet == whole);
  }
}
