#include "time/calendar_text.h"

#include <string_view>

#include <qxfmt/data_format.h>

namespace qxfmt {

namespace {

constexpr std::int32_t kDateLimit = ResultBlock<128>::kPrintLimit;

constexpr std::u16string_view MonthAbbreviations[] = {u"Jan.", u"Feb.", u"Mar.", u"Apr.",
                                                      u"May",  u"Jun.", u"Jul.", u"Aug.",
                                                      u"Sep.", u"Oct.", u"Nov.", u"Dec."};

// "%02d/%02d/%d"
char16_t* WriteYearLast(char16_t* out, std::uint32_t first, std::uint32_t second,
                        std::uint32_t year) {
  WriteDigitPair(out, first);
  out = WriteSeparatedPair<u'/'>(out + 2, second);
  *out = u'/';
  out = WriteYear(out + 1, year);
  *out = u'\0';
  return out;
}

}  // namespace

char16_t* WriteOtherDate(char16_t* out, std::uint32_t year, std::uint32_t month, std::uint32_t day,
                         QXFMT_DATE_FORMAT layout) {
  switch (layout) {
    case QXFMT_DATE_YDM:
      return WriteYearFirst(out, year, day, month);
    case QXFMT_DATE_MDY:
      return WriteYearLast(out, month, day, year);
    case QXFMT_DATE_MONTH_NAME:
      return out +
             BoundedPrint<u"%s %u, %u">(out, kDateLimit, MonthAbbreviations[month - 1], day, year);
    default:
      return WriteYearLast(out, day, month, year);
  }
}

}  // namespace qxfmt

ResultText CQXDataFormat::FormatDate(std::int64_t seconds, QXFMT_DATE_FORMAT layout) {
  if (seconds == 0) return qxfmt::kEmptyText;
  qxfmt::CalendarFields fields;
  if (const ResultText refusal = qxfmt::AdmitSeconds(seconds, fields)) return refusal;
  const qxfmt::ResultBlock<128> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  qxfmt::WriteDate(block.units(), fields.year, fields.month, fields.day,
                   qxfmt::ResolveLayout(layout));
  return block.Finish();
}

ResultText CQXDataFormat::FormatTime(std::int64_t seconds) {
  if (seconds == 0) return qxfmt::kEmptyText;
  qxfmt::CalendarFields fields;
  if (const ResultText refusal = qxfmt::AdmitSeconds(seconds, fields)) return refusal;
  const qxfmt::ResultBlock<64> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  qxfmt::WriteTime(block.units(), fields);
  return block.Finish();
}

ResultText CQXDataFormat::FormatDateTime(std::int64_t seconds, QXFMT_DATE_FORMAT layout) {
  if (seconds == 0) return qxfmt::kEmptyText;
  qxfmt::CalendarFields fields;
  if (const ResultText refusal = qxfmt::AdmitSeconds(seconds, fields)) return refusal;
  const qxfmt::ResultBlock<128> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  char16_t* const date_end = qxfmt::WriteDatePart(blocks_, block.units(), seconds, fields, layout);
  qxfmt::WriteTimeBehindDate(date_end, fields);
  return block.Finish();
}
