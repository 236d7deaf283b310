#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "frame/fixed_decimal.h"
#include "frame/result_block.h"

namespace qxfmt {

using NumberBlock = ResultBlock<256>;

// Decimals that are shown: a negative count acts as 0.
inline std::int32_t ClampPlaces(std::int32_t places) { return std::clamp(places, 0, kMaxPlaces); }

// The renderer of decimals: prints the number into the block, grouped or not. Returns the text with
// its size, or the memory error where the block is missing. places: any.
std::u16string_view RenderDecimal(const NumberBlock& block, double value, std::int32_t places,
                                  std::int32_t grouped);

}  // namespace qxfmt
