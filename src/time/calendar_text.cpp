#include "time/calendar_text.h"

namespace qxfmt {

namespace {

// A month's text and the blank after it, in one copy of a fixed size.
struct MonthAbbreviation {
  char16_t units[6];
  std::uint16_t size;
};

constexpr MonthAbbreviation MonthAbbreviations[] = {
    {u"Jan. ", 5}, {u"Feb. ", 5}, {u"Mar. ", 5}, {u"Apr. ", 5}, {u"May ", 4},  {u"Jun. ", 5},
    {u"Jul. ", 5}, {u"Aug. ", 5}, {u"Sep. ", 5}, {u"Oct. ", 5}, {u"Nov. ", 5}, {u"Dec. ", 5}};

// "Nov. 15, 2023"
char16_t* WriteMonthName(char16_t* out, const CalendarFields& fields) {
  const MonthAbbreviation& month = MonthAbbreviations[fields.month - 1];
  std::memcpy(out, month.units, sizeof(month.units));
  out = WriteSmall(out + month.size, fields.day);
  out[0] = u',';
  out[1] = u' ';
  return WriteYear(out + 2, fields.year);
}

// "11/15/2023": the year last.
char16_t* WriteYearLast(char16_t* out, std::uint32_t first, std::uint32_t second,
                        std::uint32_t year) {
  out = WritePair(out, first);
  out = WriteSeparatedPair(out, u'/', second);
  *out = u'/';
  return WriteYear(out + 1, year);
}

}  // namespace

char16_t* WriteOtherDate(char16_t* out, const CalendarFields& fields, QXFMT_DATE_FORMAT layout) {
  switch (layout) {
    case QXFMT_DATE_YDM:
      return WriteYearFirst(out, fields.year, fields.day, fields.month);
    case QXFMT_DATE_MDY:
      return WriteYearLast(out, fields.month, fields.day, fields.year);
    case QXFMT_DATE_MONTH_NAME:
      return WriteMonthName(out, fields);
    default:
      return WriteYearLast(out, fields.day, fields.month, fields.year);
  }
}

}  // namespace qxfmt
