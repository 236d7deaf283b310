// Says what each address typed in is, in every form that the library has.
//
//   $ qxfmt-address 10.0.0.1/24
//   10.0.0.1/24
//     IPv4     10.0.0.1
//     mask     255.255.255.0
//     prefix   24
//     network  10.0.0.0

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

#include <qxfmt/qxfmt.h>
#include <qxfmt/utf8.h>

namespace {

constexpr std::string_view kHelp =
    "Usage: qxfmt-address [-h | --help] [ADDRESS...]\n"
    "Prints each ADDRESS, or each line of standard input if there are none, in all its forms:\n"
    "  IPv4 address         10.0.0.1\n"
    "  with netmask         10.0.0.1/24, 10.0.0.1/255.255.255.0, '10.0.0.1 255.255.255.0'\n"
    "  with port            10.0.0.1:80, [2001:db8::1]:443\n"
    "  IPv6 address         2001:db8::1\n"
    "  MAC address          00:1a:2b:3c:4d:5e, 001a-2b3c-4d5e\n"
    "  port                 8080\n"
    "Exit status: 0 if all were read, 1 if any was refused,\n"
    "2 if an option is unknown or the output could not be written.\n";

// Far beyond the longest text that any operation accepts, not counting the blanks before an IPv6
// address: the library passes over any number of them.
constexpr std::size_t kMaxBytes = 256;

constexpr std::string_view kBlanks = " \t\r";

// A NUL becomes U+FFFD: a text of the library would end there.
std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text = qxfmt::Utf16(bytes);
  std::replace(text.begin(), text.end(), u'\0', u'\uFFFD');
  return text;
}

// The forms of one text, or why it has none.
class Lookup {
 public:
  explicit Lookup(const std::u16string& text) {
    const bool has_mask = ReadWithMask(text);
    const bool has_port = ReadWithPort(text);
    // A text can be more than one of these: "::0011:2233:4455" is a MAC address as well.
    const bool is_ipv4 = ReadIpv4(text);
    const bool is_ipv6 = ReadIpv6(text);
    const bool is_mac = ReadMac(text);
    const bool is_port = ReadPort(text);
    accepted_ = has_mask || has_port || is_ipv4 || is_ipv6 || is_mac || is_port;
    if (reason_.empty()) reason_ = "neither an IPv4, IPv6 or MAC address nor a port";
  }

  bool accepted() const { return accepted_; }
  const std::string& forms() const { return forms_; }
  const std::string& reason() const { return reason_; }

 private:
  void Add(std::string_view name, const std::string& form) {
    forms_.append("  ").append(name).append(9 - name.size(), ' ').append(form).append("\n");
  }
  void Add(std::string_view name, ResultText form) { Add(name, qxfmt::Utf8(form)); }

  bool ReadIpv4(const std::u16string& text) {
    if (QXFMT_IsValidIpAddress(text.c_str()) == 0) return false;
    Add("IPv4", format_.FormatIpAddress(QXFMT_GetIpAddress(text.c_str(), nullptr)));
    return true;
  }

  bool ReadIpv6(const std::u16string& text) {
    std::uint8_t address[16];
    if (QXFMT_GetIPv6Address(text.c_str(), address) == 0) return false;
    Add("IPv6", format_.FormatIPv6Address(address, QXFMT_IPV6_COMPRESSED));
    Add("full", format_.FormatIPv6Address(address, QXFMT_IPV6_FULL));
    Add("dotted", format_.FormatIPv6Address(address, QXFMT_IPV6_EMBEDDED_V4));
    return true;
  }

  bool ReadMac(const std::u16string& text) {
    if (QXFMT_IsValidMacAddress(text.c_str()) == 0) return false;
    Add("MAC", format_.FormatMacAddress(QXFMT_GetMacAddress(text.c_str(), u':')));
    return true;
  }

  bool ReadPort(const std::u16string& text) {
    std::int32_t valid = 0;
    const std::uint16_t port = QXFMT_GetPortVal(text.c_str(), &valid);
    if (valid != 0) Add("port", std::to_string(port));
    return valid != 0;
  }

  // ADDRESS/PREFIX, ADDRESS/MASK or ADDRESS MASK
  bool ReadWithMask(const std::u16string& text) {
    const std::size_t slash = text.find_first_of(u"/ ");
    if (slash == text.npos) return false;
    const std::u16string head = text.substr(0, slash);
    if (QXFMT_IsValidIpAddress(head.c_str()) == 0) {
      if (QXFMT_IsValidIPv6Address(head.c_str()) != 0 && text[slash] == u'/') {
        reason_ = "an IPv6 address with a prefix length is not read";
      } else if (text[slash] == u'/') {
        reason_ = "not an IPv4 address before the '/'";
      }
      return false;
    }
    const std::u16string tail = text.substr(slash + 1);
    std::uint32_t mask = 0;
    if (!ReadMask(tail, mask)) return false;
    const std::uint32_t address = QXFMT_GetIpAddress(head.c_str(), nullptr);
    const std::uint8_t bits = QXFMT_MaskToBits(mask);
    const bool has_holes = QXFMT_BitsToMask(bits) != mask;
    ReadIpv4(head);
    Add("mask", format_.FormatIpAddress(mask));
    Add("prefix", has_holes ? "none, the mask has holes" : std::to_string(bits));
    Add("network", format_.FormatIpAddress(address & mask));
    return true;
  }

  bool ReadMask(const std::u16string& text, std::uint32_t& mask) {
    std::int32_t is_number = 0;
    const std::uint16_t bits = QXFMT_GetPortVal(text.c_str(), &is_number);
    if (is_number != 0 && bits <= 32) {
      mask = QXFMT_BitsToMask(static_cast<std::uint8_t>(bits));
      return true;
    }
    mask = QXFMT_GetIpAddress(text.c_str(), nullptr);
    if (QXFMT_IsValidIpMask(text.c_str()) != 0) return true;
    reason_ = is_number != 0 ? "a prefix length above 32" : "not a netmask after the address";
    return false;
  }

  // ADDRESS:PORT or [ADDRESS]:PORT
  bool ReadWithPort(const std::u16string& text) {
    const std::size_t colon = text.rfind(u':');
    if (colon == text.npos) return false;
    std::int32_t valid = 0;
    const std::uint16_t port = QXFMT_GetPortVal(text.c_str() + colon + 1, &valid);
    const std::u16string head = text.substr(0, colon);
    const bool has_brackets = head.size() > 2 && head.front() == u'[' && head.back() == u']';
    const bool is_ipv4 = QXFMT_IsValidIpAddress(head.c_str()) != 0;
    if (!is_ipv4 && !has_brackets) return false;
    if (valid == 0) {
      reason_ = "not a port after the address";
      return false;
    }
    if (is_ipv4) {
      ReadIpv4(head);
      Add("port", format_.FormatIpPort(QXFMT_GetIpAddress(head.c_str(), nullptr), port));
      return true;
    }
    const std::u16string inner = head.substr(1, head.size() - 2);
    std::uint8_t address[16];
    if (QXFMT_GetIPv6Address(inner.c_str(), address) == 0) {
      reason_ = "not an IPv6 address in the brackets";
      return false;
    }
    ReadIpv6(inner);
    Add("port", format_.FormatIpv6Port(address, port, QXFMT_IPV6_COMPRESSED));
    return true;
  }

  CQXDataFormat format_;
  std::string forms_;
  std::string reason_;
  bool accepted_ = false;
};

// For a terminal: no control characters, whatever was typed.
std::string Shown(std::u16string text) {
  for (char16_t& unit : text) {
    if (unit < u' ' || (unit >= 0x7F && unit < 0xA0)) unit = u'?';
  }
  return qxfmt::Utf8(text);
}

bool Judge(std::string_view typed) {
  if (typed.size() > kMaxBytes) {
    std::cerr << "qxfmt-address: " << Shown(FromUtf8(typed.substr(0, 40))) << "...: too long\n";
    return false;
  }
  const std::u16string text = FromUtf8(typed);
  const Lookup lookup(text);
  if (!lookup.accepted()) {
    std::cerr << "qxfmt-address: " << Shown(text) << ": " << lookup.reason() << "\n";
    return false;
  }
  std::cout << Shown(text) << "\n" << lookup.forms();
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

// A MAC address may begin with '-' as well.
bool IsUnknownOption(std::string_view argument) {
  return argument.substr(0, 1) == "-" && !Lookup(FromUtf8(argument)).accepted();
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "-h" || argument == "--help") {
      std::cout << kHelp;
      return std::cout.flush() ? 0 : 2;
    }
    if (IsUnknownOption(argument)) {
      std::cerr << "qxfmt-address: unknown option " << Shown(FromUtf8(argument))
                << "; see --help\n";
      return 2;
    }
  }
  bool all_read = true;
  if (argc > 1) {
    for (int i = 1; i < argc; ++i) all_read = Judge(argv[i]) && all_read;
  } else {
    for (std::string line; ReadLine(std::cin, line);) {
      if (!line.empty()) all_read = Judge(line) && all_read;
    }
  }
  if (!std::cout.flush()) return 2;
  return all_read ? 0 : 1;
}
