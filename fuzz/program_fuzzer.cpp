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

#include <cstdlib>
#include <optional>
#include <utility>

#include "fuzzing.h"
#include "support/operations.h"

using namespace qxfmt::test;

namespace {

const std::vector<Operation> operations = Operations();
const int zone = setenv("TZ", "AAA-1BBB,M3.5.0,M10.5.0", 1);

class Program {
 public:
  Program() { SetSettings(settings_); }
  ~Program() {
    CheckResults();
    UseHeapForShortTexts(false);
  }

  void Step(Arguments& from) {
    const std::uint8_t step = from.TakeByte() % 64;
    if (step < operations.size()) return Run(operations[step](from), from.TakeByte());
    if (step == 63 || step == 62) {
      CheckResults();
      if (step == 63)
        format_->Reset();
      else
        format_.emplace();
      return;
    }
    if (step == 61) return UseHeapForShortTexts(from.TakeByte() % 2 != 0);
    settings_[from.TakeByte() % settings_.size()] = from.Take<std::int32_t>();
    SetSettings(settings_);
  }

 private:
  // The call, up to eight times; the first one perhaps without one of its allocations.
  void Run(const Call& call, std::uint8_t how) {
    Formatter other;
    const std::u16string whole(Outcome(call, other).text);
    for (int time = 0; time <= how / 4 % 8; ++time) {
      const Outcome outcome(call, *format_, time == 0 ? how % 4 - 1 : -1);
      Check(outcome.refused ? outcome.IsToldFor(whole) : outcome.text == whole);
      results_.emplace_back(outcome.text, outcome.text);
    }
  }

  void CheckResults() {
    for (const auto& [result, text] : results_) Check(result == text);
    results_.clear();
  }

  std::optional<Formatter> format_{std::in_place};
  std::array<std::int32_t, 9> settings_ = kStartSettings;
  std::vector<std::pair<std::u16string_view, std::u16string>> results_;
};

}  // namespace

void Fuzz(WideText /*text*/, const std::uint8_t* data, std::size_t size) {
  const int live = heap.live;
  {
    Program program;
    Arguments from({data, size});
    while (from.left() > 0) program.Step(from);
  }
  Check(zone == 0 && heap.live == live);
}
