#include "time/worded_durations.h"

#include <cstring>

#include <qxfmt/data_format.h>
#include <qxfmt/growable_text.h>

#include "text/bounded_print.h"
#include "text/decimal.h"
#include "text/digits.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kFields = 7;
constexpr std::int32_t kSecondsField = 3;

struct UnitWord {
  char16_t text[2];
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

char16_t* WriteWord(char16_t* out, const UnitWord& word) {
  std::memcpy(out, word.text, sizeof(word.text));
  return out + word.size;
}

constexpr std::uint64_t kFinest[] = {1'000'000'000, 1'000'000, 1'000, 1};  // by accuracy

// An accuracy outside its list ends the words nowhere, and shows no 0.
bool IsListed(QXFMT_TIME_ACCURACY accuracy) {
  return accuracy >= QXFMT_TIME_SECOND && accuracy <= QXFMT_TIME_NSECOND;
}

}  // namespace

bool DurationWords::ShowsValue() const {
  return nanoseconds_ >= (IsListed(accuracy_) ? kFinest[accuracy_] : 1);
}

char16_t* DurationWords::Write(char16_t* out) const {
  const UnitWords& words = format_ == QXFMT_DURATION_WORDS_CN ? kChineseWords : kLatinWords;
  const std::int32_t last = IsListed(accuracy_) ? kSecondsField + accuracy_ : kFields - 1;
  if (!ShowsValue()) {
    if (!IsListed(accuracy_)) return out;
    *out = u'0';
    return WriteWord(out + 1, words[last]);
  }
  const DurationFields fields(nanoseconds_);
  std::int32_t i = 0;
  if (fields.values[0] >= SmallNumbers::kCount) [[unlikely]] {
    out = WriteWhole(out, fields.values[0]);
    out = WriteWord(out, words[0]);
    i = 1;
  }
  // Each field is written, and then passed over if its value is not 0: which ones show is hard to
  // predict.
  for (; i <= last; ++i) {
    const auto size = WriteWord(WriteSmall(out, fields.values[i]), words[i]) - out;
    out += size & (0 - static_cast<std::ptrdiff_t>(fields.values[i] > 0));
  }
  return out;
}

}  // namespace qxfmt

void CQXDataFormat::FormatDuration(QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                                   std::int64_t nanoseconds, GrowableText& result) {
  constexpr std::int32_t kRoom = qxfmt::Minus::kMaxSize + qxfmt::DurationWords::kMaxSize + 1;
  const qxfmt::DurationWords words(accuracy, format, qxfmt::MagnitudeOf(nanoseconds));
  const qxfmt::Minus minus(nanoseconds < 0 && words.ShowsValue());
  char16_t units[kRoom];
  const std::int32_t size = qxfmt::BoundedPrint(units, kRoom, minus, words);
  result.assign(std::u16string_view(units, static_cast<std::size_t>(size)));
}

void CQXDataFormat::FormatPositiveDataAndUnit(std::int32_t value, const GrowableText& unit,
                                              GrowableText& result) {
  if (value > 0) FormatDataAndUnit(value, unit, result);
}

void CQXDataFormat::FormatDataAndUnit(std::int32_t value, const GrowableText& unit,
                                      GrowableText& result) {
  result.append_format(u"%d%s", value, unit);
}
