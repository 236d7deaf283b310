#pragma once

#include <cstdint>
#include <string_view>

#include <qxfmt/block_buffer.h>
#include <qxfmt/text.h>

#include "frame/result_block.h"

namespace qxfmt {

// The renderer of decimals: a block of 256 bytes with the number in it, grouped or not. places:
// any; taken as 0 below 0 and as 32 above 32. Returns the text with its size, or the memory error.
std::u16string_view RenderDecimal(CQXBlockBuffer& arena, double value, std::int32_t places,
                                  std::int32_t grouped);

}  // namespace qxfmt
