#pragma once

// Dotted decimal text of four octets.

#include <array>
#include <cstdint>
#include <cstring>

namespace qxfmt {

namespace detail {

// The decimal text of an octet; four units, so that one fixed-size copy writes it.
struct OctetText {
  char16_t units[3];
  char16_t size;
};

constexpr std::array<OctetText, 256> MakeOctetTexts() {
  std::array<OctetText, 256> texts{};
  for (unsigned value = 0; value < 256; ++value) {
    OctetText& text = texts[value];
    if (value >= 100) text.units[text.size++] = static_cast<char16_t>(u'0' + value / 100);
    if (value >= 10) text.units[text.size++] = static_cast<char16_t>(u'0' + value / 10 % 10);
    text.units[text.size++] = static_cast<char16_t>(u'0' + value % 10);
  }
  return texts;
}

inline constexpr std::array<OctetText, 256> kOctetTexts = MakeOctetTexts();

// Writes the octet and `behind`, returns the end. Touches four units, whatever the octet.
inline char16_t* WriteOctet(char16_t* out, std::uint32_t octet, char16_t behind) {
  const OctetText& text = kOctetTexts[octet & 0xFF];
  std::memcpy(out, &text, sizeof(text));
  out[text.size] = behind;
  return out + text.size + 1;
}

}  // namespace detail

// The units that WriteDotted touches: the longest text, 255.255.255.255, and its terminator.
inline constexpr std::int32_t kDottedRoom = 16;

// Prints the address, first octet in the lowest 8 bits, with its terminator. Returns the place of
// the terminator.
inline char16_t* WriteDotted(char16_t* out, std::uint32_t address) {
  out = detail::WriteOctet(out, address, u'.');
  out = detail::WriteOctet(out, address >> 8, u'.');
  out = detail::WriteOctet(out, address >> 16, u'.');
  return detail::WriteOctet(out, address >> 24, u'\0') - 1;
}

}  // namespace qxfmt
