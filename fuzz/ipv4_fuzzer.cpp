#include "fuzzing.h"

// IPv4 addresses, ports and masks.
void Fuzz(WideText text, const std::uint8_t* /*data*/, std::size_t /*size*/) {
  CQXDataFormat format;
  std::int32_t flag = -1;
  const std::uint32_t address = QXFMT_GetIpAddress(text, &flag);
  Check(flag == 1 || (flag == 0 && QXFMT_IsValidIpAddress(text) == 0));
  const ResultText written = format.FormatIpAddress(address);
  Check(QXFMT_IsValidIpAddress(written) == 1 && QXFMT_GetIpAddress(written, nullptr) == address);
  Check(QXFMT_IsValidIpMask(written) == QXFMT_IsValidIpMask(address));
  Check(QXFMT_IsValidIpAddress(text) == 1 || QXFMT_IsValidIpMask(text) == 0);

  const std::uint16_t port = QXFMT_GetPortVal(text, &flag);
  Check(QXFMT_IsValidPort(text) == flag && (flag == 1 || port == 0));
  const ResultText with_port = format.FormatIpPort(address, port);
  Check(QXFMT_GetPortVal(std::char_traits<char16_t>::find(with_port, 22, u':') + 1, &flag) == port);
}
