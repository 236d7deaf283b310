#include "numbers/decimal_text.h"

#include <algorithm>

#include <qxfmt/data_format.h>

#include "frame/bounded_print.h"
#include "frame/settings.h"
#include "numbers/grouping.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kMaxMinimumDigits = 6;
// Ungrouped decimals stop short of the block's own limit.
constexpr std::int32_t kPlainLimit = 120;
constexpr std::int32_t kScratchLimit = NumberBlock::kPrintLimit;

std::size_t Units(std::int32_t printed) {
  return static_cast<std::size_t>(std::max(printed, 0));  // a refused print left the empty text
}

// Through a scratch area; what does not fit it, or with its commas not the block, comes out empty.
template <Pattern kPattern, typename Value>
std::size_t PrintGrouped(const NumberBlock& block, const WithPrecision<Value>& number) {
  char16_t scratch[kScratchLimit];
  const std::size_t size = Units(BoundedPrint<kPattern>(scratch, kScratchLimit, number));
  return Units(CopyGrouped(block.units(), block.kPrintLimit, {scratch, size}));
}

std::size_t PrintDecimal(const NumberBlock& block, const WithPrecision<double>& number,
                         std::int32_t grouped) {
  if (grouped == 0) return Units(BoundedPrint<u"%.*f">(block.units(), kPlainLimit, number));
  FastDecimal decimal;
  if (!decimal.Read(number.value, number.precision)) return PrintGrouped<u"%.*f">(block, number);
  // At most 72 units, so that no limit is near.
  char16_t* const end = decimal.Write<Grouping::kCommas>(block.units());
  *end = u'\0';
  return static_cast<std::size_t>(end - block.units());
}

// Two decimals, without the renderer.
template <std::uint32_t kBytes>
ResultText FormatTwoDecimals(CQXBlockBuffer& arena, double value) {
  const ResultBlock<kBytes> block(arena);
  if (block.missing()) return kMemoryError;
  BoundedPrint<u"%.2f">(block.units(), ResultBlock<kBytes>::kPrintLimit, value);
  return block.Finish();
}

}  // namespace

std::u16string_view RenderDecimal(const NumberBlock& block, double value, std::int32_t places,
                                  std::int32_t grouped) {
  if (block.missing()) return kMemoryError;
  const std::size_t size = PrintDecimal(block, {value, ClampPlaces(places)}, grouped);
  return {block.Finish(), size};
}

}  // namespace qxfmt

using qxfmt::NumberBlock;
using qxfmt::RenderDecimal;

ResultText CQXDataFormat::FormatNumberEx(double value, std::int32_t places, std::int32_t grouped) {
  return RenderDecimal(NumberBlock(blocks_), value, places, grouped).data();
}

ResultText CQXDataFormat::FormatNumber(double value, std::int32_t grouped) {
  const std::int32_t places = qxfmt::settings.number_decimal_places.Get();
  return RenderDecimal(NumberBlock(blocks_), value, places, grouped).data();
}

ResultText CQXDataFormat::FormatNumberEx(std::uint64_t value, std::int32_t places,
                                         std::int32_t grouped) {
  const NumberBlock block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  const qxfmt::WithPrecision<std::uint64_t> number{value,
                                                   std::clamp(places, 0, qxfmt::kMaxMinimumDigits)};
  if (grouped == 0) {
    qxfmt::BoundedPrint<u"%.*I64u">(block.units(), block.kPrintLimit, number);
  } else {
    qxfmt::PrintGrouped<u"%.*I64u">(block, number);
  }
  return block.Finish();
}

ResultText CQXDataFormat::FormatDecimal(float value) {
  return qxfmt::FormatTwoDecimals<128>(blocks_, double{value});
}

ResultText CQXDataFormat::FormatDecimal(double value) {
  return qxfmt::FormatTwoDecimals<256>(blocks_, value);
}
