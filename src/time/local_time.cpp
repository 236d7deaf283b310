#include "time/local_time.h"

#include <chrono>
#include <optional>

#include <qxfmt/formats.h>

namespace qxfmt {

namespace {

// The zone's offset at an instant, worked out from the fields. Nothing if the conversion fails, or
// if the C library states another offset: that is a zone which counts leap seconds ("right/UTC").
// Windows has no such zones and states no offset.
std::optional<std::int64_t> OffsetAt(std::int64_t seconds) {
  std::tm local;
  if (!ConvertToLocal(seconds, local)) return {};
  const std::chrono::sys_days date =
      std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday;
  const std::int64_t hours = std::int64_t{date.time_since_epoch().count()} * 24 + local.tm_hour;
  const std::int64_t minutes = hours * 60 + local.tm_min;
  const std::int64_t offset = minutes * 60 + local.tm_sec - seconds;
  if (StatedOffset(local).value_or(offset) != offset) return {};
  return offset;
}

}  // namespace

// The offset counts as one value if it is the same at both ends and in the middle. To be missed, a
// zone has to change and to change back between two of these instants, within 36 hours: no zone of
// the TZ database has done so since 1970, nor will by its rules.
void detail::RememberMissedSpan(CQXBlockBuffer::ZoneSpan& span) noexcept {
  const std::int64_t first = (span.missed - 1) * kSpanSeconds;
  const std::int64_t last = first + kSpanSeconds - 1;
  if (last > QXFMT_TIME_LIMIT) return;
  const std::optional<std::int64_t> offset = OffsetAt(first);
  if (!offset || first + *offset < 0) return;
  if (OffsetAt(first + kSpanSeconds / 2) != offset || OffsetAt(last) != offset) return;
  span.number = span.missed;
  span.offset = static_cast<std::int32_t>(*offset);
}

}  // namespace qxfmt
