#pragma once

/// @file
/// The text that grows on demand, and the exception that it can raise. Worded durations use it.

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory_resource>
#include <string_view>
#include <type_traits>

#include <qxfmt/export.h>
#include <qxfmt/text.h>

#if defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4275)  // the base is the standard library's
#endif

/// Raised when an operation on a `GrowableText` fails; nothing else in the library throws.
class QXFMT_API StatusException : public std::exception {
 public:
  /// Memory cannot be had, when a text is created or when it grows.
  static constexpr std::uint32_t kNoMemory = 0x8007000E;
  /// There is no memory resource, or the length of a formatted text cannot be worked out.
  static constexpr std::uint32_t kFailed = 0x80004005;
  /// An argument is invalid: no text or format, a negative length, or one above the capacity.
  static constexpr std::uint32_t kInvalidArgument = 0x80070057;

  /// Carries `status`, one of the three codes.
  explicit StatusException(std::uint32_t status) noexcept : status_(status) {}
  /// Carries the same code.
  StatusException(const StatusException&) noexcept = default;
  /// Takes the code over.
  StatusException& operator=(const StatusException&) noexcept = default;
  ~StatusException() override;

  /// One of the three codes.
  [[nodiscard]] std::uint32_t status() const noexcept { return status_; }

  /// The same in a few English words; a static text.
  /// `std::string_view(StatusException(StatusException::kNoMemory).what()).empty()` gives 0.
  [[nodiscard]] const char* what() const noexcept override;

 private:
  std::uint32_t status_;
};

#if defined(_MSC_VER)
#pragma warning(pop)
#endif

namespace qxfmt {

/// An argument of `GrowableText::append_format`, with the type that it came in. It does not own a
/// text, which must outlive it.
class FormatArgument {
 public:
  /// What an argument holds; `kNone` fits no conversion.
  enum class Kind : std::uint8_t { kNone, kSigned, kUnsigned, kDouble, kText };

  /// No argument: its kind is `kNone`.
  FormatArgument() = default;

  /// Any integer except `bool`, which no conversion prints.
  template <
      typename Integer,
      std::enable_if_t<std::is_integral_v<Integer> && !std::is_same_v<Integer, bool>, int> = 0>
  explicit FormatArgument(Integer value) noexcept
      : kind_(std::is_signed_v<Integer> ? Kind::kSigned : Kind::kUnsigned),
        bits_(8 * sizeof(Integer)),
        integer_(static_cast<std::uint64_t>(value)) {}

  /// `float` or `double`.
  template <
      typename Float,
      std::enable_if_t<std::is_same_v<Float, float> || std::is_same_v<Float, double>, int> = 0>
  explicit FormatArgument(Float value) noexcept : kind_(Kind::kDouble), double_(double{value}) {}

  /// A NUL-terminated text. A null one has the kind `kNone`.
  explicit FormatArgument(WideText text) noexcept {
    if (text != nullptr) *this = FormatArgument(std::u16string_view(text));
  }
  /// A text of known length, which may hold NUL units.
  explicit FormatArgument(std::u16string_view text) noexcept : kind_(Kind::kText), text_(text) {}

  /// Which of the values below is set.
  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  /// Width of an integer's type.
  [[nodiscard]] std::uint32_t bits() const noexcept { return bits_; }
  /// Sign-extended, modulo 2^64.
  [[nodiscard]] std::uint64_t integer() const noexcept { return integer_; }
  /// A `float` without loss, or the `double`.
  [[nodiscard]] double floating() const noexcept { return double_; }
  /// The text, without a terminator.
  [[nodiscard]] std::u16string_view text() const noexcept { return text_; }

 private:
  Kind kind_ = Kind::kNone;
  std::uint32_t bits_ = 0;
  std::uint64_t integer_ = 0;
  double double_ = 0;
  std::u16string_view text_{};
};

}  // namespace qxfmt

/// A string of 16-bit units that grows on demand. The names follow `std::string`.
///
/// Memory: comes from the memory resource given at construction, and stays with it; the resource
/// must outlive the text. There is room for 63 units and a terminator from the start: in the text
/// itself where the resource is `std::pmr::new_delete_resource()`, the process's heap; otherwise
/// the resource is asked for it at creation. Growth doubles the room.
///
/// Failures: a `StatusException`, and the text is then as it was before the call.
///
/// Texts passed in may be parts of the text itself. Pointers and views into the text are void after
/// any operation that changes it.
///
/// Threads: like a standard string. Calls on one text must not overlap unless all only read.
class QXFMT_API GrowableText {
 public:
  /// An empty text with memory from `std::pmr::get_default_resource()`.
  /// @throws StatusException kNoMemory
  GrowableText();
  /// An empty text with memory from `resource`.
  /// @throws StatusException kFailed if `resource` is null, kNoMemory
  explicit GrowableText(std::pmr::memory_resource* resource);

  /// A copy with memory from the default resource. @throws StatusException kNoMemory
  GrowableText(const GrowableText& source);
  /// Takes memory and resource over. The source is left empty, with a capacity of 0, and usable.
  GrowableText(GrowableText&& source) noexcept;
  /// Copies the text; the target keeps its resource. There is no move assignment.
  /// @throws StatusException kNoMemory
  GrowableText& operator=(const GrowableText& source);
  /// Gives the memory back.
  ~GrowableText();

  /// The text, NUL-terminated; never null.
  [[nodiscard]] WideText c_str() const noexcept { return units_ != nullptr ? units_ : u""; }
  /// The text, without its terminator.
  operator std::u16string_view() const noexcept { return {c_str(), size_}; }

  /// Units of text, the terminator not counted.
  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  /// The same as `size`.
  [[nodiscard]] std::size_t length() const noexcept { return size_; }
  /// Whether there are no units of text.
  [[nodiscard]] bool empty() const noexcept { return size_ == 0; }
  /// Units of text that there is room for without growth.
  [[nodiscard]] std::size_t capacity() const noexcept { return capacity_; }
  /// The most units of text that can be asked for; memory ends long before.
  [[nodiscard]] static constexpr std::size_t max_size() noexcept {
    return PTRDIFF_MAX / sizeof(char16_t) - 1;
  }

  /// Replaces the text. @throws StatusException kInvalidArgument if `text` is null, kNoMemory
  /// `text.assign(u"10 KB")` gives "10 KB".
  GrowableText& assign(WideText text);
  /// Replaces the text. @throws StatusException kNoMemory
  GrowableText& assign(std::u16string_view text);

  /// Appends text. @throws StatusException kInvalidArgument if `text` is null, kNoMemory
  /// `text.append(u"a").append(u"b")` gives "ab".
  GrowableText& append(WideText text);
  /// Appends text. @throws StatusException kNoMemory
  GrowableText& append(std::u16string_view text);

  /// Appends formatted text. The decimal point is that of the C locale that the calling thread is
  /// in; no other thread may call `setlocale` meanwhile.
  /// `text.append_format(u"%02X %.1f%% %s", 10U, 12.34, u"used")` gives "0A 12.3% used".
  /// @param format text with one conversion for each argument, and "%%" for a percent sign.
  ///   - "%d", "%u", "%x", "%X": an integer of 32 bits ("%ld" as well), 16 ("%hd") or 64 ("%I64d"),
  ///     with a zero-filled width of 999 at most if one is given ("%02X"). The argument's type must
  ///     have no value that the conversion has not: "%d" takes no unsigned 32-bit integer, and
  ///     "%u", "%x" and "%X" take no signed one.
  ///   - "%f": a `float` or a `double`, with a precision of 0 to 32 ("%.2f"), or else 6.
  ///   - "%s": a text, printed as it is.
  /// @param arguments integers except `bool`, `float`, `double`, `WideText`, or what converts to
  ///   `std::u16string_view`; any other type does not compile.
  /// @throws StatusException kInvalidArgument if `format` is null; kFailed if it has any other
  ///   conversion, or if the arguments do not fit it in number and kind (a null text fits nothing);
  ///   kNoMemory
  template <typename... Arguments>
  GrowableText& append_format(WideText format, const Arguments&... arguments) {
    // One more than there are: an array cannot be empty.
    const qxfmt::FormatArgument packed[] = {qxfmt::FormatArgument(arguments)..., {}};
    return AppendFormatted(format, packed, sizeof...(Arguments));
  }

  /// Empties the text and keeps its memory.
  /// `(text.append(u"a").clear(), text.size())` gives 0.
  void clear() noexcept;

  /// Makes room for `capacity` units. @throws StatusException kInvalidArgument if that is above
  /// `max_size()`, as a negative number is after its conversion; kNoMemory
  /// `(text.reserve(100), text.capacity() >= 100)` gives 1.
  void reserve(std::size_t capacity);

  /// Cuts the text off, or lengthens it with `fill`, within its capacity: it does not grow.
  /// `(text.resize(3, u'-'), text)` gives "---".
  /// @throws StatusException kInvalidArgument if `length` is above `capacity()`, as a negative
  ///   number is after its conversion
  void resize(std::size_t length, char16_t fill = u'\0');

 private:
  GrowableText& AppendFormatted(WideText format, const qxfmt::FormatArgument* arguments,
                                std::size_t count);
  template <typename Write>
  void Extend(std::uint64_t count, Write write);
  char16_t* Allocate(std::size_t capacity);
  void Adopt(char16_t* units, std::size_t capacity) noexcept;
  void Release() noexcept;
  void SetSize(std::size_t size) noexcept;

  static constexpr std::size_t kOwnCapacity = 63;  // room for every worded duration

  std::pmr::memory_resource* resource_;
  char16_t* units_ = nullptr;  // null, with a capacity of 0, once moved from
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
  char16_t own_units_[kOwnCapacity + 1];  // where the resource is the process's heap
};
