#include <qxfmt/address.h>

#include "address/units.h"

namespace {

constexpr int kMaxDigits = 5;
constexpr std::uint32_t kMaxPort = 65535;

bool ReadPort(WideText text, std::uint16_t& port) {
  if (text == nullptr) return false;
  std::uint32_t value = qxfmt::DecimalDigit(text[0]);
  if (value > 9) return false;
  int digits = 1;
  for (; digits < kMaxDigits; ++digits) {
    const std::uint32_t digit = qxfmt::DecimalDigit(text[digits]);
    if (digit > 9) break;
    value = value * 10 + digit;
  }
  if (text[digits] != u'\0' || value > kMaxPort) return false;
  port = static_cast<std::uint16_t>(value);
  return true;
}

}  // namespace

std::uint16_t QXFMT_GetPortVal(WideText text, std::int32_t* valid) noexcept {
  if (valid != nullptr) *valid = 0;
  std::uint16_t port = 0;
  if (ReadPort(text, port) && valid != nullptr) *valid = 1;
  return port;
}

std::int32_t QXFMT_IsValidPort(WideText text) noexcept {
  std::uint16_t port = 0;
  return ReadPort(text, port) ? 1 : 0;
}

std::int32_t QXFMT_IsValidPort(std::uint16_t /*port*/) noexcept { return 1; }
