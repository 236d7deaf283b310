// Formatters on threads of their own, with all operations, while another thread changes all
// settings.

#include <atomic>
#include <set>
#include <thread>

#include "support/operations.h"
#include "support/platform.h"
#include "support/test.h"

namespace {

// Each setting as it is at start or, where its bit is set, another one.
void ChooseSettings(unsigned bits) {
  Settings settings = kStartSettings;
  for (std::size_t i = 0; i < settings.size(); ++i) {
    if ((bits >> i & 1) != 0) settings[i] = settings[i] == 0 ? 4 : 0;
  }
  SetSettings(settings);
}

}  // namespace

// Each text is the one of some settings: as they were, or as they became meanwhile.
TEST(Threads, AllOperationsWhileTheSettingsChange) {
  UseZone("AAA-1BBB,M3.5.0,M10.5.0");
  const std::vector<Call> calls = RandomCalls(5);
  std::vector<std::set<std::u16string>> texts(calls.size());
  for (unsigned bits = 0; bits < 1 << kStartSettings.size(); ++bits) {
    ChooseSettings(bits);
    Formatter format;
    for (std::size_t i = 0; i < calls.size(); ++i) texts[i].insert(calls[i](format));
  }

  std::atomic<bool> done = false;
  const auto change_settings = [&] {
    for (std::mt19937 random; !done;) ChooseSettings(static_cast<unsigned>(random()));
  };
  const auto format_all = [&] {
    Formatter format;
    for (int round = 0; round < 20; ++round) {
      format.Reset();
      for (std::size_t i = 0; i < calls.size(); ++i) {
        for (int again = 0; again < 6; ++again) {  // so that the zone's offset is remembered
          EXPECT_TRUE(texts[i].contains(calls[i](format))) << i;
        }
      }
    }
  };
  std::thread changing(change_settings);
  std::vector<std::thread> formatting;
  for (int i = 0; i < 4; ++i) formatting.emplace_back(format_all);
  for (std::thread& thread : formatting) thread.join();
  done = true;
  changing.join();
  ChooseSettings(0);
}
