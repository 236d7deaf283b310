// Patterns and arguments of append_format from the data. Whatever they are:
//
// - A pattern that is refused, or an allocation, leaves the text as it was.
// - A text that is its own pattern, and an argument too, reads like one that lies elsewhere.

#include "fuzzing.h"
#include "support/operations.h"

using namespace qxfmt::test;

namespace {

// Whether the text takes it, tried first without memory to grow.
template <typename... Arguments>
bool Append(GrowableText& text, WideText pattern, const Arguments&... arguments) {
  const std::u16string before(text);
  for (const int refused_allocation : {0, -1}) {
    const Refusal refusal(refused_allocation);
    try {
      text.append_format(pattern, arguments...);
      Check(std::u16string_view(text).starts_with(before));
      return true;
    } catch (const StatusException& failure) {
      Check(before == std::u16string_view(text));
      if (failure.status() == StatusException::kFailed) return false;
      Check(failure.status() == StatusException::kNoMemory && refusal.has_happened());
    }
  }
  return false;
}

// What is passed where the pattern lies elsewhere, the C library's print of it, and where the text
// is its own pattern.
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
  const std::uint8_t kind = from.TakeByte();
  const auto value = from.Take<std::int64_t>();
  const qxfmt::FormatArgument arguments[] = {
      qxfmt::FormatArgument(value),
      qxfmt::FormatArgument(static_cast<std::uint64_t>(value)),
      qxfmt::FormatArgument(static_cast<std::int32_t>(value)),
      qxfmt::FormatArgument(static_cast<std::uint16_t>(value)),
      qxfmt::FormatArgument(static_cast<double>(value) / 1000),
      qxfmt::FormatArgument(std::bit_cast<double>(value)),
      qxfmt::FormatArgument(text),
      qxfmt::FormatArgument(),
  };
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
