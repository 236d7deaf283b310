#include "fuzzing.h"

using qxfmt::fuzz::Check;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const qxfmt::fuzz::Text text(data, size);
  CQXDataFormat format;

  const std::uint64_t address = QXFMT_GetMacAddress(text, u':');
  const bool valid = QXFMT_IsValidMacAddress(text) == 1;
  Check(valid ? address >> 48 == 0 : address == ~std::uint64_t{0});
  const ResultText written = format.FormatMacAddress(address);
  Check(QXFMT_GetMacAddress(written, u'-') == (address & 0xFFFFFFFFFFFF));
  Check(valid == (QXFMT_GetMacAddress(text, *text) >> 48 == 0));
  Check(QXFMT_GetHexValue(text) == 0 || *text != u'\0');
  format.FormatMacAddress(data, static_cast<std::int32_t>(size));
  return 0;
}
