// Patterns and arguments of append_format from the data. Whatever they are:
//
// - A pattern that is refused leaves the text as it was.
// - A text that is its own pattern, and an argument too, reads like one that lies elsewhere.

#include "fuzzing.h"
#include "support/operations.h"

using namespace qxfmt::test;

namespace {

// Whether the text took it.
template <typename... Arguments>
bool Append(GrowableText& text, WideText pattern, const Arguments&... arguments) {
  const std::u16string before(text);
  try {
    text.append_format(pattern, arguments...);
  } catch (const StatusException& failure) {
    Check(failure.status() == StatusException::kFailed && before == std::u16string_view(text));
    return false;
  }
  Check(std::u16string_view(text).starts_with(before));
  return true;
}

template <typename... Arguments>
void CheckPattern(WideText pattern, const Arguments&... arguments) {
  GrowableText apart;
  const bool taken = Append(apart, pattern, arguments...);
  GrowableText own;
  own.assign(pattern);
  own.reserve(own.size() + apart.size() * (apart.size() % 2));  // in place, or while it grows
  Check(Append(own, own.c_str(), arguments...) == taken);
  Check(!taken || std::u16string(own) == std::u16string(pattern) + std::u16string(apart));
  Append(own, own.c_str(), own, std::u16string_view(own), arguments...);
}

qxfmt::FormatArgument TakeArgument(Arguments& from, WideText text) {
  using Argument = qxfmt::FormatArgument;
  const std::uint8_t kind = from.TakeByte();
  const auto value = from.Take<std::int64_t>();
  const Argument arguments[] = {Argument(value),
                                Argument(static_cast<std::uint64_t>(value)),
                                Argument(static_cast<std::int32_t>(value)),
                                Argument(static_cast<std::uint16_t>(value)),
                                Argument(std::bit_cast<double>(value)),
                                Argument(text)};
  return arguments[kind % std::size(arguments)];
}

}  // namespace

void Fuzz(WideText text, const std::uint8_t* data, std::size_t size) {
  Arguments from({data, size});
  const std::uint8_t count = from.TakeByte() % 4;
  const qxfmt::FormatArgument first = TakeArgument(from, text);
  const qxfmt::FormatArgument second = TakeArgument(from, text);
  const WideText pattern = text + (size - from.left());
  if (count == 0) return CheckPattern(pattern);
  if (count == 1) return CheckPattern(pattern, first);
  if (count == 2) return CheckPattern(pattern, first, second);
  CheckPattern(pattern, first, second, first);
}
