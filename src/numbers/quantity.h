#pragma once

// Sizes and rates: one engine for a number with its unit.

#include <cstddef>
#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/formats.h>
#include <qxfmt/text.h>

#include "frame/settings.h"

namespace qxfmt {

inline constexpr int kSteps = 5;

// How values scale in five steps, one for each of QXFMT_BYTES_B to QXFMT_BYTES_TB.
struct Scale {
  // A value below below[i] takes step i; one that is below none takes the last.
  std::int64_t below[kSteps - 1];
  bool is_binary;
  // In step i the number is the value times factor[i], for a binary scale, or over it.
  double factor[kSteps];
  // A binary scale shifts an integer without decimals to step i: what is less is cut off and not
  // rounded.
  int shift[kSteps];
};

inline constexpr Scale kByteScale = {{1LL << 10, 1LL << 20, 1LL << 30, 1LL << 40},
                                     true,
                                     {1, 0x1p-10, 0x1p-20, 0x1p-30, 0x1p-40},
                                     {0, 10, 20, 30, 40}};

inline constexpr Scale kBitScale = {
    {1'000, 1'000'000, 1'000'000'000, 1'000'000'000'000}, false, {1, 1e3, 1e6, 1e9, 1e12}, {}};

// The text after the number, with the blank before it: " MBps".
struct Suffix {
  template <std::size_t kSize>
  constexpr Suffix(const char16_t (&literal)[kSize]) : size(kSize - 1) {
    for (std::size_t i = 0; i < kSize; ++i) text[i] = literal[i];
  }

  char16_t text[6]{};
  std::uint16_t size;
};

// What a family of operations has in common.
struct Quantity {
  const Scale& scale;
  const Setting<QXFMT_BYTES_FORMAT>& unit_setting;
  Suffix suffixes[kSteps];
};

// unit: the caller's argument, QXFMT_BYTES_AUTO where there is none.
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, std::uint64_t value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) noexcept;
ResultText FormatQuantity(CQXBlockBuffer& arena, const Quantity& quantity, double value,
                          QXFMT_BYTES_FORMAT unit, std::int32_t places) noexcept;

}  // namespace qxfmt
