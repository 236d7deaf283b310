#include "support/scripted_arena.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>
#include <utility>

#include <qxfmt/block_buffer.h>

namespace {

thread_local qxfmt::test::ArenaScript* script = nullptr;

std::mutex blocks_mutex;
std::unordered_map<const CQXBlockBuffer*, std::vector<void*>> blocks;

}  // namespace

namespace qxfmt::test {

ArenaScript::ArenaScript() { script = this; }
ArenaScript::~ArenaScript() { script = nullptr; }

void ArenaScript::RefuseNone() {
  refused_.clear();
  refuse_all_ = false;
}

std::vector<std::uint32_t> ArenaScript::TakeSizes() { return std::exchange(sizes_, {}); }

bool ArenaScript::Grants(std::uint32_t size) {
  sizes_.push_back(size);
  return refused_.count(requests_++) == 0 && !refuse_all_;
}

}  // namespace qxfmt::test

CQXBlockBuffer::CQXBlockBuffer(std::uint32_t largest_chunk) : largest_chunk_(largest_chunk) {}
CQXBlockBuffer::~CQXBlockBuffer() = default;
void CQXBlockBuffer::SetBlockSize(std::uint32_t first_chunk, std::uint32_t growth) {
  first_chunk_ = first_chunk;
  growth_ = growth;
}

void* CQXBlockBuffer::GetBuffer(std::uint32_t size) {
  if (script != nullptr && !script->Grants(size)) return nullptr;
  void* const block = std::malloc(size);
  std::memset(block, 0xCD, size);
  const std::lock_guard lock(blocks_mutex);
  blocks[this].push_back(block);
  return block;
}

void CQXBlockBuffer::Reset() { ReleaseAll(); }

void CQXBlockBuffer::ReleaseAll() {
  const std::lock_guard lock(blocks_mutex);
  for (void* const block : blocks[this]) std::free(block);
  blocks.erase(this);
}
