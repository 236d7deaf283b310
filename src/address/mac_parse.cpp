#include <qxfmt/address.h>

#include "address/octets.h"
#include "text/hex_digits.h"

namespace {

constexpr std::uint64_t kNoAddress = ~std::uint64_t{0};
constexpr int kOctets = 6;
constexpr int kMaxOctets = 8;

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

}  // namespace

std::uint8_t QXFMT_GetHexValue(WideText text) {
  if (text == nullptr || text[0] == u'\0') return 0;
  const std::uint32_t first = qxfmt::HexDigit(text[0]);
  const std::uint32_t high = first > 0xF ? 0 : first;
  const std::uint32_t low = qxfmt::HexDigit(text[1]);
  return static_cast<std::uint8_t>(low > 0xF ? high : high << 4 | low);
}

std::uint64_t QXFMT_GetMacAddress(WideText text, char16_t separator) {
  constexpr int kMaxLength = 17;
  constexpr int kDigits = 2 * kOctets;
  if (text == nullptr) return kNoAddress;
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

std::uint64_t QXFMT_GetMacAddress(const std::uint8_t* octets, std::int32_t count) {
  return count == kOctets ? qxfmt::ReadOctets<kOctets>(octets)
                          : qxfmt::ReadOctets<kMaxOctets>(octets);
}

std::int32_t QXFMT_IsValidMacAddress(WideText text) {
  return QXFMT_GetMacAddress(text, u':') != kNoAddress ? 1 : 0;
}

std::int32_t QXFMT_IsValidMacAddress(std::uint64_t /*address*/) { return 1; }

std::int32_t QXFMT_IsValidMacAddress(const std::uint8_t* /*octets*/, std::int32_t /*count*/) {
  return 1;
}
