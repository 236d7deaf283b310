// A capture in a few lines: its span, its rates and its protocols.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "capture/csv.h"
#include "capture/packet_text.h"
#include "capture/traffic.h"
#include "capture/view.h"
#include "shared/table.h"
#include "shared/terminal.h"

namespace capture {

namespace {

struct Part {
  const char* name = "";
  Traffic traffic;
  Span span;

  void Add(const Record& record) {
    traffic.Add(record.length);
    span.Add(record.time);
  }
};

class Summary : public View {
 public:
  Summary(const Options& options, Output& output) : options_(options), output_(output) {
    if (options.time == TimeStyle::kWhatFits) options_.time = TimeStyle::kDate;
    for (std::size_t i = 0; i < kProtocols; ++i) parts_[i].name = Name(static_cast<Protocol>(i));
  }

  void Add(const Record& record, const Packet& packet) override {
    if (total_.traffic.packets == 0) first_ = record.time;
    total_.Add(record);
    parts_[static_cast<std::size_t>(packet.protocol)].Add(record);
    truncated_ += packet.reading == Reading::kTruncated ? 1 : 0;
    malformed_ += packet.reading == Reading::kMalformed ? 1 : 0;
  }

  void Finish() override {
    std::vector<Part> parts;
    for (const Part& part : parts_) {
      if (part.traffic.packets > 0) parts.push_back(part);
    }
    std::stable_sort(parts.begin(), parts.end(), [](const Part& a, const Part& b) {
      return a.traffic.packets > b.traffic.packets;
    });
    parts.push_back(total_);
    options_.csv ? PutCsvRows(parts) : PutTable(parts);
  }

 private:
  void PutTable(const std::vector<Part>& parts) {
    const bool is_empty = total_.traffic.packets == 0;
    PutFact("first", is_empty ? u"-" : TimeText(format_, options_, total_.span.first, first_));
    PutFact("last", is_empty ? u"-" : TimeText(format_, options_, total_.span.last, first_));
    PutFact("duration", DurationText(format_, options_, total_.span.nanoseconds()));
    PutFact("truncated", format_.FormatNumber(truncated_, 1));
    PutFact("malformed", format_.FormatNumber(malformed_, 1));
    output_.EndLine();

    programs::Table table({"protocol", "packets", "share", "bytes", "share", "mean size",
                           "packets/s", "byte rate", "bit rate"});
    for (const Part& part : parts) {
      const auto& [packets, bytes] = part.traffic;
      const double mean =
          packets == 0 ? 0 : static_cast<double>(bytes) / static_cast<double>(packets);
      const bool has_rate = part.span.nanoseconds() > 0;
      const double rate = part.span.Rate(bytes);
      table.Add(part.name);
      table.Add(format_.FormatNumber(packets, 1));
      table.Add(format_.FormatPercentage(Share(packets, total_.traffic.packets)));
      table.Add(format_.FormatByte(bytes, options_.unit, 2));
      table.Add(format_.FormatPercentage(Share(bytes, total_.traffic.bytes)));
      table.Add(format_.FormatNumberEx(mean, 2, 1));
      table.Add(has_rate ? format_.FormatNumberEx(part.span.Rate(packets), 2, 1) : u"-");
      table.Add(has_rate ? format_.FormatBytePerSecond(rate, options_.unit, 2) : u"-");
      table.Add(has_rate ? format_.FormatBitPerSecond(8 * rate, options_.unit, 2) : u"-");
    }
    output_.PutLines(table.ToString(programs::LineWidth(STDOUT_FILENO), {{5}, {7}, {6}, {2, 4}}));
  }

  void PutFact(std::string_view name, ResultText text) {
    constexpr std::size_t kNameWidth = 11;
    output_.Put(name);
    output_.PutBlanks(kNameWidth - name.size());
    output_.Put(text);
    output_.EndLine();
  }

  void PutCsvRows(const std::vector<Part>& parts) {
    Csv csv(output_, format_);
    csv.PutHeadings(
        "protocol,packets,share of packets,bytes,share of bytes,packets per second,"
        "bits per second,first,last,duration");
    for (const Part& part : parts) {
      const auto& [packets, bytes] = part.traffic;
      if (packets == 0) continue;
      csv.PutCell(part.name);
      csv.PutCell(format_.FormatNumber(packets, 0));
      csv.PutCell(format_.FormatPercentage(Share(packets, total_.traffic.packets)));
      csv.PutCell(format_.FormatNumber(bytes, 0));
      csv.PutCell(format_.FormatPercentage(Share(bytes, total_.traffic.bytes)));
      const bool has_rate = part.span.nanoseconds() > 0;
      csv.PutCell(has_rate ? format_.FormatNumberEx(part.span.Rate(packets), 2, 0) : u"");
      csv.PutCell(has_rate ? format_.FormatNumberEx(8 * part.span.Rate(bytes), 2, 0) : u"");
      csv.PutCell(TimeText(format_, options_, part.span.first, first_));
      csv.PutCell(TimeText(format_, options_, part.span.last, first_));
      csv.PutCell(DurationText(format_, options_, part.span.nanoseconds()));
      csv.EndRow();
    }
  }

  Options options_;
  Output& output_;
  CQXDataFormat format_;
  std::array<Part, kProtocols> parts_;
  Part total_{"total", {}, {}};
  std::int64_t first_ = 0;  // time of the first packet
  std::uint64_t truncated_ = 0;
  std::uint64_t malformed_ = 0;
};

}  // namespace

std::unique_ptr<View> MakeSummary(const Options& options, Output& output) {
  return std::make_unique<Summary>(options, output);
}

}  // namespace capture
