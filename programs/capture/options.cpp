#include "capture/options.h"

#include <unistd.h>

#include <string_view>
#include <vector>

#include "shared/options.h"

namespace capture {

const char* const kUsage =
    R"(usage: qxfmt-capture [options] [FILE] [FILTER]
       qxfmt-capture [options] -i NAME [FILTER]
Shows the packets of a capture file (pcap or pcapng), of the standard input ("-" or no
file) or of a network interface. FILTER is written as in pcap-filter(7): tcp port 443

  -C, --conversations    who has talked to whom, in place of the packets
  -S, --summary          span, rates and protocols, in place of the packets
      --csv              any of these as comma-separated values
  -i, --interface NAME   capture live until interrupted
  -c, --count COUNT      stop after so many packets that pass the filter
  -s, --sort COLUMN      of conversations: bytes, packets, rate, duration, start, source,
                         destination or protocol (default bytes)
  -t, --time LAYOUT      ymd, ydm, mdy, month or dmy: the order of the date;
                         clock: without a date; relative: since the first packet
                         (default ymd, on narrow terminals clock)
  -a, --accuracy UNIT    of times and durations: s, ms, us or ns (default us)
  -w, --words            durations in words: 1h1m1s
  -u, --unit UNIT        of sizes and rates: auto, B, KB, MB, GB or TB (default auto)
  -h, --help             this text
  -V, --version          the version

A packet is "truncated" if its headers go on where its capture ends, and "malformed" if they
contradict themselves. Colours are for terminals alone, and never with NO_COLOR.

Exit status: 0 all was read and shown; 1 something could not be opened, read to its end or
written; 2 the command line or the filter is wrong.
)";

namespace {

constexpr int kCsv = 256;

constexpr option kOptions[] = {
    {"conversations", no_argument, nullptr, 'C'},
    {"summary", no_argument, nullptr, 'S'},
    {"csv", no_argument, nullptr, kCsv},
    {"interface", required_argument, nullptr, 'i'},
    {"count", required_argument, nullptr, 'c'},
    {"sort", required_argument, nullptr, 's'},
    {"time", required_argument, nullptr, 't'},
    {"accuracy", required_argument, nullptr, 'a'},
    {"words", no_argument, nullptr, 'w'},
    {"unit", required_argument, nullptr, 'u'},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {},
};

void SetTime(const programs::OptionReader& reader, Options& options) {
  constexpr int kTimeOfDay = QXFMT_DATE_DMY + 1;
  const int choice = reader.ChoiceAmong<int>(
      QXFMT_DATE_YMD, {"ymd", "ydm", "mdy", "month", "dmy", "clock", "relative"});
  options.time = choice < kTimeOfDay    ? TimeStyle::kDate
                 : choice == kTimeOfDay ? TimeStyle::kTimeOfDay
                                        : TimeStyle::kSinceFirst;
  if (choice < kTimeOfDay) options.layout = static_cast<QXFMT_DATE_FORMAT>(choice);
}

void SetOption(int letter, const programs::OptionReader& reader, Options& options) {
  switch (letter) {
    case 'C':
      options.view = ViewKind::kConversations;
      break;
    case 'S':
      options.view = ViewKind::kSummary;
      break;
    case kCsv:
      options.csv = true;
      break;
    case 'i':
      options.interface = reader.argument();
      break;
    case 'c':
      options.count = reader.NumberWithin<std::uint64_t>(1, UINT64_MAX, "a count from 1 on");
      break;
    case 's':
      options.sort = reader.ChoiceAmong(Sort::kStart, {"start", "source", "destination", "protocol",
                                                       "packets", "bytes", "rate", "duration"});
      break;
    case 't':
      SetTime(reader, options);
      break;
    case 'a':
      options.accuracy = reader.ChoiceAmong(QXFMT_TIME_SECOND, {"s", "ms", "us", "ns"});
      break;
    case 'w':
      options.durations = QXFMT_DURATION_WORDS_EN;
      break;
    case 'u':
      options.unit = reader.ChoiceAmong(QXFMT_BYTES_AUTO, {"auto", "B", "KB", "MB", "GB", "TB"});
      break;
    case 'h':
      options.help = true;
      break;
    default:
      options.version = true;
  }
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
  Options options;
  programs::OptionReader reader(argc, argv, kOptions);
  for (int letter = reader.Next(); letter != -1; letter = reader.Next()) {
    SetOption(letter, reader, options);
  }
  if (options.help || options.version) return options;

  std::vector<std::string> rest = reader.Rest();
  if (options.interface.empty()) {
    if (!rest.empty()) {
      options.file = rest.front();
      rest.erase(rest.begin());
    } else if (::isatty(STDIN_FILENO) != 0) {
      throw programs::UsageError("no capture: name a file, pipe one in, or an interface with -i");
    }
  }
  for (const std::string& word : rest) options.filter += (options.filter.empty() ? "" : " ") + word;
  return options;
}

}  // namespace capture
