#include "address/ipv4_text.h"

#include <qxfmt/data_format.h>

#include "frame/result_block.h"

ResultText CQXDataFormat::FormatIpAddress(std::uint32_t address) {
  const qxfmt::ResultBlock<40> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  qxfmt::WriteDotted(block.units(), address);
  return block.units();
}

ResultText CQXDataFormat::FormatIpAddress(std::uint32_t address, char16_t* buffer,
                                          std::int32_t length) {
  if (length < qxfmt::kDottedRoom) return u"[BUF_LEN_ERR]";
  qxfmt::WriteDotted(buffer, address);
  return buffer;
}
