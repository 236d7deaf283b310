// Every allocation of every operation refused, in turn, with the real arena.

#include "support/operations.h"
#include "support/test.h"

namespace {

// Refuses the call's allocation of this number, after so many results in the first chunk, and calls
// again. False if the call makes fewer allocations.
bool Refuse(int number, const Call& call, std::u16string_view whole, int results) {
  Formatter format;
  for (int i = 0; i < results; ++i) static_cast<void>(format.FormatIpAddress(0));
  const Outcome outcome(call, format, number);
  EXPECT_TRUE(outcome.refused ? outcome.IsToldFor(whole) : outcome.text == whole)
      << Utf8(outcome.text) << " in place of " << Utf8(whole);
  EXPECT_EQ(Utf8(Outcome(call, format).text), Utf8(whole));
  return outcome.refused;
}

}  // namespace

TEST(RefusedAllocations, EachOfEveryOperation) {
  constexpr int kResults = 25;  // fill the first chunk
  int refusals = 0;
  for (const Call& call : RandomCalls(20)) {
    Formatter format;
    const std::u16string whole(Outcome(call, format).text);
    SCOPED_TRACE(Utf8(whole));
    const int live = heap.live;
    for (int results = 0; results <= kResults; ++results) {
      for (int number = 0; Refuse(number, call, whole, results); ++number) ++refusals;
      ASSERT_EQ(heap.live, live);
    }
  }
  EXPECT_GT(refusals, 10000);
}
