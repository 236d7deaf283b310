#include "shared/table.h"

#include <algorithm>

#include <qxfmt/utf8.h>

namespace programs {

namespace {

constexpr std::size_t kGap = 2;  // blanks between columns

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// In quotes, where it would not be one cell without them.
std::string Quoted(std::string_view cell) {
  if (cell.find_first_of(",\"\n") == std::string_view::npos) return std::string(cell);
  std::string quoted = "\"";
  for (const char byte : cell) quoted.append(byte == '"' ? 2 : 1, byte);
  return quoted += '"';
}

}  // namespace

std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string_view Cut(std::string_view text, std::size_t width) {
  std::size_t size = 0;
  for (; size < text.size(); ++size) {
    if (StartsCharacter(text[size]) && width-- == 0) break;
  }
  return text.substr(0, size);
}

Table::Table(const std::vector<std::string>& headings, std::size_t left)
    : columns_(headings.size()), left_(left) {
  for (const std::string& heading : headings) Add(heading);
}

void Table::Add(std::string_view cell) {
  text_ += cell;
  ends_.push_back(text_.size());
}

void Table::Add(std::u16string_view cell) { Add(qxfmt::Utf8(cell)); }

std::string_view Table::Cell(std::size_t index) const {
  const std::size_t start = index == 0 ? 0 : ends_[index - 1];
  return std::string_view(text_).substr(start, ends_[index] - start);
}

std::string Table::ToString(std::size_t width, const ColumnGroups& dispensable) const {
  std::vector<std::size_t> widths;
  return ToString(width, dispensable, widths);
}

std::string Table::ToString(std::size_t width, const ColumnGroups& dispensable,
                            std::vector<std::size_t>& widths) const {
  widths.resize(columns_);
  for (std::size_t i = 0; i < ends_.size(); ++i) {
    widths[i % columns_] = std::max(widths[i % columns_], Width(Cell(i)));
  }
  std::vector<bool> is_shown(columns_, true);
  std::size_t total = kGap * (columns_ - 1);
  for (const std::size_t column : widths) total += column;
  for (const auto& group : dispensable) {
    if (total <= width) break;
    for (const std::size_t column : group) {
      is_shown[column] = false;
      total -= widths[column] + kGap;
    }
  }

  std::string text;
  std::size_t line = 0;  // where it starts
  for (std::size_t i = 0; i < ends_.size(); ++i) {
    const std::size_t column = i % columns_;
    if (is_shown[column]) {
      const std::size_t padding = widths[column] - Width(Cell(i));
      if (text.size() > line) text.append(kGap, ' ');
      if (column >= left_) text.append(padding, ' ');
      text += Cell(i);
      if (column < left_) text.append(padding, ' ');
    }
    if (column + 1 < columns_) continue;
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
    line = text.size();
  }
  return text;
}

std::string Table::ToCsv(bool with_headings) const {
  std::string text;
  for (std::size_t i = with_headings ? 0 : columns_; i < ends_.size(); ++i) {
    text += Quoted(Cell(i));
    text += (i + 1) % columns_ == 0 ? '\n' : ',';
  }
  return text;
}

}  // namespace programs
