#include <qxfmt/data_format.h>

#include "numbers/quantity.h"

namespace {

using qxfmt::FormatQuantity;
using qxfmt::settings;

constexpr qxfmt::Quantity kByteRates{qxfmt::kByteScale,
                                     settings.byte_per_second_format,
                                     {{u" Bps"}, {u" KBps"}, {u" MBps"}, {u" GBps"}, {u" TBps"}}};
constexpr qxfmt::Quantity kBitRates{qxfmt::kBitScale,
                                    settings.bit_per_second_format,
                                    {{u" bps"}, {u" Kbps"}, {u" Mbps"}, {u" Gbps"}, {u" Tbps"}}};

std::int32_t PlacesSetting() { return settings.number_decimal_places.Get(); }

}  // namespace

ResultText CQXDataFormat::FormatBytePerSecond(std::uint64_t value) noexcept {
  return FormatQuantity(blocks_, kByteRates, value, QXFMT_BYTES_AUTO, PlacesSetting());
}

ResultText CQXDataFormat::FormatBytePerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                              std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kByteRates, value, unit, places);
}

ResultText CQXDataFormat::FormatBytePerSecond(double value) noexcept {
  return FormatQuantity(blocks_, kByteRates, value, QXFMT_BYTES_AUTO, PlacesSetting());
}

ResultText CQXDataFormat::FormatBytePerSecond(double value, QXFMT_BYTES_FORMAT unit,
                                              std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kByteRates, value, unit, places);
}

ResultText CQXDataFormat::FormatBitPerSecond(std::uint64_t value) noexcept {
  return FormatQuantity(blocks_, kBitRates, value, QXFMT_BYTES_AUTO, PlacesSetting());
}

ResultText CQXDataFormat::FormatBitPerSecond(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                             std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBitRates, value, unit, places);
}

ResultText CQXDataFormat::FormatBitPerSecond(double value) noexcept {
  return FormatQuantity(blocks_, kBitRates, value, QXFMT_BYTES_AUTO, PlacesSetting());
}

ResultText CQXDataFormat::FormatBitPerSecond(double value, QXFMT_BYTES_FORMAT unit,
                                             std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBitRates, value, unit, places);
}
