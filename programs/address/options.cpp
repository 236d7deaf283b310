#include "address/options.h"

#include <string_view>

#include "address/reading.h"
#include "shared/options.h"
#include "shared/typed_text.h"

namespace address {

const char* const kUsage =
    R"(usage: qxfmt-address [options] [ADDRESS...]
Shows each ADDRESS, or each line of the standard input if there are none, in all its forms, and
what kind of address it is. Of a network, also its first and last address.

  IPv4 address         10.0.0.1
    with a netmask     10.0.0.1/24, 10.0.0.1/255.255.255.0, '10.0.0.1 255.255.255.0'
    with a port        10.0.0.1:80
  IPv6 address         2001:db8::1
    with a zone        fe80::1%eth0
    with a prefix      2001:db8::1/64, fe80::1%eth0/64
    with a port        [2001:db8::1]:443
  MAC address          00:1a:2b:3c:4d:5e, 001a-2b3c-4d5e, 001a.2b3c.4d5e
  port                 8080

  -h, --help           this text
  -V, --version        the version

Exit status: 0 all were read; 1 any was refused, or the output could not be written; 2 the command
line is wrong.
)";

namespace {

constexpr option kOptions[] = {
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {},
};

// A MAC address may begin with '-' as well.
bool LooksLikeOption(std::string_view argument) {
  return argument.size() > 1 && argument.front() == '-' &&
         Read(programs::FromUtf8(argument)).values.empty();
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
  Options options;
  std::vector<char*> others = {argv[0]};
  bool is_ended = false;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (!is_ended && argument == "--") {
      is_ended = true;
    } else if (!is_ended && LooksLikeOption(argument)) {
      others.push_back(argv[i]);
    } else {
      options.addresses.emplace_back(argument);
    }
  }
  const int count = static_cast<int>(others.size());
  others.push_back(nullptr);
  programs::OptionReader reader(count, others.data(), kOptions);
  for (int letter = reader.Next(); letter != -1; letter = reader.Next()) {
    (letter == 'h' ? options.help : options.version) = true;
  }
  return options;
}

}  // namespace address
