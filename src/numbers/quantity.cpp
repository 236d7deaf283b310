#include "numbers/quantity.h"

#include <cstring>
#include <limits>

#include "frame/bounded_print.h"
#include "frame/result_block.h"
#include "numbers/decimal_text.h"

namespace qxfmt {

namespace {

// The scales, indexed by unit less QXFMT_BYTES_B. A value below kBelow[i] takes unit i; what is
// below none takes the last.
constexpr int kUnits = 5;
constexpr std::int64_t kBinaryBelow[] = {1LL << 10, 1LL << 20, 1LL << 30, 1LL << 40};
constexpr std::int64_t kDecimalBelow[] = {1'000, 1'000'000, 1'000'000'000, 1'000'000'000'000};
constexpr double kBinaryFactor[kUnits] = {1.0, 0x1p-10, 0x1p-20, 0x1p-30, 0x1p-40};
constexpr int kBinaryShift[kUnits] = {0, 10, 20, 30, 40};
constexpr double kDecimalDivisor[kUnits] = {1.0, 1e3, 1e6, 1e9, 1e12};

struct Choice {
  int unit;  // index into the scales
  std::int32_t grouped;
};

int IndexOf(QXFMT_BYTES_FORMAT unit) {
  // Outside the list: unscaled, with the text of the smallest unit.
  return unit >= QXFMT_BYTES_B && unit <= QXFMT_BYTES_TB ? unit - QXFMT_BYTES_B : 0;
}

int IndexByMagnitude(Scale scale, std::int64_t magnitude) {
  const std::int64_t* const below = scale == Scale::kBinary ? kBinaryBelow : kDecimalBelow;
  // Counted instead of searched: the magnitudes of a table's cells are hard to predict.
  int index = 0;
  for (int i = 0; i < kUnits - 1; ++i) index += magnitude >= below[i] ? 1 : 0;
  return index;
}

Choice ChooseUnit(const Quantity& quantity, QXFMT_BYTES_FORMAT argument, std::int64_t magnitude) {
  if (argument != QXFMT_BYTES_AUTO) return {IndexOf(argument), 1};
  const QXFMT_BYTES_FORMAT setting = quantity.unit_setting.Get();
  if (setting != QXFMT_BYTES_AUTO) return {IndexOf(setting), 0};
  return {IndexByMagnitude(quantity.scale, magnitude), 0};
}

// Magnitudes are compared as signed: an integer of 2^63 or more counts as negative and takes the
// smallest unit.
std::int64_t MagnitudeOf(std::uint64_t value) { return static_cast<std::int64_t>(value); }

// A double is truncated; one without a signed 64-bit form, NaN included, takes the smallest unit
// too.
std::int64_t MagnitudeOf(double value) {
  const bool has_form = value >= -0x1p63 && value < 0x1p63;
  return has_form ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::min();
}

// From 2^63 on in two rounded steps: as a signed number, and then 2^64 added.
double ToDouble(std::uint64_t value) {
  const auto converted = static_cast<double>(static_cast<std::int64_t>(value));
  return (value >> 63) != 0 ? converted + 0x1p64 : converted;
}

double ScaleValue(Scale scale, std::uint64_t value, int unit, std::int32_t places) {
  if (scale == Scale::kDecimal) return ToDouble(value) / kDecimalDivisor[unit];
  if (places < 1) return ToDouble(value >> kBinaryShift[unit]);  // cut off, not rounded
  return ToDouble(value) * kBinaryFactor[unit];
}

double ScaleValue(Scale scale, double value, int unit, std::int32_t /*places*/) {
  return scale == Scale::kDecimal ? value / kDecimalDivisor[unit] : value * kBinaryFactor[unit];
}

using QuantityBlock = ResultBlock<128>;

// Straight into the result, without the copy from the number's own block. False if the number is
// none for the fast path or could come near the limit.
bool PrintFast(const QuantityBlock& block, double number, std::int32_t places, std::int32_t grouped,
               const char16_t* unit) {
  FastDecimal decimal;
  if (!decimal.Read(number, ClampPlaces(places)) || decimal.is_wide()) return false;
  static_assert(FastDecimal::kNarrowSize + kMaxUnitSize < QuantityBlock::kPrintLimit);
  char16_t* const end = grouped != 0 ? decimal.Write<Grouping::kCommas>(block.units())
                                     : decimal.Write<Grouping::kNone>(block.units());
  std::memcpy(end, unit, (kMaxUnitSize + 1) * sizeof(char16_t));  // terminated, whatever its size
  return true;
}

template <typename Value>
ResultText Format(CQXBlockBuffer& arena, const Quantity& quantity, Value value,
                  QXFMT_BYTES_FORMAT unit_argument, std::int32_t places) {
  const QuantityBlock block(arena);
  if (block.missing()) return kMemoryError;
  const auto [unit_index, grouped] = ChooseUnit(quantity, unit_argument, MagnitudeOf(value));
  const char16_t* const unit = quantity.unit_texts[unit_index];
  const double number = ScaleValue(quantity.scale, value, unit_index, places);
  const NumberBlock number_block(arena);
  if (number_block.missing() || !PrintFast(block, number, places, grouped, unit)) {
    BoundedPrint<u"%s%s">(block.units(), block.kPrintLimit,
                          RenderDecimal(number_block, number, places, grouped), unit);
  }
  return block.Finish();
}

}  // namespace

ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, std::uint64_t value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) {
  return Format(arena, quantity, value, unit, places);
}

ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, double value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) {
  return Format(arena, quantity, value, unit, places);
}

}  // namespace qxfmt
