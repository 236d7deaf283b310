#include "time/calendar_text.h"

#include <cstring>

namespace qxfmt {

namespace {

// A month's text and the blank after it, in one copy of a fixed size.
struct MonthAbbreviation {
  char16_t text[6];
  std::uint16_t size;
};

constexpr MonthAbbreviation MonthAbbreviations[] = {
    {u"Jan. ", 5}, {u"Feb. ", 5}, {u"Mar. ", 5}, {u"Apr. ", 5}, {u"May ", 4},  {u"Jun. ", 5},
    {u"Jul. ", 5}, {u"Aug. ", 5}, {u"Sep. ", 5}, {u"Oct. ", 5}, {u"Nov. ", 5}, {u"Dec. ", 5}};

// "Nov. 15, 2023"
char16_t* WriteMonthName(char16_t* out, std::uint32_t year, std::uint32_t month,
                         std::uint32_t day) {
  const MonthAbbreviation& name = MonthAbbreviations[month - 1];
  std::memcpy(out, name.text, sizeof(name.text));
  out = WriteSmall(out + name.size, day);
  out[0] = u',';
  out[1] = u' ';
  return WriteYear(out + 2, year);
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

char16_t* WriteOtherDate(char16_t* out, std::uint32_t year, std::uint32_t month, std::uint32_t day,
                         QXFMT_DATE_FORMAT layout) noexcept {
  switch (layout) {
    case QXFMT_DATE_YDM:
      return WriteYearFirst(out, year, day, month);
    case QXFMT_DATE_MDY:
      return WriteYearLast(out, month, day, year);
    case QXFMT_DATE_MONTH_NAME:
      return WriteMonthName(out, year, month, day);
    default:
      return WriteYearLast(out, day, month, year);
  }
}

}  // namespace qxfmt
