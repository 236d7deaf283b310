#pragma once

#include <cstddef>
#include <cstdint>

#include <qxfmt/formats.h>

namespace qxfmt {

struct DurationWords {
  std::size_t size;  // units written, without a terminator
  bool shows_value;  // whether a unit with a value above 0 shows
};

// What a target must hold. 213503d23h34m33s709ms551us615ns, the words of 2^64 - 1, have 31 units;
// behind them there is room for a field that then does not show: no digits, but the four units that
// a number writes.
inline constexpr std::size_t kDurationWordsRoom = 31 + 4;

// Writes the words of a duration, as CQXDataFormat::FormatDuration puts them into a text. The
// magnitude is unsigned, so that every product and every negated count has its words.
DurationWords WriteDurationWords(char16_t* out, QXFMT_TIME_ACCURACY accuracy,
                                 QXFMT_DURATION_FORMAT format, std::uint64_t nanoseconds);

}  // namespace qxfmt
