#include "support/scripted_arena.h"

#include <new>
#include <utility>

#include <qxfmt/block_buffer.h>

namespace {

thread_local qxfmt::test::ArenaScript* script = nullptr;

}  // namespace

namespace qxfmt::test {

ArenaScript::ArenaScript() { script = this; }
ArenaScript::~ArenaScript() { script = nullptr; }

Sizes ArenaScript::TakeSizes() { return std::exchange(sizes_, {}); }

bool ArenaScript::Grants(std::uint32_t size) {
  sizes_.push_back(size);
  return refused_.count(requests_++) == 0 && !refuse_all_;
}

}  // namespace qxfmt::test

// All blocks of an arena.
struct CQXBlockBuffer::Chunk {
  std::vector<std::vector<char>> blocks;
};

CQXBlockBuffer::CQXBlockBuffer(std::uint32_t /*largest_chunk*/) noexcept : first_(new Chunk) {}
CQXBlockBuffer::~CQXBlockBuffer() { delete first_; }
void CQXBlockBuffer::SetBlockSize(std::uint32_t /*first_chunk*/,
                                  std::uint32_t /*growth*/) noexcept {}
void CQXBlockBuffer::Reset() noexcept {
  ForgetZone();
  first_->blocks.clear();
}
void CQXBlockBuffer::ReleaseAll() noexcept { Reset(); }

// The inline part never finds room, so that each request comes here.
void* CQXBlockBuffer::GetBufferFromNextChunk(std::uint32_t size) noexcept try {
  if (script != nullptr && !script->Grants(size)) return nullptr;
  return first_->blocks.emplace_back(size, '\xCD').data();
} catch (const std::bad_alloc&) {
  return nullptr;
}
