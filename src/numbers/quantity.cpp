#include "numbers/quantity.h"

#include <cstring>
#include <limits>

#include "frame/result.h"
#include "numbers/decimal_text.h"
#include "text/fixed_decimal.h"

namespace qxfmt {

namespace {

struct Choice {
  int step;  // index into the scale and the suffixes
  Grouping grouping;
};

int IndexOf(QXFMT_BYTES_FORMAT unit) {
  // Outside the list: unscaled, with the text of the smallest unit.
  return unit >= QXFMT_BYTES_B && unit <= QXFMT_BYTES_TB ? unit - QXFMT_BYTES_B : 0;
}

int IndexByMagnitude(const Scale& scale, std::int64_t magnitude) {
  // Counted instead of searched: the magnitudes of a table's cells are hard to predict.
  int index = 0;
  for (const std::int64_t below : scale.below) index += magnitude >= below ? 1 : 0;
  return index;
}

Choice ChooseUnit(const Quantity& quantity, QXFMT_BYTES_FORMAT argument, std::int64_t magnitude) {
  if (argument != QXFMT_BYTES_AUTO) return {IndexOf(argument), Grouping::kCommas};
  const QXFMT_BYTES_FORMAT setting = quantity.unit_setting.Get();
  if (setting != QXFMT_BYTES_AUTO) return {IndexOf(setting), Grouping::kNone};
  return {IndexByMagnitude(quantity.scale, magnitude), Grouping::kNone};
}

// What the unit is chosen by. It is signed: an integer of 2^63 or more counts as negative and takes
// the smallest unit.
std::int64_t ToSigned(std::uint64_t value) { return static_cast<std::int64_t>(value); }

// A double is truncated; one without a signed 64-bit form, NaN included, takes the smallest unit
// too.
std::int64_t ToSigned(double value) {
  const bool has_form = value >= -0x1p63 && value < 0x1p63;
  return has_form ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::min();
}

// From 2^63 on in two rounded steps: as a signed number, and then 2^64 added.
double ToDouble(std::uint64_t value) {
  const auto converted = static_cast<double>(static_cast<std::int64_t>(value));
  return (value >> 63) != 0 ? converted + 0x1p64 : converted;
}

double ScaleValue(const Scale& scale, double value, int step, std::int32_t /*places*/) {
  return scale.is_binary ? value * scale.factor[step] : value / scale.factor[step];
}

double ScaleValue(const Scale& scale, std::uint64_t value, int step, std::int32_t places) {
  if (scale.is_binary && places < 1) return ToDouble(value >> scale.shift[step]);
  return ScaleValue(scale, ToDouble(value), step, places);
}

// In one copy of a fixed size.
class SuffixField {
 public:
  static constexpr std::int32_t kMaxSize = 5;
  static constexpr std::int32_t kSlack = 1;

  explicit SuffixField(const Suffix& suffix) : suffix_(suffix) {}

  char16_t* Write(char16_t* out) const {
    std::memcpy(out, suffix_.text, sizeof(suffix_.text));
    return out + suffix_.size;
  }

 private:
  const Suffix& suffix_;
};

template <typename Value>
ResultText Format(CQXBlockBuffer& arena, const Quantity& quantity, Value value,
                  QXFMT_BYTES_FORMAT unit_argument, std::int32_t places) noexcept {
  return FillResult<128>(arena, [&](auto block) {
    const Choice choice = ChooseUnit(quantity, unit_argument, ToSigned(value));
    const SuffixField suffix(quantity.suffixes[choice.step]);
    if (!TakeInnerBlock<kDecimalBlock>(arena)) {
      return block.Print(kMemoryError, suffix);
    }
    const double scaled = ScaleValue(quantity.scale, value, choice.step, places);
    return WithDecimal(scaled, places, choice.grouping, [&](const auto& number) {
      // A number that is too long for its own block is dropped, and the suffix stays.
      const auto limit = static_cast<std::size_t>(DecimalLimit(choice.grouping));
      return SizeBound(number) < limit ? block.Print(number, suffix) : block.Print(suffix);
    });
  });
}

}  // namespace

ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, std::uint64_t value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) noexcept {
  return Format(arena, quantity, value, unit, places);
}

ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, double value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) noexcept {
  return Format(arena, quantity, value, unit, places);
}

}  // namespace qxfmt
