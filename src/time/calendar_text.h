#pragma once

// What every text of a date has in common: the layouts, the months, and the way from a timestamp to
// its parts. Inline where a timestamp's way leads through.

#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/formats.h>
#include <qxfmt/text.h>

#include "frame/bounded_print.h"
#include "frame/digits.h"
#include "frame/result_block.h"
#include "frame/settings.h"
#include "time/calendar_fields.h"
#include "time/local_time.h"
#include "time/separated_pairs.h"

namespace qxfmt {

inline constexpr ResultText kTimeOutOfRange = u"TIME_OUT_RANGE";

// The fields of an admitted timestamp in whole seconds. Otherwise the text to return in place of a
// result: one for a time out of range, the empty text if the zone conversion fails. Null means
// admitted. The test of the raw input against 0 is the caller's, and comes first.
inline ResultText AdmitSeconds(std::int64_t seconds, CalendarFields& fields) {
  // Unsigned, so that whatever is negative lies above the limit.
  if (static_cast<std::uint64_t>(seconds) > std::uint64_t{QXFMT_TIME_LIMIT}) return kTimeOutOfRange;
  return ToLocalTime(seconds, fields) ? nullptr : kEmptyText;
}

// The setting in place of QXFMT_DATE_DEFAULT; for any other layout it is not read.
inline QXFMT_DATE_FORMAT ResolveLayout(QXFMT_DATE_FORMAT layout) {
  return layout == QXFMT_DATE_DEFAULT ? settings.date_time_format.Get() : layout;
}

// "%d", year: 100 to 9999.
inline char16_t* WriteYear(char16_t* out, std::uint32_t year) {
  if (year < 1000) [[unlikely]] {  // no timestamp's, but an OLE date may have it
    WriteDigits(out, year, 3);
    return out + 3;
  }
  WriteDigitPair(out, year / 100);
  WriteDigitPair(out + 2, year % 100);
  return out + 4;
}

// "%d/%02d/%02d"
inline char16_t* WriteYearFirst(char16_t* out, std::uint32_t year, std::uint32_t second,
                                std::uint32_t third) {
  out = WriteYear(out, year);
  out = WriteSeparatedPair<u'/'>(out, second);
  return WriteSeparatedPair<u'/'>(out, third);
}

// The layouts but QXFMT_DATE_YMD and what acts as it.
char16_t* WriteOtherDate(char16_t* out, std::uint32_t year, std::uint32_t month, std::uint32_t day,
                         QXFMT_DATE_FORMAT layout);

// Writes a date in a resolved layout to a block of 128 bytes and returns its end, where a
// terminator stands: 14 units at most. year: 100 to 9999.
inline char16_t* WriteDate(char16_t* out, std::uint32_t year, std::uint32_t month,
                           std::uint32_t day, QXFMT_DATE_FORMAT layout) {
  const bool is_other = layout >= QXFMT_DATE_YDM && layout <= QXFMT_DATE_DMY;
  return is_other ? WriteOtherDate(out, year, month, day, layout)
                  : WriteYearFirst(out, year, month, day);
}

// The date part of a dated text, at the start of the text's block: what FormatDate gives for these
// seconds, which were admitted before. As FormatDate does, it takes a block; but the date goes
// straight to the place where it shows. Seconds of 0 give no text and take no block. Returns the
// end of the text.
inline char16_t* WriteDatePart(CQXBlockBuffer& arena, char16_t* out, std::int64_t seconds,
                               const CalendarFields& fields, QXFMT_DATE_FORMAT layout) {
  if (seconds == 0) return out;
  const ResultBlock<128> block(arena);
  if (block.missing()) return out + BoundedPrint<u"%s">(out, block.kPrintLimit, kMemoryError);
  return WriteDate(out, fields.year, fields.month, fields.day, ResolveLayout(layout));
}

// Writes the time of day, "06:13:20", without any locale. Returns the end, where a terminator
// stands.
inline char16_t* WriteTime(char16_t* out, const CalendarFields& fields) {
  WriteDigitPair(out, fields.hour);
  out = WriteSeparatedPair<u':'>(out + 2, fields.minute);
  return WriteSeparatedPair<u':'>(out, fields.second);
}

// The same with a blank before it.
inline char16_t* WriteTimeBehindDate(char16_t* out, const CalendarFields& fields) {
  out = WriteSeparatedPair<u' '>(out, fields.hour);
  out = WriteSeparatedPair<u':'>(out, fields.minute);
  return WriteSeparatedPair<u':'>(out, fields.second);
}

}  // namespace qxfmt
