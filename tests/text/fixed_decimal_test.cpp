#include "text/fixed_decimal.h"

#include <bit>
#include <random>

#include "support/test.h"

using namespace qxfmt;

void ExpectExact(const char* path, const Field auto& decimal, const std::string& text) {
  char16_t area[512];
  ASSERT_EQ(Utf8({area, decimal.Write(area)}), text) << path;
}

TEST(FixedDecimal, BothPathsAgreeWithTheStandardLibrary) {
  constexpr int kShortOnes = 1'000'000;
  constexpr std::int32_t kPlaces[] = {0, 1, 2, 3, 4, 9, 18, 19, 20, 32};
  std::mt19937_64 random(3);
  for (int round = 0, short_ones = 0; short_ones < kShortOnes && !HasFatalFailure(); ++round) {
    ASSERT_LT(round, 2 * kShortOnes) << "the short path takes too few of them";
    const std::uint64_t bits = random();
    const auto whole = static_cast<double>(bits >> random() % 64);
    const double values[] = {std::bit_cast<double>(bits),
                             std::ldexp(whole, -static_cast<int>(random() % 140)),
                             std::ldexp(whole, -static_cast<int>(random() % 22))};  // often a tie
    const double value = values[random() % std::size(values)];
    const std::int32_t places = kPlaces[random() % std::size(kPlaces)];
    const Grouping grouping = round % 2 == 0 ? Grouping::kNone : Grouping::kCommas;
    const std::string exact = Exact(value, places);
    const std::string text = round % 2 == 0 ? exact : WithCommas(exact);
    ShortDecimal short_one;
    if (short_one.Read(value, places, grouping)) {
      ExpectExact("ShortDecimal", short_one, text);
      ++short_ones;
    } else {
      const LongDecimal long_one(value, places, grouping);
      ExpectExact("LongDecimal", long_one, text);
      ASSERT_EQ(long_one.size(), text.size()) << text;
    }
  }
}
