#pragma once

#include <cstdint>

#include <qxfmt/formats.h>

namespace qxfmt {

// The words of a duration as a field, as CQXDataFormat::FormatDuration puts them into a text.
class DurationWords {
 public:
  // 213503d23h34m33s709ms551us615ns are the words of 2^64 - 1.
  static constexpr std::int32_t kMaxSize = 31;
  // A value and its unit that are written and then do not show touch four units, and before the
  // last ones stand 26 at most.
  static constexpr std::int32_t kSlack = 0;

  // The magnitude is unsigned, so that every product and every negated count has its words.
  DurationWords(QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                std::uint64_t nanoseconds)
      : accuracy_(accuracy), format_(format), nanoseconds_(nanoseconds) {}

  char16_t* Write(char16_t* out) const;

  // Whether a value above 0 shows.
  bool ShowsValue() const;

 private:
  QXFMT_TIME_ACCURACY accuracy_;
  QXFMT_DURATION_FORMAT format_;
  std::uint64_t nanoseconds_;
};

}  // namespace qxfmt
