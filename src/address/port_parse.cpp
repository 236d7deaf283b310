#include <qxfmt/address.h>

namespace {

constexpr int kMaxDigits = 5;
constexpr std::uint32_t kMaxPort = 65535;

bool ReadPort(WideText text, std::uint16_t& port) {
  if (text == nullptr || *text == u'\0') return false;
  std::uint32_t value = 0;
  for (int i = 0; text[i] != u'\0'; ++i) {
    if (i == kMaxDigits || text[i] < u'0' || text[i] > u'9') return false;
    value = value * 10 + (std::uint32_t{text[i]} - u'0');
  }
  if (value > kMaxPort) return false;
  port = static_cast<std::uint16_t>(value);
  return true;
}

}  // namespace

std::uint16_t QXFMT_GetPortVal(WideText text, std::int32_t* valid) {
  if (valid != nullptr) *valid = 0;
  std::uint16_t port = 0;
  if (ReadPort(text, port) && valid != nullptr) *valid = 1;
  return port;
}

std::int32_t QXFMT_IsValidPort(WideText text) {
  std::uint16_t port = 0;
  return ReadPort(text, port) ? 1 : 0;
}

std::int32_t QXFMT_IsValidPort(std::uint16_t /*port*/) { return 1; }
