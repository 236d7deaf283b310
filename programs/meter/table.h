#pragma once

// Rows of cells in columns as wide as their widest cell.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace meter {

class Table {
 public:
  // The first `left` columns are aligned left, the others right.
  explicit Table(std::vector<std::string> headings, std::size_t left = 1);

  void StartRow();
  void Add(std::string cell);          // UTF-8
  void Add(std::u16string_view cell);  // as QXFMT gives it

  std::string ToString() const;

 private:
  std::vector<std::vector<std::string>> rows_;
  std::size_t left_;
};

}  // namespace meter
