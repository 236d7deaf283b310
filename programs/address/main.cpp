// Says what each address typed in is, in every form that the library has.
//
//   $ qxfmt-address 10.0.0.1/24
//   10.0.0.1/24
//     IPv4       10.0.0.1
//     mask       255.255.255.0
//     prefix     24
//     network    10.0.0.0
//     first      10.0.0.1
//     last       10.0.0.254
//     broadcast  10.0.0.255
//     hosts      254
//     kind       private (RFC 1918)

#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "address/forms.h"
#include "address/options.h"
#include "address/reading.h"
#include "shared/options.h"
#include "shared/printable.h"
#include "shared/typed_text.h"

namespace address {

namespace {

using programs::Printable;

// Far beyond the longest text that any operation accepts, not counting the blanks before an IPv6
// address: the library passes over any number of them.
constexpr std::size_t kMaxBytes = 256;

constexpr std::string_view kBlanks = " \t\r";

bool Refuse(const std::string& typed, const std::string& reason) {
  std::cerr << "qxfmt-address: " << Printable(typed) << ": " << reason << "\n";
  return false;
}

bool Show(const std::string& typed) {
  if (typed.size() > kMaxBytes) return Refuse(typed.substr(0, 40) + "...", "too long");
  const Reading reading = Read(programs::FromUtf8(typed));
  if (reading.values.empty()) return Refuse(typed, reading.refusal);
  std::cout << Printable(typed) << "\n";
  for (const Value& value : reading.values) std::cout << Forms(value);
  return true;
}

// A line without the blanks at both ends. One that is too long is cut, but stays too long.
bool ReadLine(std::istream& in, std::string& line) {
  line.clear();
  char byte = 0;
  bool any = false;
  while (in.get(byte)) {
    any = true;
    if (byte == '\n') break;
    const bool is_leading_blank = line.empty() && kBlanks.find(byte) != kBlanks.npos;
    if (!is_leading_blank && line.size() <= kMaxBytes) line += byte;
  }
  if (line.size() <= kMaxBytes) line.erase(line.find_last_not_of(kBlanks) + 1);
  return any;
}

bool ShowLines(std::istream& in) {
  bool all_read = true;
  for (std::string line; ReadLine(in, line);) {
    if (!line.empty()) all_read = Show(line) && all_read;
  }
  if (std::ferror(stdin) != 0) throw std::runtime_error("cannot read the standard input");
  return all_read;
}

bool ShowAll(const Options& options) {
  if (options.addresses.empty()) return ShowLines(std::cin);
  bool all_read = true;
  for (const std::string& typed : options.addresses) all_read = Show(typed) && all_read;
  return all_read;
}

bool Run(const Options& options) {
  bool all_read = true;
  if (options.help) {
    std::cout << kUsage;
  } else if (options.version) {
    std::cout << "qxfmt-address " QXFMT_VERSION "\n";
  } else {
    all_read = ShowAll(options);
  }
  if (!std::cout.flush()) throw std::runtime_error("cannot write to the standard output");
  return all_read;
}

}  // namespace

}  // namespace address

int main(int argc, char** argv) {
  try {
    return address::Run(address::ParseOptions(argc, argv)) ? 0 : 1;
  } catch (const programs::UsageError& error) {
    std::cerr << "qxfmt-address: " << error.what() << "\nqxfmt-address --help lists the options\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "qxfmt-address: " << error.what() << "\n";
    return 1;
  }
}
