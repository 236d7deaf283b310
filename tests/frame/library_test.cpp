// The installed form of the library, with its real arena: memory and zone.

#include "support/counted_heap.h"
#include "support/platform.h"
#include "support/test.h"

// And none once there is enough.
TEST(Library, TakesMemoryInGrowingChunks) {
  const std::vector<std::size_t> chunks = {1024, 4096, 16384, 65536, 262144, 1 << 20, 1 << 20};
  heap.allocations = 0;
  CQXDataFormat format;
  int results = 0;
  for (; heap.allocations < std::ssize(chunks); ++results) format.FormatMacAddress(0);
  EXPECT_TRUE(std::equal(chunks.begin(), chunks.end(), heap.sizes));
  const int kInAllButTheLast = 1397760 / 50;  // a few less, for what is left at their ends
  EXPECT_NEAR(results, kInAllButTheLast, 7);
  format.Reset();
  for (; results > 0; --results) format.FormatMacAddress(0);
  EXPECT_EQ(heap.allocations, std::ssize(chunks));
}

// Texts that fill their blocks, in new chunks and then in kept ones.
TEST(Library, ResultsStayIntactUntilReset) {
  CQXDataFormat format;
  for (const int results : {3000, 6000}) {
    format.Reset();
    std::vector<std::pair<ResultText, std::string>> kept;
    for (int i = 0; i < results; ++i) {
      const double number = 1e95 + 1e91 * i;
      kept.emplace_back(format.FormatNumberEx(number, 0, 1), WithCommas(Exact(number, 0)));
      kept.emplace_back(format.FormatPercentage(i), WithCommas(std::to_string(100 * i)) + "%");
    }
    for (const auto& [result, text] : kept) ASSERT_EQ(Utf8(result), text);
  }
}

TEST(Library, ResetForgetsTheZone) {
  CQXDataFormat format;
  const std::pair<const char*, const char*> zones[] = {
      {"AAA-8", "06:13:20"}, {"AAA8", "14:13:20"}, {"AAA-8", "06:13:20"}};
  for (const auto& [zone, text] : zones) {
    UseZone(zone);
    format.Reset();
    for (int i = 0; i < 9; ++i) EXPECT_EQ(Utf8(format.FormatTime(1700000000)), text) << zone;
  }
}
