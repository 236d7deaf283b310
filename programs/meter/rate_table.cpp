#include "meter/rate_table.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "shared/printable.h"
#include "shared/table.h"
#include "shared/typed_text.h"

namespace meter {

namespace {

// What the text of a cell is made of.
struct Context {
  CQXDataFormat& format;
  const Options& options;
  const Row& row;
  const Flow& flow;
  Clock::time_point time;
};

struct Column {
  const char* heading;
  ResultText widest;  // what it has room for from the start, at 2 decimals
  std::u16string (*text)(const Context&);
};

std::u16string RateText(const Context& context, double rate, bool bits) {
  const Options& options = context.options;
  return bits ? context.format.FormatBitPerSecond(8 * rate, options.unit, options.decimals)
              : context.format.FormatBytePerSecond(rate, options.unit, options.decimals);
}

std::u16string RateText(const Context& context, double rate) {
  return RateText(context, rate, context.options.bits);
}

std::u16string OtherRateText(const Context& context) {
  return RateText(context, context.flow.rate, !context.options.bits);
}

std::u16string InterfaceText(const Context& context) {
  return programs::FromUtf8(programs::Printable(context.row.load->interface.name));
}

std::u16string UseText(const Context& context) {
  const double speed = static_cast<double>(context.row.load->interface.megabits) * 1e6;
  if (speed == 0) return u"-";
  return context.format.FormatPercentage(static_cast<float>(8 * context.flow.rate / speed));
}

std::u16string ShareText(const Context& context) {
  if (context.row.load->interface.is_loopback) return u"-";
  return context.format.FormatPercentage(static_cast<float>(context.flow.share));
}

std::u16string IdleText(const Context& context) {
  if (!context.flow.traffic) return u"-";
  const auto idle = context.time - *context.flow.traffic;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(idle).count();
  return context.format.FormatDurationSecond(static_cast<std::uint32_t>(seconds),
                                             QXFMT_DURATION_CLOCK);
}

std::u16string LinkText(const Context& context) {
  const std::uint64_t megabits = context.row.load->interface.megabits;
  if (megabits == 0) return u"-";
  return context.format.FormatBitPerSecond(megabits * 1'000'000, QXFMT_BYTES_AUTO, 1);
}

std::u16string StateText(const Context& context) {
  const std::string& state = context.row.load->interface.state;
  return state.empty() ? u"-" : programs::FromUtf8(programs::Printable(state));
}

std::u16string DropsText(const Context& context) {
  return context.format.FormatNumber(context.flow.gained.drops, 1);
}

std::u16string ErrorsText(const Context& context) {
  return context.format.FormatNumber(context.flow.gained.errors, 1);
}

std::u16string PacketRateText(const Context& context) {
  return context.format.FormatNumberEx(context.flow.packet_rate, 0, 1);
}

std::u16string DirectionText(const Context& context) {
  return context.row.is_sent ? u"out" : u"in";
}

// The most important one first: the last one is the first to be left out.
constexpr Column kColumns[] = {
    {"interface", u"", InterfaceText},
    {"", u"out", DirectionText},
    {"rate", u"1023.99 KBps", [](const Context& c) { return RateText(c, c.flow.rate); }},
    {"", u"1023.99 KBps", OtherRateText},
    {"peak", u"1023.99 KBps", [](const Context& c) { return RateText(c, c.flow.peak); }},
    {"packets/s", u"", PacketRateText},
    {"use", u"100.00%", UseText},
    {"average", u"1023.99 KBps", [](const Context& c) { return RateText(c, c.flow.average); }},
    {"drops", u"", DropsText},
    {"share", u"100.00%", ShareText},
    {"errors", u"", ErrorsText},
    {"idle", u"00:00:00", IdleText},
    {"link", u"", LinkText},
    {"state", u"", StateText},
};

constexpr std::size_t kOtherRate = 3;      // the place of the rate in the other unit
constexpr std::size_t kIndispensable = 3;  // columns that are never left out
constexpr std::size_t kLeft = 2;           // columns aligned left

// Room for the widest text with so many decimals.
std::size_t LeastWidth(const Column& column, std::int32_t decimals) {
  const std::u16string_view widest = column.widest;
  if (widest.find(u'.') == widest.npos) return widest.size();
  constexpr std::size_t kFraction = 3;  // the point and two decimals
  return widest.size() - kFraction + (decimals > 0 ? static_cast<std::size_t>(decimals) + 1 : 0);
}

}  // namespace

std::vector<Row> RowsOf(const Round& round) {
  std::vector<Row> rows;
  const auto add = [&rows](const Load& load, bool is_total) {
    rows.push_back({&load, &load.received, false, is_total});
    rows.push_back({&load, &load.sent, true, is_total});
  };
  for (const Load& load : round.loads) add(load, false);
  if (round.total) add(*round.total, true);
  return rows;
}

std::string RateTable::ToString(CQXDataFormat& format, const Options& options, const Round& round,
                                const std::vector<Row>& rows, std::size_t width) {
  std::vector<const Column*> columns;
  for (const Column& column : kColumns) {
    if (in_both_units_ || &column != &kColumns[kOtherRate]) columns.push_back(&column);
  }
  std::vector<std::string> headings(columns.size());
  std::transform(columns.begin(), columns.end(), headings.begin(),
                 [](const Column* column) { return column->heading; });
  programs::Table table(headings, kLeft);
  for (const Row& row : rows) {
    const Context context{format, options, row, *row.flow, round.time};
    for (const Column* const column : columns) table.Add(column->text(context));
  }

  widths_.resize(columns.size());
  programs::ColumnGroups dispensable;
  for (std::size_t i = columns.size(); i-- > 0;) {
    widths_[i] = std::max(widths_[i], LeastWidth(*columns[i], options.decimals));
    if (i >= kIndispensable) dispensable.push_back({i});
  }
  return table.ToString(width, dispensable, widths_);
}

}  // namespace meter
