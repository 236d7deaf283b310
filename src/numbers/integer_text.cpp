#include "numbers/integer_text.h"

#include <qxfmt/data_format.h>

namespace qxfmt {

namespace {

template <Pattern kPattern, std::uint32_t kBytes, typename Value>
ResultText FormatInteger(CQXBlockBuffer& arena, Value value, std::int32_t grouped) {
  const ResultBlock<kBytes> block(arena);
  if (block.missing()) return kMemoryError;
  PrintInteger<kPattern>(block, value, grouped);
  return block.Finish();
}

}  // namespace

}  // namespace qxfmt

using qxfmt::FormatInteger;

ResultText CQXDataFormat::FormatNumber(std::uint64_t value, std::int32_t grouped) {
  return FormatInteger<u"%I64u", 256>(blocks_, value, grouped);
}

ResultText CQXDataFormat::FormatNumber(std::int64_t value, std::int32_t grouped) {
  return FormatInteger<u"%I64d", 256>(blocks_, value, grouped);
}

ResultText CQXDataFormat::FormatNumber(std::uint32_t value, std::int32_t grouped) {
  return FormatInteger<u"%lu", 128>(blocks_, value, grouped);
}

ResultText CQXDataFormat::FormatNumber(std::int32_t value, std::int32_t grouped) {
  return FormatInteger<u"%ld", 128>(blocks_, value, grouped);
}

ResultText CQXDataFormat::FormatNumber(std::uint16_t value, std::int32_t grouped) {
  return FormatInteger<u"%hu", 64>(blocks_, value, grouped);
}

ResultText CQXDataFormat::FormatNumber(std::int16_t value, std::int32_t grouped) {
  return FormatInteger<u"%hd", 64>(blocks_, value, grouped);
}
