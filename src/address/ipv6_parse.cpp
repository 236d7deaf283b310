// Two readers side by side: the walk defines what is accepted; the plain reader takes what nearly
// all texts look like, without blanks and oddities, at a fraction of the cost.

#include <cstring>

#include <qxfmt/address.h>

#include "address/ipv4_parse.h"
#include "address/octets.h"
#include "text/hex_digits.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kAddressBytes = 16;
constexpr std::int32_t kTailBytes = 4;  // of a dotted tail
constexpr std::int32_t kMaxDigits = 4;

// Reads one to four hexadecimal digits and moves `at` behind them. False if there is none.
inline bool ReadGroup(const char16_t*& at, std::uint32_t& group) {
  group = HexDigit(*at);
  if (group > 0xF) return false;
  ++at;
  for (std::int32_t i = 1; i < kMaxDigits; ++i) {
    const std::uint32_t digit = HexDigit(*at);
    if (digit > 0xF) break;
    group = group << 4 | digit;
    ++at;
  }
  return true;
}

// Eight groups of one to four digits, or fewer with one "::", and a dotted tail that ReadStrictIpv4
// takes. Such a text has 45 units at most, so that the limit of the length never matters. False
// leaves `address` alone and says no more than that the walk must judge the text.
bool ReadPlain(const char16_t* at, std::uint8_t* address) {
  // What stands before the "::", zeros, and what stands behind it.
  std::uint8_t parts[3 * kAddressBytes];
  std::uint8_t* const zeros = parts + kAddressBytes;
  std::uint8_t* const tail = zeros + kAddressBytes;
  std::memset(parts, 0, sizeof(parts) - kAddressBytes);
  std::uint8_t* next = parts;
  std::uint8_t* gap = parts;  // where the last part begins
  std::int32_t room = kAddressBytes;

  // A "::" elsewhere has its first colon read as the end of the group before it.
  if (*at == u':' && *++at != u':') return false;
  for (;;) {
    if (*at == u':') {
      if (gap == tail) return false;
      next = gap = tail;
      if (*++at == u'\0') break;
    }
    const char16_t* const begin = at;
    std::uint32_t group = 0;
    if (room == 0 || !ReadGroup(at, group)) return false;
    if (*at == u'.') {
      std::uint32_t dotted = 0;
      if (room < kTailBytes || !ReadStrictIpv4(begin, dotted)) return false;
      for (int shift = 0; shift < 32; shift += 8)
        *next++ = static_cast<std::uint8_t>(dotted >> shift);
      room -= kTailBytes;
      break;
    }
    next[0] = static_cast<std::uint8_t>(group >> 8);
    next[1] = static_cast<std::uint8_t>(group);
    next += 2;
    room -= 2;
    if (*at == u'\0') break;
    if (*at++ != u':') return false;
  }

  // A "::" stands for at least one group.
  const bool has_gap = gap == tail;
  if (has_gap == (room == 0)) return false;
  if (address == nullptr) return true;
  // The last part moved to the end, with the zeros before it, falls on the zeros of the first.
  const std::uint8_t* const moved = zeros + (has_gap ? next - tail : 0);
  for (std::int32_t i = 0; i < kAddressBytes; ++i) {
    address[i] = static_cast<std::uint8_t>(parts[i] | moved[i]);
  }
  return true;
}

// One walk over the text, unit by unit. Each step returns false to refuse the text.
class Walk {
 public:
  // The text without its leading blanks.
  explicit Walk(const char16_t* text) : begin_(text), at_(text) {}

  // False leaves `address` alone, which may be null.
  bool Read(std::uint8_t* address) {
    while (*at_ != u'\0') {
      if (!Step() || at_ - begin_ >= kMaxLength) return false;
    }
    if (!EndStep()) return false;
    if (address != nullptr) std::memcpy(address, bytes_, kAddressBytes);
    return true;
  }

 private:
  static constexpr std::ptrdiff_t kMaxLength = 100;
  static constexpr std::int32_t kDots = 3;
  static constexpr std::int32_t kMaxPartDigits = 3;
  static constexpr std::int32_t kNoGap = -1;

  bool Step() {
    const std::uint32_t digit = HexDigit(*at_);
    if (digit <= 9 || (digit <= 0xF && dots_ == 0)) return DigitStep(digit);
    switch (*at_) {
      case u':':
        return dots_ == 0 && ColonStep();
      case u'.':
        return DotStep();
      case u' ':  // does not end a group
        ++at_;
        return true;
      default:
        return false;
    }
  }

  bool DigitStep(std::uint32_t digit) {
    if (digit_count_ == kMaxDigits) return false;
    digits_ = digits_ << 4 | digit;
    ++digit_count_;
    ++at_;
    return true;
  }

  bool ColonStep() {
    if (written_ >= kAddressBytes) return false;
    const bool is_double = at_[1] == u':';
    if (is_double && at_[2] == u':') return false;
    if (at_ == begin_) {
      if (!is_double) return false;
      gap_ = 0;
      at_ += 2;
      return true;
    }
    if (digit_count_ == 0 || at_[1] == u'\0') return false;
    if (is_double && gap_ != kNoGap) return false;
    StoreGroup();
    if (is_double) gap_ = written_;
    at_ += is_double ? 2 : 1;
    return true;
  }

  bool DotStep() {
    if (written_ >= kAddressBytes || dots_ >= kDots) return false;
    // Looks at the part that follows only: the first one may be empty.
    const char16_t next = at_[1];
    if (next == u'\0' || next == u'.' || next == u':') return false;
    if (!StorePart()) return false;
    ++dots_;
    ++at_;
    return true;
  }

  bool EndStep() {
    if (dots_ > 0) {
      if (digit_count_ == 0 || dots_ != kDots || !StorePart()) return false;
    } else {
      if (written_ > kAddressBytes - 2) return false;
      if (digit_count_ > 0) StoreGroup();
    }
    if (gap_ == kNoGap) return written_ == kAddressBytes;
    if (written_ >= kAddressBytes) return false;
    ExpandGap();
    return true;
  }

  void StoreGroup() {
    bytes_[written_++] = static_cast<std::uint8_t>(digits_ >> 8);
    bytes_[written_++] = static_cast<std::uint8_t>(digits_);
    EmptyDigits();
  }

  // The digits taken as decimal ones, 0 if there are none.
  bool StorePart() {
    const std::uint32_t hundreds = digits_ >> 8;
    const std::uint32_t tens = digits_ >> 4 & 0xF;
    const std::uint32_t ones = digits_ & 0xF;
    const std::uint32_t value = hundreds * 100 + tens * 10 + ones;
    if (digit_count_ > kMaxPartDigits || hundreds > 9 || tens > 9 || ones > 9 || value > 255) {
      return false;
    }
    bytes_[written_++] = static_cast<std::uint8_t>(value);
    EmptyDigits();
    return true;
  }

  void EmptyDigits() {
    digits_ = 0;
    digit_count_ = 0;
  }

  // Moves what stands behind the "::" to the end, zeros in its place.
  void ExpandGap() {
    const auto moved = static_cast<std::size_t>(written_ - gap_);
    const auto zeros = static_cast<std::size_t>(kAddressBytes - written_);
    std::memmove(bytes_ + kAddressBytes - moved, bytes_ + gap_, moved);
    std::memset(bytes_ + gap_, 0, zeros);
  }

  const char16_t* begin_;
  const char16_t* at_;
  std::uint8_t bytes_[kAddressBytes]{};
  std::int32_t written_ = 0;      // bytes stored; even up to the first point
  std::int32_t gap_ = kNoGap;     // bytes stored when "::" was read
  std::int32_t dots_ = 0;         // points read
  std::uint32_t digits_ = 0;      // of the current group or part, four bits each
  std::int32_t digit_count_ = 0;  // 0 to 4
};

}  // namespace

}  // namespace qxfmt

std::int32_t QXFMT_GetIPv6Address(WideText text, std::uint8_t* address) {
  if (text == nullptr) return 0;
  while (*text == u' ') ++text;
  return qxfmt::ReadPlain(text, address) || qxfmt::Walk(text).Read(address) ? 1 : 0;
}

std::int32_t QXFMT_IsValidIPv6Address(WideText text) { return QXFMT_GetIPv6Address(text, nullptr); }
