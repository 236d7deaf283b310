#include "fuzzing.h"

void Fuzz(WideText text, const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> address(16, 0xA5);
  const auto untouched = address;
  const std::int32_t valid = QXFMT_GetIPv6Address(text, address.data());
  Check(QXFMT_IsValidIPv6Address(text) == valid && (valid == 1 || address == untouched));
  // What is written reads back as it was.
  if (size >= 16 && valid == 0) address.assign(data, data + 16);
  CQXDataFormat format;
  for (const auto type : {QXFMT_IPV6_COMPRESSED, QXFMT_IPV6_FULL, QXFMT_IPV6_EMBEDDED_V4}) {
    auto read = untouched;
    Check(QXFMT_GetIPv6Address(format.FormatIPv6Address(address.data(), type), read.data()) == 1);
    Check(read == address);
  }
}
