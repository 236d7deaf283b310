#include <bit>
#include <string_view>

#include <qxfmt/data_format.h>

#include "address/ipv4_text.h"
#include "address/octets.h"
#include "frame/result.h"
#include "text/decimal.h"
#include "text/hex_digits.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kAddressBytes = 16;
constexpr std::int32_t kHeadBytes = 12;  // what stands before a dotted tail

// A stretch of bytes; `end` is one past the last.
struct Run {
  std::int32_t begin;
  std::int32_t end;
};

// Bit k is set if byte k of the eight is zero.
std::uint32_t ZeroBytes(std::uint64_t bytes) {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7F;
  // No sum leaves its byte, so that the high bit of each says exactly whether the byte is zero.
  const std::uint64_t zeros = ~(((bytes & kLowBits) + kLowBits) | bytes | kLowBits);
  // Gathers the bits 0, 8, .. 56 in the top byte, in the same order.
  return static_cast<std::uint32_t>(((zeros >> 7) * 0x0102040810204080) >> 56);
}

// The first of the longest stretches of set bits; empty if there is none.
Run LongestRun(std::uint32_t bits) {
  // Each step leaves the bits with one more set bit above them. What the last one leaves are the
  // starts of the longest runs.
  std::uint32_t starts = bits;
  std::int32_t length = 0;
  for (std::uint32_t left = bits; left != 0; left &= left >> 1) {
    starts = left;
    ++length;
  }
  const std::int32_t begin = std::countr_zero(starts);
  return {begin, begin + length};
}

// The run to shorten, in whole groups; empty if the longest run holds none.
Run FindRun(const std::uint8_t* bytes, std::int32_t count) {
  const std::uint32_t zeros = ZeroBytes(ReadOctets<8>(bytes)) | ZeroBytes(ReadOctets<8>(bytes + 8))
                                                                    << 8;
  const Run run = LongestRun(zeros & ((std::uint32_t{1} << count) - 1));
  const Run trimmed = {run.begin + run.begin % 2, run.end - run.end % 2};
  return trimmed.end >= trimmed.begin + 2 ? trimmed : Run{0, 0};
}

// Prints a group without leading zeros. Touches four units. All four digits are put into one word
// and the leading ones shifted out: no branch on the length of a group.
char16_t* WriteGroup(char16_t* out, std::uint32_t high, std::uint32_t low) {
  // The last digit always shows.
  const int zeros = std::countl_zero(high << 24 | low << 16 | 1 << 16) / 4;
  const Lanes digits = kHexPairsLower[high] | Lanes{kHexPairsLower[low]} << 32;
  StoreLanes(out, digits >> (16 * zeros));
  return out + (4 - zeros);
}

// Prints groups, each with a colon after it.
char16_t* WriteGroups(char16_t* out, const std::uint8_t* bytes, Run groups) {
  for (std::int32_t i = groups.begin; i < groups.end; i += 2) {
    out = WriteGroup(out, bytes[i], bytes[i + 1]);
    *out++ = u':';
  }
  return out;
}

// Prints the first `count` bytes of an address, 12 or 16, as groups with one run of zeros
// shortened. Returns the end.
char16_t* WriteShortened(char16_t* out, const std::uint8_t* bytes, std::int32_t count) {
  const Run run = FindRun(bytes, count);
  if (run.end != 0) {
    out = WriteGroups(out, bytes, {0, run.begin});
    if (run.begin == 0) *out++ = u':';
    *out++ = u':';
    if (run.end == count) return out;
  }
  return WriteGroups(out, bytes, {run.end, count}) - 1;  // not the last colon
}

char16_t* WriteFull(char16_t* out, const std::uint8_t* bytes) {
  for (std::int32_t i = 0; i < kAddressBytes; i += 2) {
    StoreLanes(out, kHexPairsLower[bytes[i]] | Lanes{kHexPairsLower[bytes[i + 1]]} << 32);
    out[4] = u':';
    out += 5;
  }
  return out - 1;
}

char16_t* WriteEmbedded(char16_t* out, const std::uint8_t* bytes) {
  out = WriteShortened(out, bytes, kHeadBytes);
  if (out[-1] != u':') *out++ = u':';
  return Dotted(static_cast<std::uint32_t>(ReadOctets<4>(bytes + kHeadBytes))).Write(out);
}

class Ipv6Address {
 public:
  static constexpr std::int32_t kMaxSize = 45;
  static constexpr std::int32_t kSlack = 3;

  Ipv6Address(const std::uint8_t* bytes, QXFMT_IPV6_TYPE type) : bytes_(bytes), type_(type) {}

  char16_t* Write(char16_t* out) const {
    switch (type_) {
      case QXFMT_IPV6_FULL:
        return WriteFull(out, bytes_);
      case QXFMT_IPV6_EMBEDDED_V4:
        return WriteEmbedded(out, bytes_);
      default:
        return WriteShortened(out, bytes_, kAddressBytes);
    }
  }

 private:
  const std::uint8_t* bytes_;
  QXFMT_IPV6_TYPE type_;
};

constexpr char16_t kNullAddress[] = u"[INPUT_ERR_NULL]";
constexpr std::uint32_t kAddressBlock = 100;

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatIPv6Address(const std::uint8_t* address,
                                            QXFMT_IPV6_TYPE type) noexcept {
  if (address == nullptr) return qxfmt::kNullAddress;
  return qxfmt::PrintResult<qxfmt::kAddressBlock, qxfmt::Ending::kPrinted>(
      blocks_, qxfmt::Ipv6Address(address, type));
}

ResultText CQXDataFormat::FormatIpv6Port(const std::uint8_t* address, std::uint16_t port,
                                         QXFMT_IPV6_TYPE type) noexcept {
  return qxfmt::FillResult<128>(blocks_, [&](auto block) {
    const qxfmt::Decimal number(port);
    const auto print = [&](const auto& text) { return block.Print(u'[', text, u"]:", number); };
    if (address == nullptr) return print(qxfmt::kNullAddress);
    if (!qxfmt::TakeInnerBlock<qxfmt::kAddressBlock>(blocks_)) {
      return print(qxfmt::kMemoryError);
    }
    return print(qxfmt::Ipv6Address(address, type));
  });
}
