#include "frame/settings.h"

#include <qxfmt/settings.h>

using qxfmt::settings;

void QXFMT_SetByteFormat(QXFMT_BYTES_FORMAT format) noexcept { settings.byte_format.Set(format); }
QXFMT_BYTES_FORMAT QXFMT_GetByteFormat() noexcept { return settings.byte_format.Get(); }

void QXFMT_SetBitFormat(QXFMT_BYTES_FORMAT format) noexcept { settings.bit_format.Set(format); }
QXFMT_BYTES_FORMAT QXFMT_GetBitFormat() noexcept { return settings.bit_format.Get(); }

void QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_FORMAT format) noexcept {
  settings.byte_per_second_format.Set(format);
}
QXFMT_BYTES_FORMAT QXFMT_GetBytePerSecondFormat() noexcept {
  return settings.byte_per_second_format.Get();
}

void QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_FORMAT format) noexcept {
  settings.bit_per_second_format.Set(format);
}
QXFMT_BYTES_FORMAT QXFMT_GetBitPerSecondFormat() noexcept {
  return settings.bit_per_second_format.Get();
}

void QXFMT_SetNumberDecimalPlaces(std::int32_t places) noexcept {
  settings.number_decimal_places.Set(places);
}
std::int32_t QXFMT_GetNumberDecimalPlaces() noexcept {
  return settings.number_decimal_places.Get();
}

void QXFMT_SetPercentageDecimalPlaces(std::int32_t places) noexcept {
  settings.percentage_decimal_places.Set(places);
}
std::int32_t QXFMT_GetPercentageDecimalPlaces() noexcept {
  return settings.percentage_decimal_places.Get();
}

void QXFMT_SetDateTimeFormat(QXFMT_DATE_FORMAT format) noexcept {
  settings.date_time_format.Set(format);
}
QXFMT_DATE_FORMAT QXFMT_GetDateTimeFormat() noexcept { return settings.date_time_format.Get(); }

void QXFMT_SetTimeAccuracy(QXFMT_TIME_ACCURACY accuracy) noexcept {
  settings.time_accuracy.Set(accuracy);
}
QXFMT_TIME_ACCURACY QXFMT_GetTimeAccuracy() noexcept { return settings.time_accuracy.Get(); }

void QXFMT_SetDurationFormat(QXFMT_DURATION_FORMAT format) noexcept {
  settings.duration_format.Set(format);
}
QXFMT_DURATION_FORMAT QXFMT_GetDurationFormat() noexcept { return settings.duration_format.Get(); }
