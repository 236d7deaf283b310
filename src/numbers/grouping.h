#pragma once

// Thousands separators.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qxfmt {

// Copies a printed number with "," between groups of three digits of its integer part, counted from
// the right; sign, point and decimals are copied as they are. Always ",", whatever the locale.
// Writes a terminator behind the text and returns the count of units before it. A text that with
// its commas has more than `room` units comes out empty.
std::int32_t CopyGrouped(char16_t* out, std::int32_t room, std::u16string_view number);

}  // namespace qxfmt
