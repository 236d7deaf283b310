#include "growable/format_arguments.h"

#include <algorithm>
#include <string_view>

#include "growable/pattern.h"
#include "text/bounded_print.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"
#include "text/hex_digits.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kUsualPlaces = 6;  // of a "%f" without a precision

// Hexadecimal digits, filled with zeros on the left.
class HexNumber {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;
  static constexpr std::int32_t kSlack = 0;

  HexNumber(std::uint64_t value, std::int32_t least_digits, const char16_t* digits)
      : value_(value), count_(std::max(CountHexDigits(value), least_digits)), digits_(digits) {}

  std::size_t size() const { return static_cast<std::size_t>(count_); }

  char16_t* Write(char16_t* out) const {
    std::uint64_t rest = value_;
    for (std::int32_t i = count_; i > 0; --i, rest >>= 4) out[i - 1] = digits_[rest & 0xF];
    return out + count_;
  }

 private:
  std::uint64_t value_;
  std::int32_t count_;
  const char16_t* digits_;
};

// Adds up what fields take.
class Meter {
 public:
  void Put(const Field auto& field) { size_ += SizeOf(field); }
  std::uint64_t size() const { return size_; }

 private:
  std::uint64_t size_ = 0;
};

// Writes fields to an area that holds them and no more.
class Writer {
 public:
  explicit Writer(char16_t* out) : out_(out) {}
  void Put(const Field auto& field) { out_ = WriteExactly(out_, field); }

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
  return conversion.precision <= kMaxPlaces && argument.kind() == FormatArgument::Kind::kDouble;
}

template <typename Sink>
void PutInteger(Sink& sink, const Conversion& conversion, const FormatArgument& argument) {
  const std::uint64_t bits = argument.integer();
  const bool negative = argument.kind() == FormatArgument::Kind::kSigned && (bits >> 63) != 0;
  if (negative) sink.Put(CodeUnit(u'-'));
  const std::uint64_t magnitude = negative ? 0 - bits : bits;
  const std::int32_t digits = std::max(1, conversion.width - (negative ? 1 : 0));
  if (conversion.kind == Kind::kHexUpper) {
    sink.Put(HexNumber(magnitude, digits, kHexDigitsUpper));
  } else if (conversion.kind == Kind::kHexLower) {
    sink.Put(HexNumber(magnitude, digits, kHexDigitsLower));
  } else {
    sink.Put(PaddedDecimal(magnitude, digits, Grouping::kNone));
  }
}

template <typename Sink>
void PutArgument(Sink& sink, const Conversion& conversion, const FormatArgument& argument) {
  if (conversion.kind == Kind::kText) {
    sink.Put(Text(argument.text()));
  } else if (conversion.kind == Kind::kFixed) {
    const bool given = conversion.precision != kNoPrecision;
    WithDecimal(argument.floating(), given ? conversion.precision : kUsualPlaces, Grouping::kNone,
                [&](const auto& decimal) { sink.Put(decimal); });
  } else {
    PutInteger(sink, conversion, argument);
  }
}

}  // namespace

FormattedText::FormattedText(std::u16string_view pattern, const FormatArgument* arguments,
                             std::size_t count)
    : pattern_(pattern), arguments_(arguments), count_(count) {
  Meter meter;
  valid_ = PutAll(meter);
  size_ = meter.size();
}

void FormattedText::Write(char16_t* out) const {
  Writer writer(out);
  PutAll(writer);
}

// False at the first conversion that is unknown or whose argument is missing or does not fit, and
// if arguments are left over.
template <typename Sink>
bool FormattedText::PutAll(Sink& sink) const {
  std::size_t used = 0;
  for (PatternReader reader(pattern_);;) {
    sink.Put(Text(reader.TakeLiteral()));
    if (reader.done()) break;

    Conversion conversion;
    if (!reader.TakeConversion(conversion)) return false;
    if (conversion.kind == Kind::kPercent) {
      sink.Put(CodeUnit(u'%'));
    } else {
      if (used == count_ || !Fits(conversion, arguments_[used])) return false;
      PutArgument(sink, conversion, arguments_[used++]);
    }
  }
  return used == count_;
}

}  // namespace qxfmt
