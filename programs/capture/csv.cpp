#include "capture/csv.h"

#include "capture/packet_text.h"

namespace capture {

void Csv::PutHeadings(std::string_view headings) {
  output_.Put(headings);
  output_.EndLine();
}

void Csv::StartCell() {
  if (!is_row_empty_) output_.Put(',');
  is_row_empty_ = false;
}

void Csv::PutCell(std::string_view text) {
  StartCell();
  output_.Put(text);
}

// Dates with the name of the month have a comma. No text of ours has quotes itself.
void Csv::PutCell(ResultText text) {
  StartCell();
  const std::u16string_view view = text;
  const bool is_quoted = view.find(u',') != std::u16string_view::npos;
  if (is_quoted) output_.Put('"');
  output_.Put(text);
  if (is_quoted) output_.Put('"');
}

void Csv::PutEndpoint(const Endpoint& endpoint) {
  Endpoint address = endpoint;
  address.has_port = false;
  PutCell(EndpointText(format_, address));
  PutCell(endpoint.has_port ? format_.FormatNumber(endpoint.port, 0) : u"");
}

void Csv::EndRow() {
  output_.EndLine();
  is_row_empty_ = true;
}

}  // namespace capture
