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

inline constexpr std::int32_t kMaxUnitSize = 5;

// What a family of operations has of its own.
struct Quantity {
  Scale scale;
  const Setting<QXFMT_BYTES_FORMAT>& unit_setting;
  // QXFMT_BYTES_B to QXFMT_BYTES_TB, each with the blank before it.
  char16_t unit_texts[5][kMaxUnitSize + 1];
};

// unit: the caller's argument, QXFMT_BYTES_AUTO where there is none.
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, std::uint64_t value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places);
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, double value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places);

}  // namespace qxfmt
