// A program of calls on one formatter, with refused memory, changed settings, resets and
// destructions. Whatever it does:
//
// - A call gives the text that it gives on a new formatter, the first time and each later one.
// - The text is terminated, and stays as it is until the reset or the destruction.
// - If an allocation is refused, the call tells just that, and the next call is right.
// - Nothing is left on the heap.
//
// Built with the real arena and with the scripted one, in which each block is a heap area of
// exactly its size, so that a text beyond its block is seen.

#include <optional>

#include "fuzzing.h"
#include "support/operations.h"

using namespace qxfmt::test;

namespace {

const std::vector<Operation> operations = Operations();
const int zone = setenv("TZ", "AAA-1BBB,M3.5.0,M10.5.0", 1);

// A formatter with its results since the last reset.
class Life {
 public:
  ~Life() { Reset(); }

  void Reset() {
    for (const auto& [result, text] : results_) Check(result == text);
    results_.clear();
    format_.Reset();
  }

  // The call, up to eight times; the first one perhaps without one of its allocations.
  void Run(const Call& call, std::uint8_t how) {
    Formatter other;
    const std::u16string whole(Outcome(call, other).text);
    for (int time = 0; time <= how / 4 % 8; ++time) {
      const Outcome outcome(call, format_, time == 0 ? how % 4 - 1 : -1);
      Check(outcome.refused ? outcome.IsToldFor(whole) : outcome.text == whole);
      results_.emplace_back(outcome.text, outcome.text);
    }
  }

 private:
  Formatter format_;
  std::vector<std::pair<std::u16string_view, std::u16string>> results_;
};

void Run(Arguments from) {
  std::optional<Life> life(std::in_place);
  Settings settings = kStartSettings;
  SetSettings(settings);
  while (from.left() > 0) {
    const std::size_t step = from.TakeByte() % 72;
    if (step < operations.size()) {
      life->Run(operations[step](from), from.TakeByte());
    } else if (step == 71) {
      life->Reset();
    } else if (step == 70) {
      life.emplace();
    } else if (step == 69) {
      const bool usual = from.TakeByte() % 2 == 0;
      std::pmr::set_default_resource(usual ? nullptr : std::pmr::null_memory_resource());
    } else {
      settings[from.TakeByte() % settings.size()] = from.Take<std::int32_t>();
      SetSettings(settings);
    }
  }
  std::pmr::set_default_resource(nullptr);
}

}  // namespace

void Fuzz(WideText /*text*/, const std::uint8_t* data, std::size_t size) {
  const int live = heap.live;
  Run(Arguments({data, size}));
  Check(zone == 0 && heap.live == live);
}
