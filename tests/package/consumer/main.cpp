#include <iostream>
#include <string>

#include <qxfmt/qxfmt.h>

int main() {
  CQXDataFormat format;
  const std::u16string text = format.FormatByte(1536, 2);
  if (text != u"1.50 KB") {
    std::cerr << "1536 bytes came out wrong\n";
    return 1;
  }
}
