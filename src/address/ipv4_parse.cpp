#include "address/ipv4_parse.h"

#include <qxfmt/address.h>

namespace qxfmt {

namespace {

constexpr std::uint32_t kMaxOctet = 255;
constexpr std::uint32_t kNoOctet = kMaxOctet + 1;

// Above 9 for a unit that is no digit.
std::uint32_t DecimalDigit(char16_t unit) { return std::uint32_t{unit} - u'0'; }

// Reads one to three digits with `behind` behind them, and moves `at` behind that. Above 255 if
// there is no such octet.
//
// A second digit is nearly always there, and the branch predictor may guess at it. A third one is
// as good as random: it is added under a mask, since a wrong guess costs more than a whole octet.
inline std::uint32_t ReadOctet(const char16_t*& at, char16_t behind) {
  std::uint32_t octet = DecimalDigit(at[0]);
  if (octet > 9) return kNoOctet;
  const std::uint32_t second = DecimalDigit(at[1]);
  if (second > 9) {
    ++at;
  } else {
    octet = octet * 10 + second;
    const std::uint32_t third = DecimalDigit(at[2]);
    const std::uint32_t has_third = third <= 9 ? 1 : 0;
    octet += (9 * octet + third) & (0 - has_third);
    at += 2 + has_third;
  }
  return *at++ == behind ? octet : kNoOctet;
}

}  // namespace

bool ReadStrictIpv4(const char16_t* text, std::uint32_t& address) {
  std::uint32_t value = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const std::uint32_t octet = ReadOctet(text, u'.');
    if (octet > kMaxOctet) return false;
    value |= octet << shift;
  }
  const std::uint32_t octet = ReadOctet(text, u'\0');
  if (octet > kMaxOctet) return false;
  address = value | octet << 24;
  return true;
}

namespace {

struct LaxAddress {
  std::uint32_t value = 0;
  std::uint32_t dots = 0;
};

// Everything that is not of the strict form but may still be read in part.
LaxAddress ReadLaxIpv4(const char16_t* text) {
  constexpr int kMaxLength = 15;
  constexpr int kMaxDigits = 4;
  LaxAddress address;
  std::uint32_t octet = 0;
  int digits = 0;
  for (int i = 0; text[i] != u'\0'; ++i) {
    if (i == kMaxLength) return {};
    const std::uint32_t digit = DecimalDigit(text[i]);
    if (digit <= 9) {
      if (++digits > kMaxDigits) return {};
      octet = octet * 10 + digit;
      continue;
    }
    if (text[i] != u'.' || octet > kMaxOctet || address.dots == 3) return {};
    address.value |= octet << (8 * address.dots++);
    octet = 0;
    digits = 0;
  }
  if (octet > kMaxOctet) return {};
  address.value |= octet << (8 * address.dots);
  return address;
}

}  // namespace

}  // namespace qxfmt

std::uint32_t QXFMT_GetIpAddress(WideText text, std::int32_t* valid) {
  if (valid != nullptr) *valid = 0;
  if (text == nullptr) return 0;
  qxfmt::LaxAddress address;
  if (qxfmt::ReadStrictIpv4(text, address.value)) {
    address.dots = 3;
  } else {
    address = qxfmt::ReadLaxIpv4(text);
  }
  if (valid != nullptr && address.dots == 3) *valid = 1;
  return address.value;
}

std::int32_t QXFMT_IsValidIpAddress(WideText text) {
  std::uint32_t address = 0;
  return text != nullptr && qxfmt::ReadStrictIpv4(text, address) ? 1 : 0;
}
