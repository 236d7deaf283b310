#include "time/worded_durations.h"

#include <array>
#include <cstring>

#include <qxfmt/data_format.h>
#include <qxfmt/growable_text.h>

#include "frame/digits.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kFields = 7;
constexpr std::int32_t kSecondsField = 3;

struct UnitWord {
  char16_t units[2];
  std::uint8_t size;
};

using UnitWords = UnitWord[kFields];

constexpr UnitWords kChineseWords = {{{u'天'}, 1},       {{u'时'}, 1},        {{u'分'}, 1},
                                     {{u'秒'}, 1},       {{u'毫', u'秒'}, 2}, {{u'微', u'秒'}, 2},
                                     {{u'纳', u'秒'}, 2}};
constexpr UnitWords kLatinWords = {{{u'd'}, 1},      {{u'h'}, 1},       {{u'm'}, 1},
                                   {{u's'}, 1},      {{u'm', u's'}, 2}, {{u'u', u's'}, 2},
                                   {{u'n', u's'}, 2}};

struct DurationFields {
  // Each total straight from the seconds: the divisions do not wait for each other.
  explicit DurationFields(std::uint64_t nanoseconds) {
    const std::uint64_t seconds = nanoseconds / 1'000'000'000;  // 35 bits
    const auto rest = static_cast<std::uint32_t>(nanoseconds - seconds * 1'000'000'000);
    const auto minutes = static_cast<std::uint32_t>(seconds / 60);
    const auto hours = static_cast<std::uint32_t>(seconds / 3600);
    const auto days = static_cast<std::uint32_t>(seconds / 86400);
    const std::uint32_t microseconds = rest / 1'000;
    const std::uint32_t milliseconds = rest / 1'000'000;
    values[0] = days;
    values[1] = hours - days * 24;
    values[2] = minutes - hours * 60;
    values[3] = static_cast<std::uint32_t>(seconds - std::uint64_t{minutes} * 60);
    values[4] = milliseconds;
    values[5] = microseconds - milliseconds * 1'000;
    values[6] = rest - microseconds * 1'000;
  }

  std::uint32_t values[kFields];
};

// The field behind which the walk ends; an accuracy outside its list ends it nowhere, and then no
// field is one that shows its 0.
struct Walk {
  explicit Walk(QXFMT_TIME_ACCURACY accuracy)
      : has_end(accuracy >= QXFMT_TIME_SECOND && accuracy <= QXFMT_TIME_NSECOND),
        last(has_end ? kSecondsField + accuracy : kFields - 1) {}

  bool has_end;
  std::int32_t last;
};

// A value below 1000 in decimal, without leading zeros; a 0 has no digits, since it does not show.
struct SmallNumber {
  char16_t digits[3];
  std::uint16_t size;
};

constexpr std::array<SmallNumber, 1000> MakeSmallNumbers() {
  std::array<SmallNumber, 1000> numbers{};
  for (std::uint16_t value = 1; value < 1000; ++value) {
    SmallNumber& number = numbers[value];
    std::uint16_t scale = value >= 100 ? 100 : value >= 10 ? 10 : 1;
    for (; scale > 0; scale /= 10) {
      number.digits[number.size++] = static_cast<char16_t>(u'0' + value / scale % 10);
    }
  }
  return numbers;
}

// 8 KB that take the branches out of the words: which fields show, and in how many digits, is hard
// to predict.
constexpr std::array<SmallNumber, 1000> kSmallNumbers = MakeSmallNumbers();

// Both write in one store, of which the last units may be too many, and return the count of those
// that are not.
std::size_t WriteNumber(char16_t* out, const SmallNumber& number) {
  static_assert(sizeof number == 4 * sizeof(char16_t));
  std::memcpy(out, &number, sizeof number);  // its size as well: a store of 8 bytes
  return number.size;
}

std::size_t WriteUnit(char16_t* out, const UnitWord& word) {
  std::memcpy(out, word.units, sizeof(word.units));
  return word.size;
}

std::size_t WriteDays(char16_t* out, std::uint32_t days, const UnitWord& word) {
  const std::int32_t digits = CountDigits(days);
  WriteDigits(out, days, digits);
  const auto size = static_cast<std::size_t>(digits);
  return size + WriteUnit(out + size, word);
}

}  // namespace

DurationWords WriteDurationWords(char16_t* out, QXFMT_TIME_ACCURACY accuracy,
                                 QXFMT_DURATION_FORMAT format, std::uint64_t nanoseconds) {
  const UnitWords& words = format == QXFMT_DURATION_WORDS_CN ? kChineseWords : kLatinWords;
  const DurationFields fields(nanoseconds);
  const Walk walk(accuracy);
  std::size_t size = 0;
  std::int32_t i = 0;
  if (fields.values[0] >= kSmallNumbers.size()) [[unlikely]] {
    size = WriteDays(out, fields.values[0], words[0]);
    i = 1;
  }
  for (; i <= walk.last; ++i) {
    const std::size_t digits = WriteNumber(out + size, kSmallNumbers[fields.values[i]]);
    const std::size_t unit = WriteUnit(out + size + digits, words[i]);
    size += (digits + unit) & (std::size_t{0} - (digits > 0 ? 1 : 0));
  }
  if (size > 0 || !walk.has_end) return {size, size > 0};
  out[0] = u'0';
  return {1 + WriteUnit(out + 1, words[walk.last]), false};
}

}  // namespace qxfmt

void CQXDataFormat::FormatDuration(QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                                   std::int64_t nanoseconds, GrowableText& result) {
  const auto bits = static_cast<std::uint64_t>(nanoseconds);
  const bool negative = nanoseconds < 0;
  char16_t units[qxfmt::kDurationWordsRoom];
  const qxfmt::DurationWords words =
      qxfmt::WriteDurationWords(units, accuracy, format, negative ? 0 - bits : bits);
  result.reserve(1 + words.size);  // what can throw comes before what changes
  result.assign(negative && words.shows_value ? u"-" : u"");
  result.append(std::u16string_view(units, words.size));
}

void CQXDataFormat::FormatPositiveDataAndUnit(std::int32_t value, const GrowableText& unit,
                                              GrowableText& result) {
  if (value > 0) FormatDataAndUnit(value, unit, result);
}

void CQXDataFormat::FormatDataAndUnit(std::int32_t value, const GrowableText& unit,
                                      GrowableText& result) {
  result.append_format(u"%d%s", value, unit);
}
