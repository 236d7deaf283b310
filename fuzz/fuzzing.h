#pragma once

// What the fuzz targets share.

#include <bit>
#include <cstdlib>
#include <string>
#include <vector>

#include <qxfmt/qxfmt.h>

// The properties of one target.
void Fuzz(WideText text, const std::uint8_t* data, std::size_t size);

// A property that must hold.
inline void Check(bool holds) { return holds ? void() : std::abort(); }

// The input as text, a unit a byte, in a heap area of exactly its size. A byte above 0x7F becomes a
// unit that has the low byte of an ASCII character but is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<char16_t> text(size + 1);
  for (std::size_t i = 0; i < size; ++i)
    text[i] = static_cast<char16_t>(data[i] + (data[i] & 0x80));
  Fuzz(text.data(), data, size);
  return 0;
}
