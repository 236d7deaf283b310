#pragma once

#include <cstdint>

namespace qxfmt {

// Reads exactly four groups of one to three digits, each 255 at most, divided by dots and followed
// by the terminator. The first octet goes into the lowest 8 bits. False leaves `address` alone.
bool ReadStrictIpv4(const char16_t* text, std::uint32_t& address);

}  // namespace qxfmt
