#include "meter/options.h"

#include <string_view>

#include "shared/options.h"

namespace meter {

const char* const kUsage =
    R"(usage: qxfmt-meter [options] [INTERFACE...]
Shows what this host's network interfaces carry: on a terminal in place, until q is pressed;
elsewhere what they have carried since boot, their addresses, and then a table each second.
INTERFACE is a name or a pattern like 'eth*'. Without any, those that are up are shown.

  -A, --all               the interfaces that are down, too
  -i, --interval SECONDS  time between two readings, 0.1 to 3600 (default 1)
  -n, --rounds COUNT      readings to show; 0: until interrupted (default 5, on a terminal 0)
  -1, --once              what they have carried and their addresses alone
  -s, --sockets           the open TCP and UDP sockets in place of the interfaces
  -L, --lines             on a terminal as elsewhere
      --csv               comma-separated values: of each reading, with --once of what they have
                          carried, with --sockets of the sockets
  -o, --sort ORDER        kernel, name, received, sent or both (default kernel)
  -b, --bits              on a terminal rates in bits, not in bytes
  -u, --unit UNIT         auto, B, KB, MB, GB or TB (default auto)
  -d, --decimals COUNT    decimals of sizes, rates and shares, 0 to 32 (default 2)
  -l, --layout LAYOUT     order of a date: ymd, ydm, mdy, month or dmy (default ymd)
  -a, --accuracy UNIT     of the time of a reading: s, ms, us or ns (default ms)
  -w, --words LANGUAGE    of the time that the host is up: en or cn (default en);
                          en in a locale whose encoding is not UTF-8
      --root DIRECTORY    read DIRECTORY/proc and DIRECTORY/sys in place of this host's
  -h, --help              this text
  -V, --version           the version

Keys on a terminal: q quits, s changes the order, b bits and bytes, u the unit.
"use" is the share of the link's speed. "share" and the total leave the loopback out. A "-"
stands for what does not exist or cannot be read. With --root no IP addresses are shown. Colours
are for terminals alone, and never with NO_COLOR.

Exit status: 0 all was shown, also until q or an interrupt of what a terminal shows; 1 something
could not be read or written; 2 the command line is wrong.
)";

namespace {

constexpr int kCsv = 256;
constexpr int kRoot = 257;

constexpr option kOptions[] = {
    {"all", no_argument, nullptr, 'A'},
    {"interval", required_argument, nullptr, 'i'},
    {"rounds", required_argument, nullptr, 'n'},
    {"once", no_argument, nullptr, '1'},
    {"sockets", no_argument, nullptr, 's'},
    {"lines", no_argument, nullptr, 'L'},
    {"csv", no_argument, nullptr, kCsv},
    {"sort", required_argument, nullptr, 'o'},
    {"bits", no_argument, nullptr, 'b'},
    {"unit", required_argument, nullptr, 'u'},
    {"decimals", required_argument, nullptr, 'd'},
    {"layout", required_argument, nullptr, 'l'},
    {"accuracy", required_argument, nullptr, 'a'},
    {"words", required_argument, nullptr, 'w'},
    {"root", required_argument, nullptr, kRoot},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {},
};

void SetOption(int letter, const programs::OptionReader& reader, Options& options) {
  switch (letter) {
    case 'A':
      options.selection.with_down = true;
      break;
    case 'i':
      options.interval = reader.NumberWithin(0.1, 3600.0, "seconds from 0.1 to 3600");
      break;
    case 'n':
      options.rounds = reader.NumberWithin<std::uint64_t>(0, UINT64_MAX, "a count");
      break;
    case '1':
      options.once = true;
      break;
    case 's':
      options.sockets = true;
      break;
    case 'L':
      options.lines = true;
      break;
    case kCsv:
      options.csv = true;
      break;
    case 'o':
      options.order =
          reader.ChoiceAmong(Order::kKernel, {"kernel", "name", "received", "sent", "both"});
      break;
    case 'b':
      options.bits = true;
      break;
    case 'u':
      options.unit = reader.ChoiceAmong(QXFMT_BYTES_AUTO, {"auto", "B", "KB", "MB", "GB", "TB"});
      break;
    case 'd':
      options.decimals = reader.NumberWithin<std::int32_t>(0, 32, "a count from 0 to 32");
      break;
    case 'l':
      options.layout = reader.ChoiceAmong(QXFMT_DATE_YMD, {"ymd", "ydm", "mdy", "month", "dmy"});
      break;
    case 'a':
      options.accuracy = reader.ChoiceAmong(QXFMT_TIME_SECOND, {"s", "ms", "us", "ns"});
      break;
    case 'w':
      options.words = reader.ChoiceAmong(QXFMT_DURATION_WORDS_CN, {"cn", "en"});
      break;
    case kRoot:
      options.root = reader.argument();
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
  options.selection.patterns = reader.Rest();
  return options;
}

}  // namespace meter
