#pragma once

// The frame in which nearly all formatters run: take a block, print into all of it but the last
// unit, terminate the last unit, hand the block out.

#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/text.h>

namespace qxfmt {

// What an operation returns when the arena gives no block.
inline constexpr ResultText kMemoryError = u"[MEM_ERR]";

inline constexpr ResultText kEmptyText = u"";

template <std::uint32_t kBytes>
class ResultBlock {
 public:
  // Room for the print, the terminator included; also the index of the block's last unit.
  static constexpr std::int32_t kPrintLimit = kBytes / sizeof(char16_t) - 1;

  explicit ResultBlock(CQXBlockBuffer& arena)
      : units_(static_cast<char16_t*>(arena.GetBuffer(kBytes))) {}

  bool missing() const { return units_ == nullptr; }
  char16_t* units() const { return units_; }

  // The result, with the block's last unit made a terminator whatever was printed.
  ResultText Finish() const {
    units_[kPrintLimit] = u'\0';
    return units_;
  }

 private:
  char16_t* units_;
};

}  // namespace qxfmt
