#pragma once

// Dates and times of day as fields.

#include <cstdint>

#include <qxfmt/formats.h>

#include "frame/settings.h"
#include "text/digits.h"
#include "time/calendar_fields.h"

namespace qxfmt {

// The setting in place of QXFMT_DATE_DEFAULT; for any other layout it is not read.
inline QXFMT_DATE_FORMAT ResolveLayout(QXFMT_DATE_FORMAT layout) {
  return layout == QXFMT_DATE_DEFAULT ? settings.date_time_format.Get() : layout;
}

// A year from 100 to 9999.
inline char16_t* WriteYear(char16_t* out, std::uint32_t year) {
  if (year < 1000) [[unlikely]]  // no timestamp's, but an OLE date may have it
    return WriteSmall(out, year);
  WritePair(out, year / 100);
  return WritePair(out + 2, year % 100);
}

// "2023/11/15": the year first.
inline char16_t* WriteYearFirst(char16_t* out, std::uint32_t year, std::uint32_t second,
                                std::uint32_t third) {
  out = WriteYear(out, year);
  out = WriteSeparatedPair(out, u'/', second);
  return WriteSeparatedPair(out, u'/', third);
}

// The layouts but QXFMT_DATE_YMD and what acts as it. Takes values, so that the fields of the usual
// layout stay in registers.
char16_t* WriteOtherDate(char16_t* out, std::uint32_t year, std::uint32_t month, std::uint32_t day,
                         QXFMT_DATE_FORMAT layout) noexcept;

// A date in a resolved layout.
class Date {
 public:
  static constexpr std::int32_t kMaxSize = 13;  // "Nov. 15, 2023"
  static constexpr std::int32_t kSlack = 2;

  Date(const CalendarFields& fields, QXFMT_DATE_FORMAT layout) : fields_(fields), layout_(layout) {}

  char16_t* Write(char16_t* out) const {
    const bool is_other = layout_ >= QXFMT_DATE_YDM && layout_ <= QXFMT_DATE_DMY;
    return is_other ? WriteOtherDate(out, fields_.year, fields_.month, fields_.day, layout_)
                    : WriteYearFirst(out, fields_.year, fields_.month, fields_.day);
  }

 private:
  const CalendarFields& fields_;
  QXFMT_DATE_FORMAT layout_;
};

// "06:13:20", without any locale.
class TimeOfDay {
 public:
  static constexpr std::int32_t kMaxSize = 8;
  static constexpr std::int32_t kSlack = 1;

  explicit TimeOfDay(const CalendarFields& fields) : fields_(fields) {}

  char16_t* Write(char16_t* out) const {
    out = WritePair(out, fields_.hour);
    out = WriteSeparatedPair(out, u':', fields_.minute);
    return WriteSeparatedPair(out, u':', fields_.second);
  }

 private:
  const CalendarFields& fields_;
};

}  // namespace qxfmt
