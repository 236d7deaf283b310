#pragma once

// Sizes and rates: one engine for a number with a unit behind it.

#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/formats.h>
#include <qxfmt/text.h>

#include "frame/settings.h"

namespace qxfmt {

enum class Scale : std::uint8_t {
  kBinary,   // bytes, by powers of 1024
  kDecimal,  // bits, by powers of 1000
};

// The text behind the number, its blank before it; filled up with terminators.
struct UnitText {
  static constexpr std::int32_t kMaxSize = 5;
  char16_t units[kMaxSize + 1];
};

// What a family of operations has of its own.
struct Quantity {
  Scale scale;
  const Setting<QXFMT_BYTES_FORMAT>& unit_setting;
  UnitText unit_texts[5];  // QXFMT_BYTES_B to QXFMT_BYTES_TB
};

// unit: the caller's argument, QXFMT_BYTES_AUTO where there is none.
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, std::uint64_t value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places);
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, double value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places);

}  // namespace qxfmt
