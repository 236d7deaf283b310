#include <qxfmt/data_format.h>

#include "numbers/quantity.h"

namespace {

using qxfmt::FormatQuantity;

constexpr qxfmt::Quantity kBytes{qxfmt::kByteScale,
                                 qxfmt::settings.byte_format,
                                 {{u" B"}, {u" KB"}, {u" MB"}, {u" GB"}, {u" TB"}}};
constexpr qxfmt::Quantity kBits{qxfmt::kBitScale,
                                qxfmt::settings.bit_format,
                                {{u" b"}, {u" Kb"}, {u" Mb"}, {u" Gb"}, {u" Tb"}}};

}  // namespace

ResultText CQXDataFormat::FormatByte(std::uint64_t value, std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBytes, value, QXFMT_BYTES_AUTO, places);
}

ResultText CQXDataFormat::FormatByte(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                     std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBytes, value, unit, places);
}

ResultText CQXDataFormat::FormatBit(std::uint64_t value, std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBits, value, QXFMT_BYTES_AUTO, places);
}

ResultText CQXDataFormat::FormatBit(std::uint64_t value, QXFMT_BYTES_FORMAT unit,
                                    std::int32_t places) noexcept {
  return FormatQuantity(blocks_, kBits, value, unit, places);
}
