#include "fuzzing.h"

using qxfmt::fuzz::Check;

namespace {

// What is written reads back as it was.
void CheckRoundTrips(const std::uint8_t* address) {
  CQXDataFormat format;
  for (const auto type : {QXFMT_IPV6_COMPRESSED, QXFMT_IPV6_FULL, QXFMT_IPV6_EMBEDDED_V4}) {
    std::uint8_t read[16];
    Check(QXFMT_GetIPv6Address(format.FormatIPv6Address(address, type), read) == 1);
    Check(std::memcmp(read, address, 16) == 0);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size >= 16) CheckRoundTrips(data);
  const qxfmt::fuzz::Text text(data, size);
  std::uint8_t address[16];
  std::memset(address, 0xA5, sizeof address);
  const std::int32_t valid = QXFMT_GetIPv6Address(text, address);
  Check(QXFMT_IsValidIPv6Address(text) == valid);
  if (valid == 1) {
    CheckRoundTrips(address);
  } else {
    for (const std::uint8_t byte : address) Check(byte == 0xA5);
  }
  return 0;
}
