// The network counters of this host, as text by QXFMT: the totals since boot, and then, each
// interval, the rates.

#include <chrono>
#include <clocale>
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "traffic_meter/counters.h"
#include "traffic_meter/options.h"
#include "traffic_meter/table.h"

namespace meter {

namespace {

using Clock = std::chrono::steady_clock;

void Print(const std::string& text) {
  if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
    throw std::runtime_error("cannot write to the standard output");
  }
}

std::string Totals(CQXDataFormat& format, const Options& options,
                   const std::vector<Interface>& interfaces) {
  Table table(
      {"interface", "state", "link", "received", "packets", "errors", "sent", "packets", "errors"});
  for (const Interface& interface : interfaces) {
    table.StartRow();
    table.Add(interface.name);
    table.Add(interface.state);
    table.Add(interface.megabits == 0
                  ? u"-"
                  : format.FormatBitPerSecond(interface.megabits * 1'000'000, QXFMT_BYTES_AUTO, 1));
    for (const Direction& direction : {interface.received, interface.sent}) {
      table.Add(format.FormatByte(direction.bytes, options.unit, options.decimals));
      table.Add(format.FormatNumber(direction.packets, 1));
      table.Add(format.FormatNumber(direction.errors, 1));
    }
  }
  return table.ToString();
}

// What a counter gained. One that fell was reset, with its interface or its driver.
std::uint64_t Gain(std::uint64_t before, std::uint64_t now) {
  return now > before ? now - before : 0;
}

struct Load {
  std::string name;
  std::uint64_t received;  // bytes since the reading before
  std::uint64_t sent;
  std::uint64_t errors;
};

std::vector<Load> LoadsBetween(const std::vector<Interface>& before,
                               const std::vector<Interface>& now) {
  std::map<std::string, const Interface*> earlier;
  for (const Interface& interface : before) earlier[interface.name] = &interface;
  std::vector<Load> loads;
  for (const Interface& interface : now) {
    const auto found = earlier.find(interface.name);
    if (found == earlier.end()) continue;  // new: its rate shows from the next round on
    const Interface& old = *found->second;
    loads.push_back({interface.name, Gain(old.received.bytes, interface.received.bytes),
                     Gain(old.sent.bytes, interface.sent.bytes),
                     Gain(old.received.errors, interface.received.errors) +
                         Gain(old.sent.errors, interface.sent.errors)});
  }
  return loads;
}

std::string Rates(CQXDataFormat& format, const Options& options, const std::vector<Load>& loads,
                  double seconds) {
  std::uint64_t all = 0;
  for (const Load& load : loads) all += load.received + load.sent;

  Table table({"interface", "receiving", "", "sending", "", "share", "errors"});
  for (const Load& load : loads) {
    table.StartRow();
    table.Add(load.name);
    for (const std::uint64_t bytes : {load.received, load.sent}) {
      const double rate = static_cast<double>(bytes) / seconds;
      table.Add(format.FormatBytePerSecond(rate, options.unit, options.decimals));
      table.Add(format.FormatBitPerSecond(8 * rate, options.unit, options.decimals));
    }
    const std::uint64_t part = load.received + load.sent;
    const float share = all == 0 ? 0.0F : static_cast<float>(part) / static_cast<float>(all);
    table.Add(format.FormatPercentage(share));
    table.Add(format.FormatNumber(load.errors, 1));
  }
  return table.ToString();
}

void Run(const Options& options) {
  QXFMT_SetNumberDecimalPlaces(options.decimals);
  CQXDataFormat format;
  std::vector<Interface> before = ReadInterfaces(options.root);
  Clock::time_point before_time = Clock::now();
  Print(Totals(format, options, before));
  if (options.once) return;

  for (std::uint64_t round = 1; options.rounds == 0 || round <= options.rounds; ++round) {
    std::this_thread::sleep_for(std::chrono::duration<double>(options.interval));
    std::vector<Interface> now = ReadInterfaces(options.root);
    const Clock::time_point time = Clock::now();
    const double seconds = std::chrono::duration<double>(time - before_time).count();
    Print("\n");
    Print(Rates(format, options, LoadsBetween(before, now), seconds));
    before = std::move(now);
    before_time = time;
    format.Reset();  // its texts are printed
  }
}

}  // namespace

}  // namespace meter

int main(int argc, char** argv) {
  std::setlocale(LC_NUMERIC, "");  // the reader's decimal point
  try {
    const meter::Options options = meter::ParseOptions(argc, argv);
    if (options.help) {
      std::fputs(meter::kUsage, stdout);
      return 0;
    }
    meter::Run(options);
  } catch (const meter::UsageError& error) {
    std::fprintf(stderr, "traffic_meter: %s\n\n%s", error.what(), meter::kUsage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "traffic_meter: %s\n", error.what());
    return 1;
  }
}
