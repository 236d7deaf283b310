#pragma once

// Rows of cells in columns as wide as their widest cell.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace meter {

class Table {
 public:
  explicit Table(std::vector<std::string> headings);

  void StartRow();
  void Add(std::string cell);          // UTF-8
  void Add(std::u16string_view cell);  // as QXFMT gives it

  // The first column aligned left, the others right.
  std::string ToString() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace meter
