#include "capture/packet_text.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "capture/source.h"

namespace capture {

namespace {

// QXFMT takes the first octet in the lowest bits.
std::uint32_t FirstOctetLowest(const std::uint8_t* octets) {
  return octets[0] | static_cast<std::uint32_t>(octets[1]) << 8 |
         static_cast<std::uint32_t>(octets[2]) << 16 | static_cast<std::uint32_t>(octets[3]) << 24;
}

const char* IcmpName(std::uint8_t type) {
  switch (type) {
    case 0:
      return "echo reply";
    case 3:
      return "destination unreachable";
    case 5:
      return "redirect";
    case 8:
      return "echo request";
    case 11:
      return "time exceeded";
    case 12:
      return "parameter problem";
    default:
      return nullptr;
  }
}

const char* Icmpv6Name(std::uint8_t type) {
  switch (type) {
    case 1:
      return "destination unreachable";
    case 2:
      return "packet too big";
    case 3:
      return "time exceeded";
    case 4:
      return "parameter problem";
    case 128:
      return "echo request";
    case 129:
      return "echo reply";
    case 130:
      return "multicast listener query";
    case 131:
    case 143:
      return "multicast listener report";
    case 132:
      return "multicast listener done";
    case 133:
      return "router solicitation";
    case 134:
      return "router advertisement";
    case 135:
      return "neighbor solicitation";
    case 136:
      return "neighbor advertisement";
    case 137:
      return "redirect";
    default:
      return nullptr;
  }
}

// Writes the parts of an info, divided by semicolons.
class Info {
 public:
  Info(Output& output, CQXDataFormat& format) : output_(output), format_(format) {}

  template <typename... Texts>
  void Part(const Texts&... texts) {
    if (has_parts_) output_.Put("; ");
    has_parts_ = true;
    (output_.Put(texts), ...);
  }

  ResultText Number(std::uint16_t number) { return format_.FormatNumber(number, 0); }

  void PutVlans(const Packet& packet) {
    if (packet.vlans == 0) return;
    Part("vlan ", Number(packet.vlan[0]));
    if (packet.vlans > 1) output_.Put(' ');
    if (packet.vlans > 1) output_.Put(Number(packet.vlan[1]));
  }

  void PutFlags(const Packet& packet) {
    static constexpr std::string_view kNames[] = {"FIN", "SYN", "RST", "PSH",
                                                  "ACK", "URG", "ECE", "CWR"};
    if (packet.tcp_flags == 0) {
      if (packet.reading == Reading::kComplete) Part("no flags");
      return;
    }
    Part();
    bool is_first = true;
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
      if ((packet.tcp_flags >> i & 1) == 0) continue;
      if (!is_first) output_.Put(' ');
      is_first = false;
      output_.Put(kNames[i]);
    }
  }

  void PutIcmp(const Packet& packet) {
    const bool is_v4 = packet.protocol == Protocol::kIcmp;
    const char* const name = is_v4 ? IcmpName(packet.icmp_type) : Icmpv6Name(packet.icmp_type);
    name != nullptr ? Part(std::string_view(name)) : Part("type ", Number(packet.icmp_type));
    if (packet.icmp_code == 0) return;
    output_.Put(" code ");
    output_.Put(Number(packet.icmp_code));
  }

  void PutArp(const Arp& arp) {
    const ResultText sender = format_.FormatIpAddress(FirstOctetLowest(arp.sender.data()));
    if (arp.operation == 1) {
      const ResultText target = format_.FormatIpAddress(FirstOctetLowest(arp.target.data()));
      Part("who has ", target, "? tell ", sender);
    } else if (arp.operation == 2) {
      const auto octets = static_cast<std::int32_t>(arp.sender_mac.size());
      Part(sender, " is at ", format_.FormatMacAddress(arp.sender_mac.data(), octets));
    } else if (arp.operation != 0) {
      Part("operation ", Number(arp.operation));
    }
  }

  // A type in hexadecimal, as the registries list it.
  void PutType(std::uint16_t type) {
    GrowableText text;
    text.append_format(u"type 0x%04hX", type);
    Part(text.c_str());
  }

  void PutProtocol(const Packet& packet) {
    const bool is_header_read = packet.source.kind >= Endpoint::Kind::kIpv4;
    if (!is_header_read) return;
    Part("protocol ", Number(packet.next));
    if (packet.fragment_offset != 0) Part("fragment at ", Number(packet.fragment_offset));
  }

 private:
  Output& output_;
  CQXDataFormat& format_;
  bool has_parts_ = false;
};

}  // namespace

ResultText EndpointText(CQXDataFormat& format, const Endpoint& endpoint) {
  const std::uint8_t* const octets = endpoint.octets.data();
  switch (endpoint.kind) {
    case Endpoint::Kind::kIpv4:
      return endpoint.has_port ? format.FormatIpPort(FirstOctetLowest(octets), endpoint.port)
                               : format.FormatIpAddress(FirstOctetLowest(octets));
    case Endpoint::Kind::kIpv6:
      return endpoint.has_port ? format.FormatIpv6Port(octets, endpoint.port, QXFMT_IPV6_COMPRESSED)
                               : format.FormatIPv6Address(octets, QXFMT_IPV6_COMPRESSED);
    case Endpoint::Kind::kLinkLayer:
      return format.FormatMacAddress(octets, endpoint.size);
    default:
      return u"-";
  }
}

ResultText TimeText(CQXDataFormat& format, const Options& options, std::int64_t time,
                    std::int64_t first) {
  if (options.time == TimeStyle::kSinceFirst && time != kOutOfRange) {
    return format.FormatDurationAllSecond(time - first, options.accuracy, QXFMT_DURATION_PLAIN);
  }
  const ResultText text = options.time == TimeStyle::kTimeOfDay
                              ? format.FormatAllTime(time, options.accuracy)
                              : format.FormatAllDateTime(time, options.accuracy, options.layout);
  return *text != u'\0' ? text : u"-";  // the second 0 has no text
}

ResultText DurationText(CQXDataFormat& format, const Options& options, std::int64_t nanoseconds) {
  return format.FormatDurationAllSecond(nanoseconds, options.accuracy, options.durations);
}

void PutInfo(Output& output, CQXDataFormat& format, const Packet& packet) {
  Info info(output, format);
  info.PutVlans(packet);
  const bool is_complete = packet.reading == Reading::kComplete;
  switch (packet.protocol) {
    case Protocol::kTcp:
      info.PutFlags(packet);
      break;
    case Protocol::kIcmp:
    case Protocol::kIcmpv6:
      if (is_complete) info.PutIcmp(packet);
      break;
    case Protocol::kArp:
      info.PutArp(packet.arp);
      break;
    case Protocol::kIpv4:
    case Protocol::kIpv6:
      info.PutProtocol(packet);
      break;
    case Protocol::kUnknown:
      if (packet.next != 0) info.PutType(packet.next);
      break;
    case Protocol::kUdp:
    case Protocol::kLlc:
      break;
  }
  if (packet.reading == Reading::kTruncated) info.Part("truncated");
  if (packet.reading == Reading::kMalformed) info.Part("malformed");
}

}  // namespace capture
