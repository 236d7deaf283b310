#include "numbers/grouping.h"

#include <cstring>

namespace qxfmt {

namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

}  // namespace

std::int32_t CopyGrouped(char16_t* out, std::int32_t room, std::u16string_view number) {
  const std::size_t sign = !number.empty() && number[0] == u'-' ? 1 : 0;
  std::size_t end = sign;
  while (end < number.size() && IsDigit(number[end])) ++end;
  const std::size_t digits = end - sign;
  const std::size_t commas = digits == 0 ? 0 : (digits - 1) / 3;
  const auto size = static_cast<std::int32_t>(number.size() + commas);
  if (size > room) {
    *out = u'\0';
    return 0;
  }

  const char16_t* in = number.data();
  const std::size_t head = sign + digits - 3 * commas;
  std::memcpy(out, in, head * sizeof(char16_t));
  out += head;
  in += head;
  for (std::size_t i = 0; i < commas; ++i) {
    *out++ = u',';
    std::memcpy(out, in, 3 * sizeof(char16_t));
    out += 3;
    in += 3;
  }
  const std::size_t tail = number.size() - end;
  std::memcpy(out, in, tail * sizeof(char16_t));
  out[tail] = u'\0';
  return size;
}

}  // namespace qxfmt
