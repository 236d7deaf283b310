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

// The input as text, a unit a byte, in a heap area of exactly its size. A byte above 0x7F becomes a
// unit that has the low byte of an ASCII character but is none.
class Text {
 public:
  Text(const std::uint8_t* data, std::size_t size) : units_(new char16_t[size + 1]()) {
    for (std::size_t i = 0; i < size; ++i) {
      units_[i] = static_cast<char16_t>(data[i] < 0x80 ? data[i] : data[i] + 0x80);
    }
  }
  operator const char16_t*() const { return units_.get(); }

 private:
  std::unique_ptr<char16_t[]> units_;
};

}  // namespace qxfmt::fuzz
