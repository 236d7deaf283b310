#include "fuzzing.h"

namespace {

// Whether the text took it. A refused format leaves the text as it was.
template <typename... Arguments>
bool Append(GrowableText& text, WideText format, const Arguments&... arguments) {
  const std::u16string before(text);
  try {
    text.append_format(format, arguments...);
  } catch (const StatusException& failure) {
    Check(failure.status() == StatusException::kFailed && before == std::u16string_view(text));
    return false;
  }
  Check(std::u16string_view(text).substr(0, before.size()) == before);
  return true;
}

// A text that is its own format, and an argument too, reads like a format that lies elsewhere.
template <typename... Arguments>
void CheckFormat(WideText format, const Arguments&... arguments) {
  GrowableText apart;
  const bool taken = Append(apart, format, arguments...);
  GrowableText own;
  own.assign(format);
  own.reserve(own.size() + apart.size() * (apart.size() % 2));  // in place, or while it grows
  Check(Append(own, own.c_str(), arguments...) == taken);
  Check(!taken || std::u16string(own) == std::u16string(format) + std::u16string(apart));
  Append(own, own.c_str(), own, std::u16string_view(own), arguments...);
}

}  // namespace

// Formats that a caller supplies, with arguments of all kinds.
void Fuzz(WideText text, const std::uint8_t* data, std::size_t size) {
  std::uint64_t bits = size;
  for (std::size_t i = 0; i < size; ++i) bits = bits << 5 ^ bits >> 3 ^ data[i];
  const auto number = std::bit_cast<double>(bits);
  const auto narrow = static_cast<std::int32_t>(bits);
  switch (size % 6) {
    case 0:
      return CheckFormat(text);
    case 1:
      return CheckFormat(text, narrow);
    case 2:
      return CheckFormat(text, number, static_cast<std::uint16_t>(bits));
    case 3:
      return CheckFormat(text, text, static_cast<std::uint8_t>(bits), number);
    case 4:
      return CheckFormat(text, bits, static_cast<std::int64_t>(bits), text);
    default:
      return CheckFormat(text, narrow, static_cast<std::uint32_t>(bits), text, number, bits);
  }
}
