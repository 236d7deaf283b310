#include <cstdint>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "text/field.h"
#include "text/hex_digits.h"

namespace {

constexpr std::int32_t kMaxOctets = 8;

// "00:1A"; one octet or more.
class HexOctets {
 public:
  static constexpr std::int32_t kMaxSize = 3 * kMaxOctets - 1;
  static constexpr std::int32_t kSlack = 2;  // a colon, and the unit that its store has left over

  HexOctets(const std::uint8_t* octets, std::int32_t count) : octets_(octets), count_(count) {}

  char16_t* Write(char16_t* out) const {
    for (std::int32_t i = 0; i < count_; ++i, out += 3) {
      qxfmt::StoreLanes(out, qxfmt::kHexPairsUpper[octets_[i]] | qxfmt::Lanes{u':'} << 32);
    }
    return out - 1;
  }

 private:
  const std::uint8_t* octets_;
  std::int32_t count_;
};

// The six octets of a value, the first in the lowest 8 bits.
class MacAddress {
 public:
  static constexpr std::int32_t kMaxSize = 17;
  static constexpr std::int32_t kSlack = 2;

  explicit MacAddress(std::uint64_t address) : address_(address) {}

  char16_t* Write(char16_t* out) const {
    for (int shift = 0; shift < 48; shift += 8, out += 3) {
      qxfmt::StoreLanes(out,
                        qxfmt::kHexPairsUpper[address_ >> shift & 0xFF] | qxfmt::Lanes{u':'} << 32);
    }
    return out - 1;
  }

 private:
  std::uint64_t address_;
};

using qxfmt::Ending;
using qxfmt::PrintResult;

}  // namespace

ResultText CQXDataFormat::FormatMacAddress(std::uint64_t address) noexcept {
  return PrintResult<50, Ending::kPrinted>(blocks_, MacAddress(address));
}

ResultText CQXDataFormat::FormatMacAddress(const std::uint8_t* octets,
                                           std::int32_t count) noexcept {
  if (count < 1 || count > kMaxOctets) return PrintResult<64>(blocks_, u"???");
  return PrintResult<64>(blocks_, HexOctets(octets, count));
}

ResultText CQXDataFormat::FormatIPXAddress(const std::uint8_t* /*octets*/,
                                           std::int32_t /*count*/) noexcept {
  return u"NOIMPLEMENT";
}
