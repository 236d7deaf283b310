#include "fuzzing.h"

void Fuzz(WideText text, const std::uint8_t* data, std::size_t size) {
  CQXDataFormat format;
  const std::uint64_t address = QXFMT_GetMacAddress(text, u':');
  const bool valid = QXFMT_IsValidMacAddress(text) == 1;
  Check(valid ? address >> 48 == 0 : address == ~std::uint64_t{0});
  Check(QXFMT_GetMacAddress(format.FormatMacAddress(address), u'-') == (address & 0xFFFFFFFFFFFF));
  Check(valid == (QXFMT_GetMacAddress(text, *text) >> 48 == 0));
  static_cast<void>(format.FormatMacAddress(data, static_cast<std::int32_t>(size)));
}
