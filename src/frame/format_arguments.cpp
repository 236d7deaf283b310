#include "frame/format_arguments.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "frame/digits.h"
#include "frame/fixed_decimal.h"
#include "frame/pattern.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kUsualPlaces = 6;  // of a "%f" without a precision

struct Integer {
  bool negative;
  std::uint64_t magnitude;
};

Integer IntegerOf(const FormatArgument& argument) {
  const std::uint64_t bits = argument.integer();
  const bool negative = argument.kind() == FormatArgument::Kind::kSigned && (bits >> 63) != 0;
  return {negative, negative ? 0 - bits : bits};
}

FixedDecimal DecimalOf(const Conversion& conversion, const FormatArgument& argument) {
  const bool given = conversion.precision != kNoPrecision;
  return {argument.floating(), given ? conversion.precision : kUsualPlaces};
}

std::int32_t ShownDigits(const Conversion& conversion, Integer integer) {
  const std::int32_t digits =
      conversion.is_hex() ? CountHexDigits(integer.magnitude) : CountDigits(integer.magnitude);
  return std::max(digits, conversion.width - (integer.negative ? 1 : 0));
}

// Adds up what a text takes.
class Meter {
 public:
  void Put(std::u16string_view text) { size_ += text.size(); }
  void Put(const Conversion& conversion, Integer integer) {
    size_ += static_cast<std::uint64_t>(ShownDigits(conversion, integer));
    size_ += integer.negative ? 1 : 0;
  }
  void Put(const FixedDecimal& decimal) { size_ += static_cast<std::uint64_t>(decimal.size()); }

  std::uint64_t size() const { return size_; }

 private:
  std::uint64_t size_ = 0;
};

class Writer {
 public:
  explicit Writer(char16_t* out) : out_(out) {}

  void Put(std::u16string_view text) {
    if (text.empty()) return;
    std::memcpy(out_, text.data(), text.size() * sizeof(char16_t));
    out_ += text.size();
  }
  void Put(const Conversion& conversion, Integer integer) {
    if (integer.negative) *out_++ = u'-';
    const std::int32_t digits = ShownDigits(conversion, integer);
    if (conversion.is_hex()) {
      WriteHexDigits(out_, integer.magnitude, digits,
                     conversion.kind == Kind::kHexUpper ? kHexDigitsUpper : kHexDigitsLower);
    } else {
      WriteDigits(out_, integer.magnitude, digits);
    }
    out_ += digits;
  }
  void Put(const FixedDecimal& decimal) { out_ = decimal.Write(out_); }

 private:
  char16_t* out_;
};

// Whether every value of the argument's type is one of the conversion's own.
bool FitsInteger(const Conversion& conversion, const FormatArgument& argument) {
  const bool is_signed = conversion.kind == Kind::kSigned;
  switch (argument.kind()) {
    case FormatArgument::Kind::kSigned:
      return is_signed && argument.bits() <= conversion.bits;
    case FormatArgument::Kind::kUnsigned:
      return is_signed ? argument.bits() < conversion.bits : argument.bits() <= conversion.bits;
    default:
      return false;
  }
}

bool Fits(const Conversion& conversion, const FormatArgument& argument) {
  if (conversion.is_integer()) {
    return conversion.precision == kNoPrecision && conversion.zero_fill == (conversion.width > 0) &&
           FitsInteger(conversion, argument);
  }
  if (conversion.width > 0 || conversion.zero_fill) return false;
  if (conversion.kind == Kind::kText) {
    return conversion.precision == kNoPrecision && argument.kind() == FormatArgument::Kind::kText;
  }
  return conversion.precision != kPrecisionFromArgument && conversion.precision <= kMaxPlaces &&
         argument.kind() == FormatArgument::Kind::kDouble;
}

template <typename Sink>
void PutArgument(Sink& sink, const Conversion& conversion, const FormatArgument& argument) {
  if (conversion.kind == Kind::kText) {
    sink.Put(argument.text());
  } else if (conversion.kind == Kind::kFixed) {
    sink.Put(DecimalOf(conversion, argument));
  } else {
    sink.Put(conversion, IntegerOf(argument));
  }
}

}  // namespace

FormattedText::FormattedText(std::u16string_view pattern, const FormatArgument* arguments,
                             std::size_t count)
    : pattern_(pattern), arguments_(arguments), count_(count) {
  Meter meter;
  valid_ = Walk(meter);
  size_ = meter.size();
}

void FormattedText::Write(char16_t* out) const {
  Writer writer(out);
  Walk(writer);
}

// False at the first conversion that is not of the family or whose argument is missing or does not
// fit, and if arguments are left over.
template <typename Sink>
bool FormattedText::Walk(Sink& sink) const {
  std::size_t used = 0;
  for (std::u16string_view rest = pattern_;;) {
    const std::size_t literal = std::min(rest.find(u'%'), rest.size());
    sink.Put(rest.substr(0, literal));
    rest.remove_prefix(literal);
    if (rest.empty()) break;

    rest.remove_prefix(1);
    Conversion conversion;
    if (!TakeConversion(rest, conversion)) return false;
    if (conversion.kind == Kind::kPercent) {
      sink.Put(u"%");
    } else {
      if (used == count_ || !Fits(conversion, arguments_[used])) return false;
      PutArgument(sink, conversion, arguments_[used++]);
    }
  }
  return used == count_;
}

}  // namespace qxfmt
