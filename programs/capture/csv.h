#pragma once

// Rows of comma-separated values (RFC 4180).

#include <string_view>

#include <qxfmt/qxfmt.h>

#include "capture/dissect.h"
#include "capture/output.h"

namespace capture {

class Csv {
 public:
  Csv(Output& output, CQXDataFormat& format) : output_(output), format_(format) {}

  void PutHeadings(std::string_view headings);

  // A cell whose content is put to the output.
  void StartCell();
  void PutCell(std::string_view text);
  void PutCell(ResultText text);

  // Two cells: the address, and the port or nothing.
  void PutEndpoint(const Endpoint& endpoint);
  void EndRow();

 private:
  Output& output_;
  CQXDataFormat& format_;
  bool is_row_empty_ = true;
};

}  // namespace capture
