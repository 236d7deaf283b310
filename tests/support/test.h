#pragma once

// What every test of the library uses.

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"

namespace qxfmt::test {

// A result as UTF-8, so that tables are plain literals and failures readable.
inline std::string Utf8(std::u16string_view text) {
  std::string bytes;
  const auto put = [&bytes](unsigned byte) { bytes += static_cast<char>(byte); };
  for (const unsigned unit : text) {
    if (unit >= 0x800) put(0xE0 | unit >> 12);
    if (unit >= 0x80) put(unit < 0x800 ? 0xC0 | unit >> 6 : 0x80 | (unit >> 6 & 0x3F));
    put(unit < 0x80 ? unit : 0x80 | (unit & 0x3F));
  }
  return bytes;
}

// A call of a formatter and what it gives. Tables are lists of these:
//
//   ExpectRows({{CALL(FormatByte(1536, 2)), "1.50 KB", {128, 256}, "[MEM_ERR] KB"}});
struct Row {
  std::string name;
  std::function<ResultText(CQXDataFormat&)> call;
  std::string text;
  Sizes blocks{};                // in the order in which they are asked for; none for a constant
  std::string without_second{};  // the text if the second block is refused
};

#define CALL(operation) #operation, [&](auto& format) { return format.operation; }

// Calls with all blocks granted, then with the second one refused, then with all refused.
inline void ExpectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name + " gives \"" + row.text + "\"");
    ArenaScript arena;
    CQXDataFormat format;
    EXPECT_EQ(Utf8(row.call(format)), row.text);
    EXPECT_EQ(arena.TakeSizes(), row.blocks);
    if (row.blocks.size() > 1) {
      arena.Refuse(row.blocks.size() + 1);
      EXPECT_EQ(Utf8(row.call(format)), row.without_second);
      EXPECT_EQ(arena.TakeSizes(), row.blocks);
    }
    arena.RefuseAll();
    EXPECT_EQ(Utf8(row.call(format)), row.blocks.empty() ? row.text : "[MEM_ERR]");
    EXPECT_LE(arena.TakeSizes().size(), 1U);
  }
}

// The status with which an operation fails, or 0. The exception's words tell it too.
inline std::uint32_t StatusOf(const std::function<void()>& operation) try {
  operation();
  return 0;
} catch (const StatusException& failure) {
  char code[16];
  std::snprintf(code, sizeof code, "(0x%08X)", failure.status());
  EXPECT_NE(std::string(failure.what()).find(code), std::string::npos) << failure.what();
  return failure.status();
}

// The standard library's exact decimals.
inline std::string Exact(double value, int places) {
  char text[512];
  return {text, std::to_chars(text, text + 512, value, std::chars_format::fixed, places).ptr};
}

// The same with a comma before each three digits of the whole part, except the first ones.
inline std::string WithCommas(std::string number) {
  const std::size_t first_digit = number.starts_with('-') ? 1 : 0;
  const std::size_t whole_end = std::min(number.find('.'), number.size());
  for (std::size_t at = whole_end; at > first_digit + 3; at -= 3) number.insert(at - 3, ",");
  return number;
}

}  // namespace qxfmt::test

using namespace qxfmt::test;  // in every test
