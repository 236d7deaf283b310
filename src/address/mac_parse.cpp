#include <qxfmt/address.h>

#include "address/octets.h"
#include "address/units.h"
#include "text/hex_digits.h"
#include "text/lanes.h"

namespace {

constexpr std::uint64_t kNoAddress = ~std::uint64_t{0};
constexpr int kOctets = 6;
constexpr int kMaxOctets = 8;
constexpr int kMaxLength = 17;
constexpr std::uint32_t kNoOctet = 0x100;

// The octet that the low bytes of two units spell. The second one is looked at only if the first
// is a digit.
inline std::uint32_t ReadOctet(const char16_t* units) {
  const std::uint32_t high = qxfmt::LowByteHexDigit(units[0]);
  if (high > 0xF) return kNoOctet;
  const std::uint32_t low = qxfmt::LowByteHexDigit(units[1]);
  return low > 0xF ? kNoOctet : high << 4 | low;
}

// Reads six octets of two digits with the same separator, ":" or "-", between them. False says no
// more than that the text is of another form.
bool ReadOrdinary(const char16_t* text, std::uint64_t& address) {
  std::uint64_t value = ReadOctet(text);
  if (value == kNoOctet) return false;
  const char16_t separator = text[2];
  if (separator != u':' && separator != u'-') return false;
  const char16_t* at = text;
  for (int shift = 8; shift < 8 * kOctets; shift += 8) {
    at += 3;
    if (at[-1] != separator) return false;
    const std::uint64_t octet = ReadOctet(at);
    if (octet == kNoOctet) return false;
    value |= octet << shift;
  }
  if (text[kMaxLength] != u'\0') return false;

  std::uint64_t seen = text[kMaxLength - 1];
  for (int i = 0; i < kMaxLength - 1; i += 4) seen |= qxfmt::LoadLanes(text + i);
  if ((seen & qxfmt::kHighBytes) != 0) return false;
  address = value;
  return true;
}

// The address whose octets, first to last, are the pairs of the digits that `spelled` holds, the
// last digit lowest. A digit left alone is the low half of its octet; octets without digits are 0.
std::uint64_t PairDigits(std::uint64_t spelled, int digits) {
  if (digits % 2 != 0) {
    spelled = spelled >> 4 << 8 | (spelled & 0xF);
    ++digits;
  }
  spelled <<= 4 * (2 * kOctets - digits);
  std::uint64_t address = 0;
  for (int i = 0; i < kOctets; ++i, spelled >>= 8) address = address << 8 | (spelled & 0xFF);
  return address;
}

// Defines what is accepted.
std::uint64_t ReadAnyForm(const char16_t* text, char16_t separator) {
  constexpr int kDigits = 2 * kOctets;
  std::uint64_t spelled = 0;
  int digits = 0;
  int paired = 0;  // fewer than the digits if the separator is one
  for (int i = 0; text[i] != u'\0'; ++i) {
    if (i == kMaxLength) return kNoAddress;
    const char16_t unit = text[i];
    if (unit == u':' || unit == u'-') continue;
    const std::uint32_t digit = qxfmt::HexDigit(unit);
    if (digit > 0xF || digits == kDigits) return kNoAddress;
    ++digits;
    if (unit == separator) continue;
    spelled = spelled << 4 | digit;
    ++paired;
  }
  return digits == kDigits ? PairDigits(spelled, paired) : kNoAddress;
}

}  // namespace

std::uint8_t QXFMT_GetHexValue(WideText text) noexcept {
  if (text == nullptr || text[0] == u'\0') return 0;
  const std::uint32_t first = qxfmt::HexDigit(text[0]);
  const std::uint32_t high = first > 0xF ? 0 : first;
  const std::uint32_t low = qxfmt::HexDigit(text[1]);
  return static_cast<std::uint8_t>(low > 0xF ? high : high << 4 | low);
}

std::uint64_t QXFMT_GetMacAddress(WideText text, char16_t separator) noexcept {
  if (text == nullptr) return kNoAddress;
  // A separator that is a digit is left out of the pairs.
  const bool is_digit = qxfmt::HexDigit(separator) <= 0xF;
  std::uint64_t address = 0;
  if (!is_digit && ReadOrdinary(text, address)) return address;
  return ReadAnyForm(text, separator);
}

std::uint64_t QXFMT_GetMacAddress(const std::uint8_t* octets, std::int32_t count) noexcept {
  return count == kOctets ? qxfmt::ReadOctets<kOctets>(octets)
                          : qxfmt::ReadOctets<kMaxOctets>(octets);
}

std::int32_t QXFMT_IsValidMacAddress(WideText text) noexcept {
  return QXFMT_GetMacAddress(text, u':') != kNoAddress ? 1 : 0;
}

std::int32_t QXFMT_IsValidMacAddress(std::uint64_t /*address*/) noexcept { return 1; }

std::int32_t QXFMT_IsValidMacAddress(const std::uint8_t* /*octets*/,
                                     std::int32_t /*count*/) noexcept {
  return 1;
}
