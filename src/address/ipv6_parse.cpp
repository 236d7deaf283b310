// One reader takes all texts, token by token: up to four digits, then what follows them.

#include <cstring>

#include <qxfmt/address.h>

#include "address/ipv4_parse.h"
#include "address/units.h"
#include "text/hex_digits.h"
#include "text/lanes.h"

namespace qxfmt {

namespace {

constexpr std::ptrdiff_t kAddressBytes = 16;
constexpr std::ptrdiff_t kTailBytes = 4;  // of a dotted tail
constexpr std::uint32_t kMaxDigits = 4;

// The digits of a group or of a dotted part, four bits each.
struct Token {
  std::uint32_t digits = 0;
  std::uint32_t count = 0;
};

// Adds digits to the token, up to the most that it can have.
inline void AddDigits(const char16_t*& at, Token& token) {
  while (token.count < kMaxDigits) {
    const std::uint32_t digit = HexDigit(*at);
    if (digit > 0xF) return;
    token.digits = token.digits << 4 | digit;
    ++token.count;
    ++at;
  }
}

// Reads the next token and returns the unit after it. Most units are judged by their low bytes
// alone; these go into `seen`, so that all high bytes can be judged at once.
//
// The branch predictor has to guess at the length, so that the next token is read without waiting
// for this one. Without the hints, compilers tend to compute the length instead.
inline char16_t ReadToken(const char16_t*& at, Token& token, std::uint64_t& seen) {
  token = {};
  const std::uint32_t first = LowByteHexDigit(at[0]);
  if (first > 0xF) [[unlikely]] {
    return *at;
  }
  const std::uint32_t second = LowByteHexDigit(at[1]);
  const std::uint32_t third = second > 0xF ? second : LowByteHexDigit(at[2]);
  if (third > 0xF) [[unlikely]] {
    AddDigits(at, token);
    return *at;
  }
  seen |= LoadLanes(at);
  token.digits = first << 8 | second << 4 | third;
  // The table tells a colon as well, but later: a wrong guess of the branch predictor costs more.
  if (at[3] == u':') {
    token.count = 3;
    at += 3;
    return u':';
  }
  const std::uint32_t fourth = LowByteHexDigit(at[3]);
  if (fourth > 0xF) [[unlikely]] {
    token.count = 3;
    at += 3;
    return *at;
  }
  token.digits = token.digits << 4 | fourth;
  token.count = 4;
  at += 4;
  return *at;
}

// How far the text is read.
struct Place {
  const char16_t* at;  // null if the text is refused
  Token token;
};

// Adds digits over blanks, which do not end a token. Only blanks can make a text too long.
Place AddSpacedDigits(const char16_t* text, const char16_t* at, Token token) {
  constexpr std::ptrdiff_t kMaxLength = 99;
  for (const char16_t* end = text; *end != u'\0'; ++end) {
    if (end - text == kMaxLength) return {nullptr, {}};
  }
  AddDigits(at, token);
  while (*at == u' ') AddDigits(++at, token);
  return {at, token};
}

inline void PutGroup(std::uint8_t*& next, Token token) {
  next[0] = static_cast<std::uint8_t>(token.digits >> 8);
  next[1] = static_cast<std::uint8_t>(token.digits);
  next += 2;
}

// The digits are decimal ones here; a part without digits is 0.
bool PutPart(std::uint8_t*& next, Token token) {
  const std::uint32_t hundreds = token.digits >> 8;
  const std::uint32_t tens = token.digits >> 4 & 0xF;
  const std::uint32_t ones = token.digits & 0xF;
  const std::uint32_t value = hundreds * 100 + tens * 10 + ones;
  if (tens > 9 || ones > 9 || value > 255 || token.count == kMaxDigits) return false;
  *next++ = static_cast<std::uint8_t>(value);
  return true;
}

// Reads a dotted tail, whose first token is read and whose first point is at `at`.
bool PutTail(const char16_t* text, const char16_t* at, Token token, std::uint8_t* next) {
  std::uint32_t dotted = 0;
  if (ReadStrictIpv4(at - token.count, dotted)) {
    for (int i = 0; i < kTailBytes; ++i) next[i] = static_cast<std::uint8_t>(dotted >> (8 * i));
    return true;
  }
  for (std::ptrdiff_t points = 0; points < kTailBytes - 1; ++points) {
    // Of empty parts, only the first and those with a blank in them are taken.
    if (*at != u'.' || at[1] == u'.' || !PutPart(next, token)) return false;
    const Place place = AddSpacedDigits(text, at + 1, {});
    if (place.at == nullptr) return false;
    at = place.at;
    token = place.token;
  }
  return *at == u'\0' && token.count > 0 && PutPart(next, token);
}

// Puts what stands after the last colon; `at` is after its first or only token.
inline bool PutEnd(const char16_t* text, const char16_t* at, Token token, bool has_gap,
                   std::uint8_t*& next, const std::uint8_t* end) {
  if (*at == u'.') {
    if (end - next < kTailBytes || !PutTail(text, at, token, next)) return false;
    next += kTailBytes;
    return true;
  }
  if (*at != u'\0') return false;
  // A text can end in "::", but not in a single colon; one with a blank after it is taken.
  if (token.count == 0) return has_gap && (at[-1] != u':' || at[-2] == u':');
  if (next == end) return false;
  PutGroup(next, token);
  return true;
}

// Where one half has bytes that are read, the other one has zeros.
inline void Join(const std::uint8_t* first, const std::uint8_t* last, std::uint8_t* address) {
  std::uint64_t a[2];
  std::uint64_t b[2];
  std::memcpy(a, first, kAddressBytes);
  std::memcpy(b, last, kAddressBytes);
  a[0] |= b[0];
  a[1] |= b[1];
  std::memcpy(address, a, kAddressBytes);
}

// False leaves `address` alone, which may be null.
bool ReadIpv6(const char16_t* const text, std::uint8_t* address) {
  // What stands before the "::", zeros, and what stands after it.
  std::uint8_t first[3 * kAddressBytes];
  std::uint8_t* const zeros = first + kAddressBytes;
  std::uint8_t* const last = zeros + kAddressBytes;
  std::memset(first, 0, sizeof(first) - kAddressBytes);
  std::uint8_t* next = first;
  std::uint8_t* end = next + kAddressBytes;  // the address is full there
  std::uint64_t seen = 0;
  Token token;

  // A "::" elsewhere has its first colon read as the one after a group.
  const char16_t* at = text;
  if (*at == u':' && *++at != u':') return false;
  for (;;) {
    char16_t unit = ReadToken(at, token, seen);
    if (unit != u':') [[unlikely]] {
      if (unit == u' ') [[unlikely]] {
        const Place place = AddSpacedDigits(text, at, token);
        if (place.at == nullptr) return false;
        at = place.at;
        token = place.token;
        unit = *at;
      }
      if (unit != u':') break;
    }
    if (token.count == 0) [[unlikely]] {
      // The second colon of the only "::".
      if (next >= last || at[-1] != u':') return false;
      end = last + (end - next);
      next = last;
    } else {
      if (next == end) return false;
      PutGroup(next, token);
    }
    ++at;
  }

  const bool has_gap = next >= last;
  if (!PutEnd(text, at, token, has_gap, next, end)) return false;
  // A "::" stands for at least one group.
  if (has_gap == (next == end) || (seen & kHighBytes) != 0) return false;
  if (address != nullptr) Join(first, has_gap ? next - kAddressBytes : zeros, address);
  return true;
}

}  // namespace

}  // namespace qxfmt

std::int32_t QXFMT_GetIPv6Address(WideText text, std::uint8_t* address) noexcept {
  if (text == nullptr) return 0;
  while (*text == u' ') ++text;
  return qxfmt::ReadIpv6(text, address) ? 1 : 0;
}

std::int32_t QXFMT_IsValidIPv6Address(WideText text) noexcept {
  return QXFMT_GetIPv6Address(text, nullptr);
}
