// The network counters of this host, as text by QXFMT: the totals since boot and the addresses, and
// then, each interval, the rates.

#include <langinfo.h>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/addresses.h"
#include "meter/counters.h"
#include "meter/options.h"
#include "meter/rates.h"
#include "shared/table.h"
#include "shared/utf8.h"

namespace meter {

namespace {

using programs::Table;
using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

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
    table.Add(interface.name);
    table.Add(interface.state.empty() ? "-" : interface.state);
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

std::u16string WithPrefix(ResultText address, CQXDataFormat& format, int prefix) {
  std::u16string text = address;
  text += u'/';
  text += format.FormatNumber(prefix, 0);
  return text;
}

std::string AddressList(CQXDataFormat& format, const Options& options,
                        const std::vector<Interface>& interfaces) {
  Table table({"interface", "address", "mask"}, 3);
  const auto add = [&](const Interface& interface, std::u16string_view address, ResultText mask) {
    table.Add(interface.name);
    table.Add(address);
    table.Add(mask);
  };
  for (const Interface& interface : interfaces) {
    const std::u16string mac = ReadMac(options.root, interface.name);
    add(interface, mac.empty() ? u"-" : mac, u"-");
    // The kernel tells addresses of the running host alone, not of recorded counters.
    if (!options.root.empty()) continue;
    const Addresses addresses = ReadAddresses(interface.name);
    for (const Ipv4Address& ipv4 : addresses.ipv4) {
      add(interface,
          WithPrefix(format.FormatIpAddress(ipv4.address), format, QXFMT_MaskToBits(ipv4.mask)),
          format.FormatIpAddress(ipv4.mask));
    }
    for (const Ipv6Address& ipv6 : addresses.ipv6) {
      const ResultText text = format.FormatIPv6Address(ipv6.address.data(), QXFMT_IPV6_COMPRESSED);
      add(interface, WithPrefix(text, format, ipv6.prefix), u"-");
    }
  }
  return table.ToString();
}

ResultText EndpointText(CQXDataFormat& format, const Socket& socket, const Endpoint& endpoint) {
  return socket.is_ipv6
             ? format.FormatIpv6Port(endpoint.ipv6.data(), endpoint.port, QXFMT_IPV6_COMPRESSED)
             : format.FormatIpPort(endpoint.ipv4, endpoint.port);
}

std::string SocketList(CQXDataFormat& format, const std::vector<Socket>& sockets) {
  Table table({"protocol", "local", "remote", "state"}, 4);
  for (const Socket& socket : sockets) {
    table.Add(socket.protocol);
    table.Add(EndpointText(format, socket, socket.local));
    table.Add(EndpointText(format, socket, socket.remote));
    table.Add(socket.state);
  }
  return table.ToString();
}

// The time that the host is up; 0 where it does not tell.
std::uint32_t ReadUptime(const std::string& root) {
  std::ifstream file(root + "/proc/uptime");
  double uptime = 0;  // seconds
  file >> uptime;
  return uptime > 0 && uptime < 0x1p32 ? static_cast<std::uint32_t>(uptime) : 0;
}

std::string Stamp(CQXDataFormat& format, const Options& options, Clock::duration running) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  std::u16string text = format.FormatAllDateTime(duration_cast<nanoseconds>(now).count(),
                                                 options.accuracy, options.layout);
  text += u", running ";
  text += format.FormatDurationMSecond(duration_cast<milliseconds>(running).count(),
                                       QXFMT_DURATION_CLOCK);
  text += u", host up ";
  const std::uint32_t uptime = ReadUptime(options.root);
  text += uptime == 0 ? u"-" : format.FormatDurationSecond(uptime, options.words);
  text += u'\n';
  return programs::ToUtf8(text);
}

ResultText ClockText(CQXDataFormat& format, Clock::duration span) {
  const auto whole = duration_cast<std::chrono::seconds>(span).count();
  return format.FormatDurationSecond(static_cast<std::uint32_t>(whole), QXFMT_DURATION_CLOCK);
}

std::string RateTable(CQXDataFormat& format, const Options& options, const Round& round) {
  Table table({"interface", "receiving", "", "sending", "", "share", "errors", "idle"});
  for (const Load& load : round.loads) {
    table.Add(load.name);
    for (const std::uint64_t bytes : {load.received, load.sent}) {
      const double rate = static_cast<double>(bytes) / round.seconds;
      table.Add(format.FormatBytePerSecond(rate, options.unit, options.decimals));
      table.Add(format.FormatBitPerSecond(8 * rate, options.unit, options.decimals));
    }
    const auto part = static_cast<float>(load.received + load.sent);
    table.Add(
        format.FormatPercentage(round.bytes == 0 ? 0.0F : part / static_cast<float>(round.bytes)));
    table.Add(format.FormatNumber(load.errors, 1));
    table.Add(load.idle ? ClockText(format, *load.idle) : u"-");
  }
  return table.ToString();
}

// The meter writes UTF-8. A terminal of another encoding shows ASCII as it is, but not the Chinese
// words.
void KeepToEncoding(Options& options) {
  if (options.words != QXFMT_DURATION_WORDS_CN) return;
  if (std::strcmp(::nl_langinfo(CODESET), "UTF-8") == 0) return;
  std::fputs("qxfmt-meter: English words: the locale's encoding is not UTF-8\n", stderr);
  options.words = QXFMT_DURATION_WORDS_EN;
}

void Run(Options options) {
  QXFMT_SetNumberDecimalPlaces(options.decimals);
  CQXDataFormat format;
  if (options.sockets) {
    Print(SocketList(format, ReadSockets(options.root)));
    return;
  }
  KeepToEncoding(options);

  const Clock::time_point start = Clock::now();
  const std::vector<Interface> interfaces = ReadInterfaces(options.root);
  Rates rates(interfaces, start);
  Print(Stamp(format, options, Clock::duration::zero()));
  Print(Totals(format, options, interfaces));
  Print("\n");
  Print(AddressList(format, options, interfaces));
  if (options.once) return;

  for (std::uint64_t round = 1; options.rounds == 0 || round <= options.rounds; ++round) {
    std::this_thread::sleep_for(std::chrono::duration<double>(options.interval));
    std::vector<Interface> now = ReadInterfaces(options.root);
    const Clock::time_point time = Clock::now();
    Print("\n");
    Print(Stamp(format, options, time - start));
    Print(RateTable(format, options, rates.Advance(std::move(now), time)));
    format.Reset();  // its texts are printed
  }
}

}  // namespace

}  // namespace meter

int main(int argc, char** argv) {
  // LC_NUMERIC stays "C": numbers are grouped by commas, whatever the locale's decimal point is.
  std::setlocale(LC_CTYPE, "");  // the reader's encoding
  ::tzset();                     // and zone
  try {
    const meter::Options options = meter::ParseOptions(argc, argv);
    if (options.help) {
      std::fputs(meter::kUsage, stdout);
      return 0;
    }
    meter::Run(options);
  } catch (const meter::UsageError& error) {
    std::fprintf(stderr, "qxfmt-meter: %s\n\n%s", error.what(), meter::kUsage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "qxfmt-meter: %s\n", error.what());
    return 1;
  }
}
