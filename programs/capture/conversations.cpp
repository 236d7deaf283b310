// Who has talked to whom: packets and bytes each way.

#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "capture/csv.h"
#include "capture/packet_text.h"
#include "capture/traffic.h"
#include "capture/view.h"
#include "shared/table.h"
#include "shared/terminal.h"

namespace capture {

namespace {

// The two sides of a conversation, the lesser one first, so that both directions have one key.
struct Sides {
  Endpoint lesser;
  Endpoint greater;
  Protocol protocol = Protocol::kUnknown;

  bool operator==(const Sides&) const = default;
};

struct HashSides {
  std::size_t operator()(const Sides& sides) const {
    constexpr std::size_t kOdd = 0x9E3779B1;  // so that equal sides do not cancel out
    return Hash(sides.lesser) * kOdd + Hash(sides.greater);
  }

  static std::size_t Hash(const Endpoint& endpoint) {
    const auto* const octets = reinterpret_cast<const char*>(endpoint.octets.data());
    return std::hash<std::string_view>()({octets, endpoint.octets.size()}) + endpoint.port;
  }
};

struct Conversation {
  bool is_from_greater = false;  // the side that sent the first packet, which is the source
  Traffic sent;                  // by the source
  Traffic received;
  Span span;
};

using Row = std::pair<const Sides, Conversation>;

const Endpoint& SourceOf(const Row& row) {
  return row.second.is_from_greater ? row.first.greater : row.first.lesser;
}

const Endpoint& DestinationOf(const Row& row) {
  return row.second.is_from_greater ? row.first.lesser : row.first.greater;
}

// By what rows are sorted with the largest first; 0 with the others.
double Amount(const Row& row, Sort sort) {
  const Traffic both = row.second.sent + row.second.received;
  switch (sort) {
    case Sort::kPackets:
      return static_cast<double>(both.packets);
    case Sort::kBytes:
      return static_cast<double>(both.bytes);
    case Sort::kRate:
      return row.second.span.Rate(both.bytes);
    case Sort::kDuration:
      return static_cast<double>(row.second.span.nanoseconds());
    default:
      return 0;
  }
}

// What is equal stands in the order of its start.
auto Order(const Row& row, Sort sort) {
  const Endpoint address = sort == Sort::kSource        ? SourceOf(row)
                           : sort == Sort::kDestination ? DestinationOf(row)
                                                        : Endpoint();
  const Protocol protocol = sort == Sort::kProtocol ? row.first.protocol : Protocol::kUnknown;
  const auto& [lesser, greater, own_protocol] = row.first;
  return std::tuple(-Amount(row, sort), address, protocol, row.second.span.first, lesser, greater,
                    own_protocol);
}

class Conversations : public View {
 public:
  Conversations(const Options& options, Output& output) : options_(options), output_(output) {
    if (options.time == TimeStyle::kWhatFits) options_.time = TimeStyle::kDate;
  }

  void Add(const Record& record, const Packet& packet) override {
    if (conversations_.empty()) first_ = record.time;
    const bool is_from_greater = packet.destination < packet.source;
    Sides sides{packet.source, packet.destination, packet.protocol};
    if (is_from_greater) std::swap(sides.lesser, sides.greater);
    Conversation& conversation =
        conversations_.try_emplace(sides, Conversation{is_from_greater, {}, {}, {}}).first->second;
    const bool is_sent = conversation.is_from_greater == is_from_greater;
    (is_sent ? conversation.sent : conversation.received).Add(record.length);
    conversation.span.Add(record.time);
    bytes_ += record.length;
  }

  void Finish() override {
    std::vector<const Row*> rows;
    rows.reserve(conversations_.size());
    for (const Row& row : conversations_) rows.push_back(&row);
    std::sort(rows.begin(), rows.end(), [sort = options_.sort](const Row* a, const Row* b) {
      return Order(*a, sort) < Order(*b, sort);
    });
    options_.csv ? PutCsvRows(rows) : PutTable(rows);
  }

 private:
  void PutTable(const std::vector<const Row*>& rows) {
    programs::Table table({"source", "destination", "protocol", "sent", "packets", "received",
                           "packets", "rate", "share", "start", "duration"},
                          3);
    for (const Row* const row : rows) {
      const auto& [sides, conversation] = *row;
      table.Add(EndpointText(format_, SourceOf(*row)));
      table.Add(EndpointText(format_, DestinationOf(*row)));
      table.Add(Name(sides.protocol));
      for (const Traffic& way : {conversation.sent, conversation.received}) {
        table.Add(format_.FormatByte(way.bytes, options_.unit, 2));
        table.Add(format_.FormatNumber(way.packets, 1));
      }
      const std::uint64_t bytes = conversation.sent.bytes + conversation.received.bytes;
      const bool has_rate = conversation.span.nanoseconds() > 0;
      const double rate = 8 * conversation.span.Rate(bytes);
      table.Add(has_rate ? format_.FormatBitPerSecond(rate, options_.unit, 2) : u"-");
      table.Add(format_.FormatPercentage(Share(bytes, bytes_)));
      table.Add(TimeText(format_, options_, conversation.span.first, first_));
      table.Add(DurationText(format_, options_, conversation.span.nanoseconds()));
      format_.Reset();  // its texts are in the table
    }
    // On a narrow terminal the sides and their bytes stay to the end.
    output_.PutLines(
        table.ToString(programs::LineWidth(STDOUT_FILENO), {{9}, {8}, {4, 6}, {7}, {10}, {2}}));
  }

  void PutCsvRows(const std::vector<const Row*>& rows) {
    Csv csv(output_, format_);
    csv.PutHeadings(
        "source,source port,destination,destination port,protocol,sent bytes,sent packets,"
        "received bytes,received packets,bits per second,share,start,duration");
    for (const Row* const row : rows) {
      const auto& [sides, conversation] = *row;
      csv.PutEndpoint(SourceOf(*row));
      csv.PutEndpoint(DestinationOf(*row));
      csv.PutCell(Name(sides.protocol));
      for (const Traffic& way : {conversation.sent, conversation.received}) {
        csv.PutCell(format_.FormatNumber(way.bytes, 0));
        csv.PutCell(format_.FormatNumber(way.packets, 0));
      }
      const std::uint64_t bytes = conversation.sent.bytes + conversation.received.bytes;
      const bool has_rate = conversation.span.nanoseconds() > 0;
      const double rate = 8 * conversation.span.Rate(bytes);
      csv.PutCell(has_rate ? format_.FormatNumberEx(rate, 2, 0) : u"");
      csv.PutCell(format_.FormatPercentage(Share(bytes, bytes_)));
      csv.PutCell(TimeText(format_, options_, conversation.span.first, first_));
      csv.PutCell(DurationText(format_, options_, conversation.span.nanoseconds()));
      csv.EndRow();
      format_.Reset();
    }
  }

  Options options_;
  Output& output_;
  CQXDataFormat format_;
  std::unordered_map<Sides, Conversation, HashSides> conversations_;
  std::uint64_t bytes_ = 0;  // of all of them
  std::int64_t first_ = 0;   // time of the first packet
};

}  // namespace

std::unique_ptr<View> MakeConversations(const Options& options, Output& output) {
  return std::make_unique<Conversations>(options, output);
}

}  // namespace capture
