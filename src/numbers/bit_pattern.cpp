#include <array>
#include <cstdint>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "text/field.h"
#include "text/lanes.h"

namespace {

consteval std::array<qxfmt::Lanes, 16> MakeNibbles() {
  std::array<qxfmt::Lanes, 16> nibbles{};
  for (std::uint32_t value = 0; value < 16; ++value) {
    nibbles[value] = qxfmt::MakeLanes(u'0' + (value >> 3), u'0' + (value >> 2 & 1),
                                      u'0' + (value >> 1 & 1), u'0' + (value & 1));
  }
  return nibbles;
}

// "0000" to "1111".
constexpr std::array<qxfmt::Lanes, 16> kNibbles = MakeNibbles();

// All bits of a value in groups of four.
template <typename Value>
class BitPattern {
 public:
  static constexpr std::int32_t kMaxSize = 2 * sizeof(Value) * 5 - 1;
  static constexpr std::int32_t kSlack = 1;  // the blank after the last group

  explicit BitPattern(Value value) : value_(value) {}

  char16_t* Write(char16_t* out) const {
    for (int shift = 8 * sizeof(Value) - 4; shift >= 0; shift -= 4) {
      qxfmt::StoreLanes(out, kNibbles[(value_ >> shift) & 0xF]);
      out[4] = u' ';
      out += 5;
    }
    return out - 1;
  }

 private:
  Value value_;
};

using qxfmt::Ending;
using qxfmt::PrintResult;

}  // namespace

ResultText CQXDataFormat::FormatBinary(std::uint8_t value) noexcept {
  return PrintResult<64, Ending::kPrinted>(blocks_, BitPattern(value));
}

ResultText CQXDataFormat::FormatBinary(std::uint16_t value) noexcept {
  return PrintResult<64, Ending::kPrinted>(blocks_, BitPattern(value));
}

ResultText CQXDataFormat::FormatBinary(std::uint32_t value) noexcept {
  return PrintResult<128, Ending::kPrinted>(blocks_, BitPattern(value));
}
