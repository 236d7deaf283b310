#pragma once

/// @file
/// The arena that holds all result text. A part of `CQXDataFormat`, not for direct use.

#include <cstddef>
#include <cstdint>

// Whether this is a part of a library that is built with AddressSanitizer. An application's own
// sanitizer does not matter: blocks are taken in the library.
#if defined(QXFMT_BUILDING) && defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QXFMT_GUARDS_BLOCKS
#endif
#elif defined(QXFMT_BUILDING) && defined(__SANITIZE_ADDRESS__)
#define QXFMT_GUARDS_BLOCKS
#endif
#if defined(QXFMT_GUARDS_BLOCKS)
#include <sanitizer/asan_interface.h>
#endif

/// Hands out blocks that stay where they are until `Reset` or `ReleaseAll`.
///
/// Lazy: owns no memory until the first block. Memory comes in chunks from `operator new`: a small
/// one first, each further one larger by the growth factor, up to the largest chunk. `Reset` keeps
/// the chunks, so that a caller that resets regularly soon allocates nothing more.
///
/// Where the library is built with AddressSanitizer, only blocks that are taken may be touched: it
/// reports a text that is used after a reset.
///
/// It holds all the state of a formatter, and so what that remembers of the local zone as well.
///
/// Not thread-safe: calls on one object must not overlap.
class CQXBlockBuffer {
 public:
  /// Room for one span of time in which the local zone has one offset. A cache, which the
  /// conversion to local time fills and reads. All zeros: nothing is known yet.
  struct ZoneSpan {
    std::uint32_t number;  ///< of the span in here, counted from 1; 0 if there is none
    std::int32_t offset;   ///< seconds east of UTC in all of that span
    std::uint32_t missed;  ///< the span last looked for and not found in here
    std::uint32_t misses;  ///< how often in a row
  };

  /// Takes no memory.
  /// @param largest_chunk bytes, book-keeping included, that a chunk grows to at most; a larger
  ///   block gets a chunk as large as it needs.
  explicit CQXBlockBuffer(std::uint32_t largest_chunk) noexcept;
  /// Does what `ReleaseAll` does.
  ~CQXBlockBuffer();

  /// Not available: a block belongs to one arena.
  CQXBlockBuffer(const CQXBlockBuffer&) = delete;
  /// Not available: a block belongs to one arena.
  CQXBlockBuffer& operator=(const CQXBlockBuffer&) = delete;

  /// Sets the sizes of chunks. Called once, before the first block.
  /// @param first_chunk bytes of the first chunk, book-keeping included.
  /// @param growth how many times larger each further chunk is than the one before.
  void SetBlockSize(std::uint32_t first_chunk, std::uint32_t growth) noexcept;

  /// A block of at least `size` bytes, aligned for 16-bit units, its content undefined; or null
  /// when memory cannot be had. Never throws.
  [[nodiscard]] void* GetBuffer(std::uint32_t size) noexcept {
    const std::size_t rounded = Rounded(size);
    if (static_cast<std::size_t>(end_ - next_) < rounded) return GetBufferFromNextChunk(size);
    char* const block = next_;
    next_ += rounded;
    Open(block, rounded);
    return block;
  }

  /// The only room that a span of this number can lie in.
  [[nodiscard]] ZoneSpan& zone_span(std::uint32_t number) noexcept {
    return zone_spans_[number % kZoneSpans];
  }

  /// Voids all blocks, forgets the zone, and keeps the memory for the next blocks.
  void Reset() noexcept;

  /// Voids all blocks, forgets the zone, and gives all memory back.
  void ReleaseAll() noexcept;

 private:
  static constexpr std::uint32_t kZoneSpans = 4;

  struct Chunk;

  void ForgetZone() noexcept {
    for (ZoneSpan& span : zone_spans_) span = {};
  }

  // Only as much alignment as 16-bit units need: a million blocks of 50 bytes waste nothing.
  static constexpr std::size_t Rounded(std::uint32_t size) noexcept {
    return std::size_t{size} + (size & 1);
  }

  // Memory that may be touched from now on, and memory that may not.
#if defined(QXFMT_GUARDS_BLOCKS)
  static void Open(void* memory, std::size_t size) noexcept {
    __asan_unpoison_memory_region(memory, size);
  }
  static void Close(void* memory, std::size_t size) noexcept {
    __asan_poison_memory_region(memory, size);
  }
#else
  static void Open(void* /*memory*/, std::size_t /*size*/) noexcept {}
  static void Close(void* /*memory*/, std::size_t /*size*/) noexcept {}
#endif

  void* GetBufferFromNextChunk(std::uint32_t size) noexcept;
  void Enter(Chunk* chunk) noexcept;
  Chunk* Allocate(std::size_t block) noexcept;

  char* next_ = nullptr;      // where the next block starts
  char* end_ = nullptr;       // where the current chunk ends
  Chunk* current_ = nullptr;  // the chunk that blocks come from; null before the first block
  Chunk* first_ = nullptr;    // the list of all chunks, in the order of their use
  // At a multiple of 16 bytes: reads after a reset are slow in one that crosses a cache line.
  ZoneSpan zone_spans_[kZoneSpans] = {};
  std::uint32_t largest_chunk_ = 0;
  std::uint32_t first_chunk_ = 0;
  std::uint32_t growth_ = 1;
};
