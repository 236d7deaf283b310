#include <bit>

#include <qxfmt/address.h>

#include "address/ipv4_parse.h"

namespace {

constexpr std::uint8_t kMaxBits = 32;

// Between the order of the values, first octet lowest, and that of the bits, first octet highest.
std::uint32_t ReverseOctets(std::uint32_t value) {
  return value << 24 | (value & 0xFF00) << 8 | (value >> 8 & 0xFF00) | value >> 24;
}

}  // namespace

std::uint32_t QXFMT_BitsToMask(std::uint8_t bits) noexcept {
  if (bits == 0 || bits > kMaxBits) return 0;
  return ReverseOctets(~std::uint32_t{0} << (kMaxBits - bits));
}

std::uint8_t QXFMT_MaskToBits(std::uint32_t mask) noexcept {
  return static_cast<std::uint8_t>(std::countl_one(ReverseOctets(mask)));
}

std::int32_t QXFMT_IsValidIpMask(std::uint32_t mask) noexcept {
  // Ones whose next higher bit is a zero of the same octet.
  const std::uint32_t after_zero = mask & ~(mask >> 1) & 0x7F7F7F7F;
  return mask != 0 && after_zero == 0 ? 1 : 0;
}

std::int32_t QXFMT_IsValidIpMask(WideText text) noexcept {
  std::uint32_t mask = 0;
  if (text == nullptr || !qxfmt::ReadStrictIpv4(text, mask)) return 0;
  return QXFMT_IsValidIpMask(mask);
}
