#include <array>
#include <cstdint>
#include <cstring>

#include <qxfmt/data_format.h>

#include "frame/result_block.h"

namespace {

struct Nibble {
  char16_t bits[4];
};

constexpr std::array<Nibble, 16> MakeNibbles() {
  std::array<Nibble, 16> nibbles{};
  for (unsigned value = 0; value < 16; ++value) {
    for (unsigned bit = 0; bit < 4; ++bit) {
      nibbles[value].bits[bit] = ((value >> (3 - bit)) & 1) != 0 ? u'1' : u'0';
    }
  }
  return nibbles;
}

// "0000" to "1111".
constexpr std::array<Nibble, 16> kNibbles = MakeNibbles();

template <std::uint32_t kBytes, typename Value>
ResultText FormatBits(CQXBlockBuffer& arena, Value value) {
  const qxfmt::ResultBlock<kBytes> block(arena);
  if (block.missing()) return qxfmt::kMemoryError;
  char16_t* out = block.units();
  for (int shift = 8 * sizeof(Value) - 4; shift >= 0; shift -= 4) {
    std::memcpy(out, &kNibbles[(value >> shift) & 0xF], sizeof(Nibble));
    out[4] = u' ';
    out += 5;
  }
  out[-1] = u'\0';  // in place of the blank behind the last group
  return block.units();
}

}  // namespace

ResultText CQXDataFormat::FormatBinary(std::uint8_t value) {
  return FormatBits<64>(blocks_, value);
}

ResultText CQXDataFormat::FormatBinary(std::uint16_t value) {
  return FormatBits<64>(blocks_, value);
}

ResultText CQXDataFormat::FormatBinary(std::uint32_t value) {
  return FormatBits<128>(blocks_, value);
}
