#include "support/scripted_arena.h"

#include <cstring>
#include <memory>
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
  std::vector<std::unique_ptr<char[]>> blocks;
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
void* CQXBlockBuffer::GetBufferFromNextChunk(std::uint32_t size) noexcept {
  if (script != nullptr && !script->Grants(size)) return nullptr;
  char* const block = first_->blocks.emplace_back(new char[size]).get();
  std::memset(block, 0xCD, size);
  return block;
}
