#include <bit>
#include <string_view>

#include <qxfmt/data_format.h>

#include "address/hex.h"
#include "address/ipv4_text.h"
#include "address/octets.h"
#include "frame/bounded_print.h"
#include "frame/result_block.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kAddressBytes = 16;
constexpr std::int32_t kHeadBytes = 12;  // what stands before a dotted tail

// A stretch of bytes, `end` just behind the last one.
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

// Prints a group without leading zeros and returns the end. Touches four units. All four digits
// are put into one number and the leading ones shifted out: no branch on the length of a group.
char16_t* WriteGroup(char16_t* out, std::uint32_t high, std::uint32_t low) {
  const std::int32_t size = CountHexDigits(high << 8 | low);
  const std::uint64_t digits =
      (kHexPairsLower[high] | std::uint64_t{kHexPairsLower[low]} << 32) >> (16 * (4 - size));
  out[0] = static_cast<char16_t>(digits);
  out[1] = static_cast<char16_t>(digits >> 16);
  out[2] = static_cast<char16_t>(digits >> 32);
  out[3] = static_cast<char16_t>(digits >> 48);
  return out + size;
}

// Prints groups, each with a colon behind it.
char16_t* WriteGroups(char16_t* out, const std::uint8_t* bytes, Run groups) {
  for (std::int32_t i = groups.begin; i < groups.end; i += 2) {
    out = WriteGroup(out, bytes[i], bytes[i + 1]);
    *out++ = u':';
  }
  return out;
}

// Prints the first `count` bytes of an address, 12 or 16, as groups with one run of zeros
// shortened. Returns the count of units; writes no terminator.
std::int32_t FormatIPv6Groups(char16_t* area, const std::uint8_t* bytes, std::int32_t count) {
  const Run run = FindRun(bytes, count);
  char16_t* out = area;
  if (run.end != 0) {
    out = WriteGroups(out, bytes, {0, run.begin});
    if (run.begin == 0) *out++ = u':';
    *out++ = u':';
    if (run.end == count) return static_cast<std::int32_t>(out - area);
  }
  out = WriteGroups(out, bytes, {run.end, count});
  return static_cast<std::int32_t>(out - area) - 1;  // not the last colon
}

std::int32_t FormatFull(char16_t* area, const std::uint8_t* bytes) {
  char16_t* out = area;
  for (std::int32_t i = 0; i < kAddressBytes; i += 2) {
    WriteHexPair(out, kHexPairsLower[bytes[i]]);
    WriteHexPair(out + 2, kHexPairsLower[bytes[i + 1]]);
    out[4] = u':';
    out += 5;
  }
  return static_cast<std::int32_t>(out - area) - 1;
}

std::int32_t FormatEmbedded(char16_t* area, const std::uint8_t* bytes) {
  char16_t* out = area + FormatIPv6Groups(area, bytes, kHeadBytes);
  if (out[-1] != u':') *out++ = u':';
  out = WriteDotted(out, static_cast<std::uint32_t>(ReadOctets<4>(bytes + kHeadBytes)));
  return static_cast<std::int32_t>(out - area);
}

std::int32_t FormatAddress(char16_t* area, const std::uint8_t* bytes, QXFMT_IPV6_TYPE type) {
  switch (type) {
    case QXFMT_IPV6_FULL:
      return FormatFull(area, bytes);
    case QXFMT_IPV6_EMBEDDED_V4:
      return FormatEmbedded(area, bytes);
    default:
      return FormatIPv6Groups(area, bytes, kAddressBytes);
  }
}

// What FormatIPv6Address returns, with its length.
std::u16string_view AddressText(CQXBlockBuffer& arena, const std::uint8_t* address,
                                QXFMT_IPV6_TYPE type) {
  if (address == nullptr) return u"[INPUT_ERR_NULL]";
  const ResultBlock<100> block(arena);
  if (block.missing()) return kMemoryError;
  const std::int32_t size = FormatAddress(block.units(), address, type);
  block.units()[size] = u'\0';
  return {block.units(), static_cast<std::size_t>(size)};
}

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatIPv6Address(const std::uint8_t* address, QXFMT_IPV6_TYPE type) {
  return qxfmt::AddressText(blocks_, address, type).data();
}

ResultText CQXDataFormat::FormatIpv6Port(const std::uint8_t* address, std::uint16_t port,
                                         QXFMT_IPV6_TYPE type) {
  const qxfmt::ResultBlock<128> block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  const std::u16string_view text = qxfmt::AddressText(blocks_, address, type);
  qxfmt::BoundedPrint<u"[%s]:%u">(block.units(), block.kPrintLimit, text, port);
  return block.Finish();
}
