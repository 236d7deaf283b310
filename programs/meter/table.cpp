#include "meter/table.h"

#include <algorithm>
#include <utility>

#include <qxfmt/utf8.h>

namespace meter {

namespace {

// One column for each character: no cell of ours holds wide or combining ones.
std::size_t Width(const std::string& cell) {
  return static_cast<std::size_t>(std::count_if(cell.begin(), cell.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}

}  // namespace

Table::Table(std::vector<std::string> headings, std::size_t left) : left_(left) {
  rows_.push_back(std::move(headings));
}

void Table::StartRow() { rows_.emplace_back(); }

void Table::Add(std::string cell) { rows_.back().push_back(std::move(cell)); }

void Table::Add(std::u16string_view cell) { Add(qxfmt::Utf8(cell)); }

std::string Table::ToString() const {
  std::vector<std::size_t> widths(rows_.front().size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  std::string text;
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - Width(row[i]), ' ');
      if (i > 0) text += "  ";
      text += i < left_ ? row[i] + padding : padding + row[i];
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

}  // namespace meter
