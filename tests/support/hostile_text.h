#pragma once

// Texts for parsers: at the edge of readable memory, and mutated.

#include <iterator>
#include <random>
#include <sstream>

#include "support/platform.h"
#include "support/test.h"

namespace qxfmt::test {

inline std::u16string Wide(std::string_view text) { return {text.begin(), text.end()}; }

// The text with its terminator in the last unit before an unreadable page. Valid until the next
// call.
inline const char16_t* AtPageEnd(std::u16string_view text) {
  static char16_t* const end = reinterpret_cast<char16_t*>(EndOfReadableArea());
  end[-1] = u'\0';
  return std::copy_backward(text.begin(), text.end(), end - 1);
}

// Such a text with its own last unit in place of the terminator: nothing after it can be read.
inline const char16_t* WithoutTerminator(std::u16string_view text) {
  const auto copy = const_cast<char16_t*>(AtPageEnd(text.substr(0, text.size() - 1)));
  copy[text.size() - 1] = text.back();
  return copy;
}

// Calls `check` with no text, and with texts that are none to three edits away from a seed: as
// 8-bit text and at the page end, each also with a blank after it. Seeds are words, "_" is a blank.
void ForMutatedTexts(const std::string& table, std::u16string_view alphabet, auto check) {
  std::istringstream words(table);
  const std::vector<std::string> seeds{std::istream_iterator<std::string>(words), {}};
  std::mt19937 random(1);
  check("", nullptr);
  for (std::size_t i = 0; i < 40000; ++i) {
    std::u16string text = Wide(seeds[i % seeds.size()]);
    std::replace(text.begin(), text.end(), u'_', u' ');
    for (auto edits = random() % 4; edits > 0; --edits) {
      // Replaces none or one unit by none or one.
      const char16_t unit = alphabet[random() % alphabet.size()];
      text.replace(random() % (text.size() + 1), random() % 2, random() % 2, unit);
    }
    check(Utf8(text), AtPageEnd(text));
    text += u' ';
    check(Utf8(text), AtPageEnd(text));
  }
}

}  // namespace qxfmt::test
