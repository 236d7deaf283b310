#pragma once

// What the fuzz targets share.

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <qxfmt/qxfmt.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace qxfmt::fuzz {

// A property that must hold.
inline void Check(bool holds) {
  if (!holds) std::abort();
}

// The input as text, in a heap area of exactly its size: a unit a byte, so that ASCII comes up
// often, and a byte above 0xEF the high byte of the unit that the next byte completes.
class Text {
 public:
  Text(const std::uint8_t* data, std::size_t size) {
    const auto units = std::make_unique<char16_t[]>(size + 1);
    std::size_t count = 0;
    for (std::size_t i = 0; i < size; ++i) {
      const unsigned high = data[i] > 0xEF && i + 1 < size ? data[i++] - 0xF0U : 0;
      units[count++] = static_cast<char16_t>(high << 8 | data[i]);
    }
    exact_ = std::make_unique<char16_t[]>(count + 1);
    std::memcpy(exact_.get(), units.get(), count * sizeof(char16_t));
  }

  operator const char16_t*() const { return exact_.get(); }

 private:
  std::unique_ptr<char16_t[]> exact_;
};

}  // namespace qxfmt::fuzz
