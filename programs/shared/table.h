#pragma once

// Rows of cells in columns as wide as their widest cell.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace programs {

// Columns that a text takes: one for each character. No cell of ours holds wide or combining ones.
std::size_t Width(std::string_view text);

// As much of a text as fits into so many columns.
std::string_view Cut(std::string_view text, std::size_t width);

// Groups of columns that go together, by their places.
using ColumnGroups = std::vector<std::vector<std::size_t>>;

class Table {
 public:
  // The first `left` columns are aligned left, the others right.
  explicit Table(const std::vector<std::string>& headings, std::size_t left = 1);

  // The next cell of a row; a full row is followed by the next one.
  void Add(std::string_view cell);     // UTF-8
  void Add(std::u16string_view cell);  // as QXFMT gives it

  // Where the rows are wider than `width`, columns are left out until they fit: those of the first
  // group of `dispensable`, then of the next.
  std::string ToString(std::size_t width = SIZE_MAX, const ColumnGroups& dispensable = {}) const;

  // As above, with columns at least as wide as `widths`, which become what is shown: those of a
  // table that is shown again and again do not jump.
  std::string ToString(std::size_t width, const ColumnGroups& dispensable,
                       std::vector<std::size_t>& widths) const;

  // Comma-separated values (RFC 4180), the headings only if they are asked for.
  std::string ToCsv(bool with_headings = true) const;

 private:
  std::string_view Cell(std::size_t index) const;

  std::size_t columns_;
  std::size_t left_;
  std::string text_;               // of all cells, one after the other: a million rows fit
  std::vector<std::size_t> ends_;  // of each cell in there
};

}  // namespace programs
