#include "numbers/decimal_text.h"

#include <algorithm>

#include <qxfmt/data_format.h>

#include "frame/bounded_print.h"
#include "frame/settings.h"
#include "numbers/grouping.h"

namespace qxfmt {

namespace {

using NumberBlock = ResultBlock<256>;

constexpr std::int32_t kMaxPlaces = FixedDecimal::kMaxPlaces;
constexpr std::int32_t kMaxMinimumDigits = 6;
// Ungrouped decimals stop short of the block's own limit.
constexpr std::int32_t kPlainLimit = 120;
constexpr std::int32_t kScratchLimit = NumberBlock::kPrintLimit;

std::size_t Units(std::int32_t printed) {
  return static_cast<std::size_t>(std::max(printed, 0));  // a refused print left the empty text
}

// Prints into the block, with the limit given, or through a scratch area with commas.
template <Pattern kPattern, typename Value>
std::size_t PrintNumber(const NumberBlock& block, std::int32_t limit,
                        const WithPrecision<Value>& number, std::int32_t grouped) {
  if (grouped == 0) return Units(BoundedPrint<kPattern>(block.units(), limit, number));
  char16_t scratch[kScratchLimit];
  const std::size_t size = Units(BoundedPrint<kPattern>(scratch, kScratchLimit, number));
  return Units(CopyGrouped(block.units(), NumberBlock::kPrintLimit, {scratch, size}));
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

std::u16string_view RenderDecimal(CQXBlockBuffer& arena, double value, std::int32_t places,
                                  std::int32_t grouped) {
  const NumberBlock block(arena);
  if (block.missing()) return kMemoryError;
  const std::int32_t shown = std::clamp(places, 0, kMaxPlaces);
  const std::size_t size =
      PrintNumber<u"%.*f">(block, kPlainLimit, WithPrecision<double>{value, shown}, grouped);
  return {block.Finish(), size};
}

}  // namespace qxfmt

using qxfmt::RenderDecimal;

ResultText CQXDataFormat::FormatNumberEx(double value, std::int32_t places, std::int32_t grouped) {
  return RenderDecimal(blocks_, value, places, grouped).data();
}

ResultText CQXDataFormat::FormatNumber(double value, std::int32_t grouped) {
  const std::int32_t places = qxfmt::settings.number_decimal_places.Get();
  return RenderDecimal(blocks_, value, places, grouped).data();
}

ResultText CQXDataFormat::FormatNumberEx(std::uint64_t value, std::int32_t places,
                                         std::int32_t grouped) {
  const qxfmt::NumberBlock block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  const std::int32_t digits = std::clamp(places, 0, qxfmt::kMaxMinimumDigits);
  qxfmt::PrintNumber<u"%.*I64u">(block, qxfmt::NumberBlock::kPrintLimit,
                                 qxfmt::WithPrecision<std::uint64_t>{value, digits}, grouped);
  return block.Finish();
}

ResultText CQXDataFormat::FormatDecimal(float value) {
  return qxfmt::FormatTwoDecimals<128>(blocks_, double{value});
}

ResultText CQXDataFormat::FormatDecimal(double value) {
  return qxfmt::FormatTwoDecimals<256>(blocks_, value);
}
