#include "address/ipv4_text.h"

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "text/decimal.h"

using qxfmt::Dotted;
using qxfmt::Ending;
using qxfmt::PrintResult;

ResultText CQXDataFormat::FormatIpAddress(std::uint32_t address) noexcept {
  return PrintResult<40, Ending::kPrinted>(blocks_, Dotted(address));
}

ResultText CQXDataFormat::FormatIpAddress(std::uint32_t address, char16_t* buffer,
                                          std::int32_t length) noexcept {
  constexpr std::int32_t kRoom = Dotted::kMaxSize + 1;  // with the terminator
  if (length < kRoom) return u"[BUF_LEN_ERR]";
  qxfmt::BoundedPrint(buffer, kRoom, Dotted(address));
  return buffer;
}

ResultText CQXDataFormat::FormatIpPort(std::uint32_t address, std::uint16_t port) noexcept {
  return PrintResult<128>(blocks_, Dotted(address), u':', qxfmt::Decimal(port));
}
