#include "meter/options.h"

#include <cstdio>
#include <cstring>
#include <locale>
#include <sstream>
#include <string_view>

namespace meter {

const char* const kUsage =
    R"(usage: qxfmt-meter [options]
Shows what this host's network interfaces have carried, and then what they carry.

  -i, --interval SECONDS  time between two readings, 0.1 to 3600 (default 1)
  -n, --rounds COUNT      readings to show; 0: until interrupted (default 5)
  -1, --once              the totals alone
  -d, --decimals COUNT    decimals of sizes, rates and shares, 0 to 32 (default 2)
  -u, --unit UNIT         auto, B, KB, MB, GB or TB (default auto)
  -l, --layout LAYOUT     order of a date: ymd, ydm, mdy, month or dmy (default ymd)
  -a, --accuracy UNIT     of the time of a reading: s, ms, us or ns (default ms)
  -w, --words LANGUAGE    of the time that the host is up: en or cn (default en);
                          en in a locale whose encoding is not UTF-8
  -s, --sockets           the open TCP and UDP sockets in place of the meter
      --root DIRECTORY    read DIRECTORY/proc and DIRECTORY/sys in place of this host's
  -h, --help              this text

A "-" stands for what does not exist or cannot be read. With --root no IP addresses are shown.
)";

namespace {

// Walks the command line; an option's value is the next argument.
class Arguments {
 public:
  Arguments(int argc, const char* const* argv) : argv_(argv + 1), end_(argv + argc) {}

  bool Next() {
    if (argv_ >= end_) return false;
    option_ = *argv_++;
    return true;
  }

  const std::string& option() const { return option_; }

  bool Is(const char* name, const char* letter = "") const {
    return option_ == name || (*letter != '\0' && option_ == letter);
  }

  std::string Value() {
    if (argv_ == end_) throw UsageError(option_ + " needs a value");
    return *argv_++;
  }

  [[noreturn]] void Refuse(const std::string& value, const char* wanted) const {
    throw UsageError(option_ + " takes " + wanted + ", not '" + value + "'");
  }

  // A number within bounds, read to its last character.
  template <typename Number>
  Number ValueWithin(Number least, Number most, const char* wanted) {
    const std::string value = Value();
    std::istringstream text(value);  // not std::from_chars, which libc++ 16 lacks for a double
    text.imbue(std::locale::classic());
    Number number{};
    if (value.find_first_not_of("0123456789.") != value.npos || !(text >> number) ||
        text.peek() != EOF || number < least || number > most) {
      Refuse(value, wanted);
    }
    return number;
  }

  // One of a list of words, which stand for the choices from `first` on.
  template <typename Choice>
  Choice ValueAmong(Choice first, std::initializer_list<std::string_view> words,
                    const char* wanted) {
    const std::string value = Value();
    int choice = first;
    for (const std::string_view word : words) {
      if (word == value) return static_cast<Choice>(choice);
      ++choice;
    }
    Refuse(value, wanted);
  }

 private:
  const char* const* argv_;
  const char* const* end_;
  std::string option_;
};

}  // namespace

Options ParseOptions(int argc, const char* const* argv) {
  Options options;
  Arguments arguments(argc, argv);
  while (arguments.Next()) {
    if (arguments.Is("--interval", "-i")) {
      options.interval = arguments.ValueWithin(0.1, 3600.0, "seconds from 0.1 to 3600");
    } else if (arguments.Is("--rounds", "-n")) {
      options.rounds = arguments.ValueWithin<std::uint64_t>(0, UINT64_MAX, "a count");
    } else if (arguments.Is("--once", "-1")) {
      options.once = true;
    } else if (arguments.Is("--decimals", "-d")) {
      options.decimals = arguments.ValueWithin<std::int32_t>(0, 32, "a count from 0 to 32");
    } else if (arguments.Is("--unit", "-u")) {
      options.unit = arguments.ValueAmong(QXFMT_BYTES_AUTO, {"auto", "B", "KB", "MB", "GB", "TB"},
                                          "auto, B, KB, MB, GB or TB");
    } else if (arguments.Is("--layout", "-l")) {
      options.layout = arguments.ValueAmong(QXFMT_DATE_YMD, {"ymd", "ydm", "mdy", "month", "dmy"},
                                            "ymd, ydm, mdy, month or dmy");
    } else if (arguments.Is("--accuracy", "-a")) {
      options.accuracy =
          arguments.ValueAmong(QXFMT_TIME_SECOND, {"s", "ms", "us", "ns"}, "s, ms, us or ns");
    } else if (arguments.Is("--words", "-w")) {
      options.words = arguments.ValueAmong(QXFMT_DURATION_WORDS_CN, {"cn", "en"}, "en or cn");
    } else if (arguments.Is("--sockets", "-s")) {
      options.sockets = true;
    } else if (arguments.Is("--root")) {
      options.root = arguments.Value();
    } else if (arguments.Is("--help", "-h")) {
      options.help = true;
    } else {
      throw UsageError("unknown option '" + arguments.option() + "'");
    }
  }
  return options;
}

}  // namespace meter
