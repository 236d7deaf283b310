#pragma once

// What tests see of the arena. Linked in place of the real one, the scripted arena gives every
// request a heap area of exactly its size, so that AddressSanitizer sees a write past a block,
// fills it with rubbish, logs the size, and refuses the requests that it was told to refuse.

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

namespace qxfmt::test {

using Sizes = std::vector<std::uint32_t>;

// Of the calling thread, from its creation to its end.
class ArenaScript {
 public:
  ArenaScript();
  ~ArenaScript();

  // Refuses the request with this number, counted from 0 since the script began.
  void Refuse(std::size_t request) { refused_.insert(request); }
  void RefuseAll(bool refuse = true) { refuse_all_ = refuse; }

  // The sizes asked for since the last call, refused ones included.
  Sizes TakeSizes();

  // For the arena.
  bool Grants(std::uint32_t size);

 private:
  Sizes sizes_;
  std::set<std::size_t> refused_;
  std::size_t requests_ = 0;
  bool refuse_all_ = false;
};

}  // namespace qxfmt::test
