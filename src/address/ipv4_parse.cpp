#include "address/ipv4_parse.h"

#include <qxfmt/address.h>

#include "address/units.h"
#include "text/lanes.h"

namespace qxfmt {

namespace {

constexpr std::uint32_t kMaxOctet = 255;
constexpr std::uint32_t kNoOctet = kMaxOctet + 1;

// For octets of one, two and three digits, as units of one number: the highest bits of the digits,
// and the factor that sums them up in the highest unit, each by its place.
constexpr std::uint64_t kDigitMarks[] = {0x8000, 0x8000'8000, 0x8000'8000'8000};
constexpr std::uint64_t kPlaces[] = {
    std::uint64_t{1} << 48, std::uint64_t{10} << 48 | std::uint64_t{1} << 32,
    std::uint64_t{100} << 48 | std::uint64_t{10} << 32 | std::uint64_t{1} << 16};

// Reads one to three digits and a dot, and moves `at` past them. Above 255 if there is no such
// octet.
//
// Nothing branches on the number of digits: it is as good as random, and a wrong guess of the
// branch predictor costs more than an octet. All is 64 bits wide, which saves conversions.
inline std::uint64_t ReadOctetAndDot(const char16_t*& at) {
  // There are four units if none of the first three is the terminator.
  if (at[0] == u'\0') return kNoOctet;
  const std::uint64_t second = at[1];
  if (second == u'\0') return kNoOctet;
  const std::uint64_t third = at[2];
  if (third == u'\0') return kNoOctet;
  const std::uint64_t digits = LoadLanes(at) ^ 0x0030'0030'0030'0030;

  // Digits have a bit set that the dot has not.
  const std::uint64_t has_second = second >> 4 & 1;
  const std::uint64_t more = has_second + (third >> 4 & has_second);
  at += more + 2;
  if (at[-1] != u'.') return kNoOctet;
  // The sum sets the highest bit of a unit from 10 on, unless that was set before.
  const std::uint64_t above_nine = digits | (digits + 0x7FF6'7FF6'7FF6'7FF6);
  if ((above_nine & kDigitMarks[more]) != 0) return kNoOctet;
  return digits * kPlaces[more] >> 48;
}

// Reads one to three digits and the terminator. Above 255 if there is no such octet.
//
// A second digit is nearly always there, and the branch predictor may guess at it; a third one is
// as good as random.
inline std::uint32_t ReadLastOctet(const char16_t* at) {
  const std::uint32_t first = DecimalDigit(at[0]);
  if (first > 9) return kNoOctet;
  const std::uint32_t second = DecimalDigit(at[1]);
  if (second > 9) return at[1] == u'\0' ? first : kNoOctet;
  const std::uint32_t third = DecimalDigit(at[2]);
  const std::uint32_t has_third = third <= 9 ? 1 : 0;
  if (at[2 + has_third] != u'\0') return kNoOctet;
  const std::uint32_t octet = first * 10 + second;
  return octet + ((9 * octet + third) & (0 - has_third));
}

}  // namespace

bool ReadStrictIpv4(const char16_t* text, std::uint32_t& address) {
  std::uint64_t value = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const std::uint64_t octet = ReadOctetAndDot(text);
    if (octet > kMaxOctet) return false;
    value |= octet << shift;
  }
  const std::uint32_t octet = ReadLastOctet(text);
  if (octet > kMaxOctet) return false;
  address = static_cast<std::uint32_t>(value) | octet << 24;
  return true;
}

namespace {

// Reads what is not of the strict form but may be read in part.
std::uint32_t ReadLaxIpv4(const char16_t* text, std::int32_t* valid) {
  constexpr int kMaxLength = 15;
  constexpr int kMaxDigits = 4;
  constexpr std::uint32_t kDots = 3;
  std::uint32_t address = 0;
  std::uint32_t dots = 0;
  std::uint32_t octet = 0;
  int digits = 0;
  for (int i = 0; text[i] != u'\0'; ++i) {
    if (i == kMaxLength) return 0;
    const std::uint32_t digit = DecimalDigit(text[i]);
    if (digit <= 9) {
      if (++digits > kMaxDigits) return 0;
      octet = octet * 10 + digit;
      continue;
    }
    if (text[i] != u'.' || octet > kMaxOctet || dots == kDots) return 0;
    address |= octet << (8 * dots++);
    octet = 0;
    digits = 0;
  }
  if (octet > kMaxOctet) return 0;
  if (dots == kDots && valid != nullptr) *valid = 1;
  return address | octet << (8 * dots);
}

}  // namespace

}  // namespace qxfmt

std::uint32_t QXFMT_GetIpAddress(WideText text, std::int32_t* valid) noexcept {
  if (valid != nullptr) *valid = 0;
  if (text == nullptr) return 0;
  std::uint32_t address = 0;
  if (!qxfmt::ReadStrictIpv4(text, address)) return qxfmt::ReadLaxIpv4(text, valid);
  if (valid != nullptr) *valid = 1;
  return address;
}

std::int32_t QXFMT_IsValidIpAddress(WideText text) noexcept {
  std::uint32_t address = 0;
  return text != nullptr && qxfmt::ReadStrictIpv4(text, address) ? 1 : 0;
}
