#include <algorithm>
#include <new>

#include <qxfmt/block_buffer.h>

// The header of a chunk; its blocks follow it.
struct CQXBlockBuffer::Chunk {
  Chunk* next;
  std::size_t size;  // bytes, this header included

  char* begin() { return reinterpret_cast<char*>(this + 1); }
  char* end() { return reinterpret_cast<char*>(this) + size; }
  std::size_t room() { return static_cast<std::size_t>(end() - begin()); }
};

CQXBlockBuffer::CQXBlockBuffer(std::uint32_t largest_chunk) noexcept
    : largest_chunk_(largest_chunk) {}

CQXBlockBuffer::~CQXBlockBuffer() { ReleaseAll(); }

void CQXBlockBuffer::SetBlockSize(std::uint32_t first_chunk, std::uint32_t growth) noexcept {
  first_chunk_ = first_chunk;
  growth_ = growth;
}

void* CQXBlockBuffer::GetBufferFromNextChunk(std::uint32_t size) noexcept {
  // Chunks kept by a reset come first. One that is too small for the block leads back here.
  Chunk* const kept = current_ != nullptr ? current_->next : nullptr;
  Chunk* const chunk = kept != nullptr ? kept : Allocate(Rounded(size));
  if (chunk == nullptr) return nullptr;
  Enter(chunk);
  return GetBuffer(size);
}

void CQXBlockBuffer::Enter(Chunk* chunk) noexcept {
  current_ = chunk;
  next_ = chunk->begin();
  end_ = chunk->end();
}

CQXBlockBuffer::Chunk* CQXBlockBuffer::Allocate(std::size_t block) noexcept {
  // Only called with the list used up, so that the new chunk follows the current one.
  const std::size_t wanted = current_ == nullptr ? first_chunk_ : current_->size * growth_;
  // A guard: no operation asks for a block that is larger than the first chunk.
  const std::size_t size =
      std::max(std::min<std::size_t>(wanted, largest_chunk_), sizeof(Chunk) + block);
  void* const memory = ::operator new(size, std::nothrow);
  if (memory == nullptr) return nullptr;
  auto* const chunk = new (memory) Chunk{nullptr, size};
  (current_ == nullptr ? first_ : current_->next) = chunk;
  Close(chunk->begin(), chunk->room());
  return chunk;
}

void CQXBlockBuffer::Reset() noexcept {
  ForgetZone();
#if defined(QXFMT_GUARDS_BLOCKS)
  for (Chunk* chunk = first_; chunk != nullptr; chunk = chunk->next) {
    Close(chunk->begin(), chunk->room());
  }
#endif
  if (first_ != nullptr) Enter(first_);
}

void CQXBlockBuffer::ReleaseAll() noexcept {
  ForgetZone();
  for (Chunk* chunk = first_; chunk != nullptr;) {
    Chunk* const next = chunk->next;
    Open(chunk->begin(), chunk->room());
    ::operator delete(chunk);
    chunk = next;
  }
  first_ = nullptr;
  current_ = nullptr;
  next_ = nullptr;
  end_ = nullptr;
}
