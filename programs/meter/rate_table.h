#pragma once

// What the interfaces carry, as a table: two rows for each, one in and one out.

#include <cstddef>
#include <string>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/options.h"
#include "meter/rates.h"

namespace meter {

struct Row {
  const Load* load;
  const Flow* flow;
  bool is_sent;
  bool is_total;
};

// The rows of a round, which they point into; those of the total at the end.
std::vector<Row> RowsOf(const Round& round);

class RateTable {
 public:
  // In both units: bytes beside bits.
  explicit RateTable(bool in_both_units) : in_both_units_(in_both_units) {}

  // Headings and rows. Columns keep their widths from one call to the next. Where that is more than
  // `width`, the less important ones are left out.
  std::string ToString(CQXDataFormat& format, const Options& options, const Round& round,
                       const std::vector<Row>& rows, std::size_t width);

 private:
  bool in_both_units_;
  std::vector<std::size_t> widths_;
};

}  // namespace meter
