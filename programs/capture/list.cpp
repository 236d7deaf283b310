// The packet list: a row for each packet, printed as soon as it is read.

#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "capture/csv.h"
#include "capture/packet_text.h"
#include "capture/view.h"
#include "shared/terminal.h"

namespace capture {

namespace {

// Rows between two resets of the formatter: few enough that its texts stay in the processor's
// cache, and enough that what it learns of the time zone pays.
constexpr std::uint64_t kBatch = 128;

constexpr std::size_t kNumberWidth = 6;
constexpr std::size_t kIpv4Width = 21;  // with a port
constexpr std::size_t kProtocolWidth = 7;
constexpr std::size_t kLengthWidth = 6;
constexpr std::size_t kInfoWidth = 8;  // at least, on a terminal

// A width of 0 leaves a column out. How long times and addresses are is not known beforehand: their
// widths grow.
struct Columns {
  std::size_t number = kNumberWidth;
  std::size_t time = 1;
  std::size_t source = kIpv4Width;
  std::size_t destination = kIpv4Width;
  std::size_t widest_address = SIZE_MAX;  // a longer one moves the rest of its row
  std::size_t length = kLengthWidth;
};

std::string_view Colour(const Packet& packet) {
  constexpr std::uint8_t kReset = 4;
  if (packet.reading != Reading::kComplete) return "\033[1;31m";  // bold red
  if ((packet.tcp_flags & kReset) != 0) return "\033[31m";        // red
  switch (packet.protocol) {
    case Protocol::kTcp:
      return "\033[32m";  // green
    case Protocol::kUdp:
      return "\033[36m";  // cyan
    case Protocol::kIcmp:
    case Protocol::kIcmpv6:
      return "\033[35m";  // magenta
    case Protocol::kArp:
      return "\033[33m";  // yellow
    default:
      return "\033[0m";
  }
}

class List : public View {
 public:
  List(const Options& options, Output& output)
      : options_(options),
        output_(output),
        width_(programs::LineWidth(STDOUT_FILENO)),
        has_colours_(programs::TakesColours(STDOUT_FILENO)) {
    if (options.time == TimeStyle::kWhatFits) {
      options_.time = width_ < 110 ? TimeStyle::kTimeOfDay : TimeStyle::kDate;
    }
  }

  void Add(const Record& record, const Packet& packet) override {
    if (rows_ == 0) Start(record);
    PutRow(record, packet);
    if (++rows_ % kBatch != 0) return;
    format_.Reset();  // its texts are in the output
    width_ = programs::LineWidth(STDOUT_FILENO);
    FitColumns();
  }

 private:
  void Start(const Record& record) {
    first_ = record.time;
    time_width_ = std::u16string_view(TimeText(format_, options_, first_, first_)).size();
    columns_.time = time_width_;
    FitColumns();
    PutLine("\033[1m", [this] {
      PutRight(u"number", columns_.number);
      PutLeft(u"time", columns_.time);
      PutLeft(u"source", columns_.source);
      PutLeft(u"destination", columns_.destination);
      PutLeft(u"protocol", kProtocolWidth);
      PutRight(u"length", columns_.length);
      output_.Put("info");
    });
  }

  // On a terminal what matters less makes way: first the number, then the length, then the time.
  void FitColumns() {
    if (width_ == SIZE_MAX) return;
    const std::size_t least = 2 * (kIpv4Width + 1) + kProtocolWidth + 1 + kInfoWidth;
    std::size_t rest = std::max(width_, least) - least;
    const auto fit = [&rest](std::size_t width) -> std::size_t {
      if (rest <= width) return 0;
      rest -= width + 1;
      return width;
    };
    columns_.time = fit(time_width_);
    columns_.length = fit(kLengthWidth);
    columns_.number = fit(kNumberWidth);
    columns_.widest_address = kIpv4Width + rest / 2;
    columns_.source = std::min(columns_.source, columns_.widest_address);
    columns_.destination = std::min(columns_.destination, columns_.widest_address);
  }

  void PutRow(const Record& record, const Packet& packet) {
    PutLine(has_colours_ ? Colour(packet) : std::string_view(), [&] {
      PutRight(format_.FormatNumber(record.number, 0), columns_.number);
      PutGrowing(TimeText(format_, options_, record.time, first_), columns_.time, SIZE_MAX);
      PutGrowing(EndpointText(format_, packet.source), columns_.source, columns_.widest_address);
      PutGrowing(EndpointText(format_, packet.destination), columns_.destination,
                 columns_.widest_address);
      PutLeft(Name(packet.protocol), kProtocolWidth);
      PutRight(format_.FormatNumber(record.length, 0), columns_.length);
      PutInfo(output_, format_, packet);
    });
  }

  template <typename PutCells>
  void PutLine(std::string_view colour, PutCells put_cells) {
    if (has_colours_) output_.PutEscape(colour);
    put_cells();
    output_.CutLine(width_);
    if (has_colours_) output_.PutEscape("\033[0m");
    output_.EndLine();
  }

  template <typename Text>
  void PutLeft(Text text, std::size_t width) {
    if (width == 0) return;
    const std::size_t start = output_.column();
    output_.Put(text);
    const std::size_t used = output_.column() - start;
    output_.PutBlanks((used < width ? width - used : 0) + 1);
  }

  void PutGrowing(ResultText text, std::size_t& width, std::size_t widest) {
    const std::size_t start = output_.column();
    PutLeft(text, width);
    const std::size_t used = output_.column() - start;  // with the blank behind it
    if (width > 0 && used > width + 1) width = std::min(used - 1, widest);
  }

  void PutRight(ResultText text, std::size_t width) {
    if (width == 0) return;
    const std::size_t size = std::u16string_view(text).size();
    if (size < width) output_.PutBlanks(width - size);
    output_.Put(text);
    output_.Put(' ');
  }

  Options options_;
  Output& output_;
  CQXDataFormat format_;
  std::size_t width_;  // of the terminal
  Columns columns_;
  std::size_t time_width_ = 0;
  bool has_colours_;
  std::uint64_t rows_ = 0;
  std::int64_t first_ = 0;  // time of the first packet
};

class CsvList : public View {
 public:
  CsvList(Options options, Output& output) : options_(std::move(options)), output_(output) {
    csv_.PutHeadings(
        "number,time,source,source port,destination,destination port,protocol,length,info");
  }

  void Add(const Record& record, const Packet& packet) override {
    if (rows_ == 0) first_ = record.time;
    csv_.PutCell(format_.FormatNumber(record.number, 0));
    csv_.PutCell(TimeText(format_, options_, record.time, first_));
    csv_.PutEndpoint(packet.source);
    csv_.PutEndpoint(packet.destination);
    csv_.PutCell(Name(packet.protocol));
    csv_.PutCell(format_.FormatNumber(record.length, 0));
    csv_.StartCell();
    PutInfo(output_, format_, packet);
    csv_.EndRow();
    if (++rows_ % kBatch == 0) format_.Reset();
  }

 private:
  Options options_;
  Output& output_;
  CQXDataFormat format_;
  Csv csv_{output_, format_};
  std::uint64_t rows_ = 0;
  std::int64_t first_ = 0;  // time of the first packet
};

}  // namespace

std::unique_ptr<View> MakeList(const Options& options, Output& output) {
  if (options.csv) return std::make_unique<CsvList>(options, output);
  return std::make_unique<List>(options, output);
}

}  // namespace capture
