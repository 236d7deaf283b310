// The installed form of the library, with its real arena: memory and zone.

#if defined(__SANITIZE_ADDRESS__)
#define QXFMT_TESTS_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QXFMT_TESTS_ADDRESS_SANITIZER
#endif
#endif
#if defined(QXFMT_TESTS_ADDRESS_SANITIZER)
#include <sanitizer/asan_interface.h>
#endif

#include "support/counted_heap.h"
#include "support/platform.h"
#include "support/test.h"

// And none once there is enough.
TEST(Library, TakesMemoryInGrowingChunks) {
  const std::vector<std::size_t> chunks = {1024, 4096, 16384, 65536, 262144, 1 << 20, 1 << 20};
  heap.allocations = 0;
  CQXDataFormat format;
  std::size_t results = 0;
  for (; heap.allocations < std::ssize(chunks); ++results)
    static_cast<void>(format.FormatMacAddress(0));
  EXPECT_TRUE(std::equal(chunks.begin(), chunks.end(), heap.sizes));
  std::size_t room = 1;  // the last block; the other chunks hold what they can
  for (std::size_t i = 0; i + 1 < chunks.size(); ++i) room += (chunks[i] - 2 * sizeof(void*)) / 50;
  EXPECT_EQ(results, room);
  format.Reset();
  for (; results > 0; --results) static_cast<void>(format.FormatMacAddress(0));
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

#if defined(QXFMT_TESTS_ADDRESS_SANITIZER)
// In this chunk and in one that is taken later.
TEST(Library, AddressSanitizerSeesTextsUsedAfterReset) {
  CQXDataFormat format;
  std::vector<ResultText> texts;
  for (int i = 0; i < 100; ++i) texts.push_back(format.FormatMacAddress(0));
  for (const ResultText text : texts) EXPECT_EQ(Utf8(text), "00:00:00:00:00:00");
  format.Reset();
  for (const ResultText text : texts) EXPECT_NE(__asan_address_is_poisoned(text), 0);
  EXPECT_DEATH(static_cast<void>(Utf8(texts[0])), "use-after-poison");
  EXPECT_EQ(Utf8(format.FormatNumber(1, 0)), "1");
}
#endif

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
