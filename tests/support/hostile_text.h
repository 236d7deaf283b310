#pragma once

// Texts for parsers: at the edge of readable memory, and mutated.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace qxfmt::test {

inline std::u16string Wide(std::string_view text) { return {text.begin(), text.end()}; }

// The words of a table, with a blank for each "_".
inline std::vector<std::string> Words(const std::string& table) {
  std::istringstream words(table);
  std::vector<std::string> list;
  for (std::string word; words >> word; list.push_back(word)) {
    std::replace(word.begin(), word.end(), '_', ' ');
  }
  return list;
}

// For reading by peers of 8-bit text: what is not ASCII becomes "?".
inline std::string Narrow(std::u16string_view text) {
  std::string narrow;
  for (const char16_t unit : text) narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
  return narrow;
}

// The text with its terminator in the last unit before an unreadable page. Valid until the next
// call.
inline const char16_t* AtPageEnd(std::u16string_view text) {
  static const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  static char* const guard = [] {
    char* const area = static_cast<char*>(
        mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    return mprotect(area + page, page, PROT_NONE) == 0 ? area + page : nullptr;
  }();
  char16_t* const end = reinterpret_cast<char16_t*>(guard);
  end[-1] = u'\0';
  return std::copy_backward(text.begin(), text.end(), end - 1);
}

inline const char16_t* AtPageEnd(std::string_view text) { return AtPageEnd(Wide(text)); }

// Calls `check` with the seeds, and with texts that are one to three edits away from a seed.
template <typename Check>
void ForMutatedTexts(const std::vector<std::string>& seeds, std::u16string_view alphabet,
                     int mutations, Check check) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t end) { return random() % std::max<std::size_t>(end, 1); };
  for (const std::string& seed : seeds) check(Wide(seed));
  for (int i = 0; i < mutations; ++i) {
    std::u16string text = Wide(seeds[below(seeds.size())]);
    for (std::size_t edits = 1 + below(3); edits > 0; --edits) {
      // Replaces none or one unit by none or one.
      text.replace(below(text.size() + 1), below(2), below(2), alphabet[below(alphabet.size())]);
    }
    check(text);
  }
}

}  // namespace qxfmt::test
