#include <cstddef>

#include <qxfmt/data_format.h>

#include "frame/settings.h"
#include "numbers/decimal_text.h"
#include "numbers/integer_text.h"

namespace {

using qxfmt::settings;

// A setting of decimals by name, a grouping switch by use.
std::int32_t GroupingSetting() { return settings.percentage_decimal_places.Get(); }

void AppendPercentSign(char16_t* text, std::size_t size) {
  text[size] = u'%';
  text[size + 1] = u'\0';
}

}  // namespace

ResultText CQXDataFormat::FormatPercentage(std::int32_t value) {
  const qxfmt::ResultBlock<128> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  // Wraps modulo 2^32, which only unsigned arithmetic may.
  const auto product = static_cast<std::int32_t>(static_cast<std::uint32_t>(value) * 100U);
  const std::int32_t size = qxfmt::PrintInteger<u"%ld">(block, product, GroupingSetting());
  AppendPercentSign(block.units(), static_cast<std::size_t>(size));
  return block.Finish();
}

ResultText CQXDataFormat::FormatPercentage(float value) {
  const float product = value * 100.0F;  // single precision shows in the digits
  const qxfmt::NumberBlock block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  const std::u16string_view number = qxfmt::RenderDecimal(
      block, double{product}, settings.number_decimal_places.Get(), GroupingSetting());
  // The longest product of a float leaves room in the block.
  AppendPercentSign(block.units(), number.size());
  return block.Finish();
}
