#pragma once

// The frame in which the formatters run: take a block, print into it, terminate its last unit, hand
// it out.

#include <cstdint>

#include <qxfmt/block_buffer.h>
#include <qxfmt/text.h>

#include "text/bounded_print.h"

namespace qxfmt {

// What an operation returns when the arena gives no block.
inline constexpr char16_t kMemoryError[] = u"[MEM_ERR]";

inline constexpr ResultText kEmptyText = u"";

// Whether the last unit of a block is kept for a terminator that is set whatever was printed.
enum class Ending : bool { kForced, kPrinted };

// A block that the arena gave.
template <std::uint32_t kBytes, Ending kEnding>
class ResultBlock {
 public:
  // Room for the print, its terminator included. With a forced ending also the last unit's index.
  static constexpr std::int32_t kLimit =
      kBytes / sizeof(char16_t) - (kEnding == Ending::kForced ? 1 : 0);

  explicit ResultBlock(void* block) : units_(static_cast<char16_t*>(block)) {}

  template <typename... Pieces>
  [[gnu::always_inline]] ResultText Print(const Pieces&... pieces) const {
    return PrintWithin(kLimit, pieces...);
  }

  // For an operation with another limit, at most the units of the block.
  template <typename... Pieces>
  [[gnu::always_inline]] ResultText PrintWithin(std::int32_t limit, const Pieces&... pieces) const {
    BoundedPrint(units_, limit, pieces...);
    if constexpr (kEnding == Ending::kForced) units_[kLimit] = u'\0';
    return units_;
  }

 private:
  char16_t* units_;
};

// Takes a block and returns what `fill(block)` returns. What an operation does after it has its
// block, such as taking the block of an inner operation, it does in there.
template <std::uint32_t kBytes, Ending kEnding = Ending::kForced, typename Fill>
[[gnu::always_inline]] inline ResultText FillResult(CQXBlockBuffer& arena, Fill fill) {
  void* const block = arena.GetBuffer(kBytes);
  if (block == nullptr) [[unlikely]]
    return kMemoryError;
  return fill(ResultBlock<kBytes, kEnding>(block));
}

// The whole of most operations.
template <std::uint32_t kBytes, Ending kEnding = Ending::kForced, typename... Pieces>
[[gnu::always_inline]] inline ResultText PrintResult(CQXBlockBuffer& arena,
                                                     const Pieces&... pieces) {
  return FillResult<kBytes, kEnding>(arena, [&](auto block) { return block.Print(pieces...); });
}

// Takes the block of an inner operation, which stays taken. Its text goes straight into the outer
// block, so that nothing is written to this one. False if the arena gives none.
template <std::uint32_t kBytes>
inline bool TakeInnerBlock(CQXBlockBuffer& arena) {
  return arena.GetBuffer(kBytes) != nullptr;
}

}  // namespace qxfmt
