#include "address/reading.h"

#include <utility>

#include <qxfmt/qxfmt.h>

namespace address {

namespace {

// Takes what follows the last `mark` off the text; false and nothing taken if there is none.
bool SplitLast(std::u16string& text, char16_t mark, std::u16string& tail) {
  const std::size_t place = text.rfind(mark);
  if (place == text.npos) return false;
  tail = text.substr(place + 1);
  text.resize(place);
  return true;
}

std::optional<std::uint32_t> ReadIpv4(const std::u16string& text) {
  if (QXFMT_IsValidIpAddress(text.c_str()) == 0) return {};
  return QXFMT_GetIpAddress(text.c_str(), nullptr);
}

std::optional<std::uint16_t> ReadNumber(const std::u16string& text) {
  std::int32_t is_number = 0;
  const std::uint16_t number = QXFMT_GetPortVal(text.c_str(), &is_number);
  return is_number != 0 ? std::optional(number) : std::nullopt;
}

std::optional<std::uint64_t> ReadMac(const std::u16string& text) {
  if (QXFMT_IsValidMacAddress(text.c_str()) == 0) return {};
  return QXFMT_GetMacAddress(text.c_str(), u':');
}

// "0011.2233.4455"; the library takes other marks than points.
std::optional<std::uint64_t> ReadDottedMac(std::u16string text) {
  constexpr std::size_t kSize = 14;
  const bool is_dotted = text.size() == kSize && text[4] == u'.' && text[9] == u'.';
  if (!is_dotted || text.find_first_of(u":-") != text.npos) return {};
  text[4] = text[9] = u'-';
  return ReadMac(text);
}

// "2001:db8::1" and, with a zone (RFC 4007 section 11), "fe80::1%eth0".
std::optional<Ipv6> ReadIpv6(std::u16string text) {
  Ipv6 ipv6;
  const bool has_zone = SplitLast(text, u'%', ipv6.zone);
  if (has_zone && (ipv6.zone.empty() || ipv6.zone.find_first_of(u" /") != ipv6.zone.npos))
    return {};
  if (QXFMT_GetIPv6Address(text.c_str(), ipv6.address.data()) == 0) return {};
  return ipv6;
}

class Reader {
 public:
  explicit Reader(const std::u16string& text) {
    ReadWithMask(text);
    ReadWithPort(text);
    if (const auto ipv4 = ReadIpv4(text)) Add(Ipv4{*ipv4, {}, {}});
    if (const auto ipv6 = ReadIpv6(text)) Add(*ipv6);
    if (const auto mac = ReadMac(text)) Add(Mac{*mac});
    if (const auto mac = ReadDottedMac(text)) Add(Mac{*mac});
    if (const auto port = ReadNumber(text)) Add(Port{*port});
    if (reading_.refusal.empty()) {
      reading_.refusal = "neither an IPv4, IPv6 or MAC address nor a port";
    }
  }

  Reading Take() { return std::move(reading_); }

 private:
  void Add(const Value& value) { reading_.values.push_back(value); }
  void Refuse(const char* reason) { reading_.refusal = reason; }

  // ADDRESS/PREFIX, ADDRESS/MASK or ADDRESS MASK
  void ReadWithMask(const std::u16string& text) {
    const std::size_t mark = text.find_first_of(u"/ ");
    if (mark == text.npos) return;
    const std::u16string head = text.substr(0, mark);
    const std::u16string tail = text.substr(mark + 1);
    if (const auto ipv4 = ReadIpv4(head)) {
      if (const auto mask = ReadMask(tail)) Add(Ipv4{*ipv4, mask, {}});
    } else if (text[mark] == u'/') {
      ReadWithPrefix(head, tail);
    }
  }

  void ReadWithPrefix(const std::u16string& head, const std::u16string& tail) {
    auto ipv6 = ReadIpv6(head);
    const auto bits = ReadNumber(tail);
    if (!ipv6) return Refuse("no IPv4 or IPv6 address before the '/'");
    if (!bits) return Refuse("not a prefix length after the IPv6 address");
    if (*bits > 128) return Refuse("a prefix length above 128");
    ipv6->prefix = static_cast<std::uint8_t>(*bits);
    Add(*ipv6);
  }

  std::optional<std::uint32_t> ReadMask(const std::u16string& text) {
    const auto bits = ReadNumber(text);
    if (bits && *bits <= 32) return QXFMT_BitsToMask(static_cast<std::uint8_t>(*bits));
    if (QXFMT_IsValidIpMask(text.c_str()) != 0) return ReadIpv4(text);
    if (ReadIpv4(text) == 0U) return 0;  // "0.0.0.0", which is no mask to the library
    Refuse(bits ? "a prefix length above 32" : "not a netmask after the address");
    return {};
  }

  // ADDRESS:PORT or [ADDRESS]:PORT
  void ReadWithPort(std::u16string text) {
    std::u16string tail;
    if (!SplitLast(text, u':', tail)) return;
    const auto port = ReadNumber(tail);
    const auto ipv4 = ReadIpv4(text);
    const bool has_brackets = text.size() > 2 && text.front() == u'[' && text.back() == u']';
    if (!ipv4 && !has_brackets) return;
    if (!port) return Refuse("not a port after the address");
    if (ipv4) return Add(Ipv4{*ipv4, {}, port});
    auto ipv6 = ReadIpv6(text.substr(1, text.size() - 2));
    if (!ipv6) return Refuse("not an IPv6 address in the brackets");
    ipv6->port = port;
    Add(*ipv6);
  }

  Reading reading_;
};

}  // namespace

Reading Read(const std::u16string& text) { return Reader(text).Take(); }

}  // namespace address
