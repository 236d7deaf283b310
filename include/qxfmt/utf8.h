#pragma once

/// @file
/// Results, and any other UTF-16 text, as UTF-8 and back.
///
/// What is malformed becomes U+FFFD: each surrogate without its partner, and in UTF-8 each maximal
/// part of a sequence that is none, as chapter 3.9 of the Unicode Standard recommends ("U+FFFD
/// Substitution of Maximal Subparts"). So every conversion succeeds, and its text is well-formed.
/// A NUL unit or byte is a character like any other.
///
/// Sizes are counted in bytes of UTF-8 and in 16-bit units of UTF-16; terminators are not counted.
/// A unit takes at most three bytes, and a byte at most one unit.
///
/// No setting and no locale takes part, and there is no state: any thread may call any of these at
/// any time, on texts that no other thread writes.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace qxfmt {

/// How the conversions work. Not for direct use.
namespace internal {

/// Stands for what is malformed.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Whether a unit is the first of a pair.
constexpr bool IsHighSurrogate(char32_t unit) noexcept { return (unit & 0xFC00U) == 0xD800; }
/// Whether a unit is the second of a pair.
constexpr bool IsLowSurrogate(char32_t unit) noexcept { return (unit & 0xFC00U) == 0xDC00; }

/// Takes a character from the front of a text that is not empty.
inline char32_t Take(std::u16string_view& text) noexcept {
  const char32_t unit = text.front();
  text.remove_prefix(1);
  if (!IsHighSurrogate(unit)) return IsLowSurrogate(unit) ? kReplacement : unit;
  if (text.empty() || !IsLowSurrogate(text.front())) return kReplacement;
  const char32_t low = text.front();
  text.remove_prefix(1);
  return 0x10000 + ((unit & 0x3FFU) << 10) + (low & 0x3FFU);
}

/// The same of UTF-8. A sequence that breaks off ends before the byte that cannot continue it.
inline char32_t Take(std::string_view& bytes) noexcept {
  const auto take_byte = [&bytes] {
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    return char32_t{byte};
  };
  const char32_t lead = take_byte();
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return kReplacement;

  // What may follow the first byte leaves out longer forms than needed, surrogates and what lies
  // above the last character; further bytes may be any of the usual range.
  char32_t least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  char32_t most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t character = lead & (0x3FU >> following);
  for (; following > 0; --following) {
    const char32_t byte = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
    if (byte < least || byte > most) return kReplacement;
    bytes.remove_prefix(1);
    character = character << 6 | (byte & 0x3FU);
    least = 0x80;
    most = 0xBF;
  }
  return character;
}

/// Writes a character, and returns the end.
inline char* Put(char32_t character, char* out) noexcept {
  const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
  const auto put_last = [&put](char32_t bits) { put(0x80U | (bits & 0x3FU)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0U | character >> 6U);
    put_last(character);
  } else if (character < 0x10000) {
    put(0xE0U | character >> 12U);
    put_last(character >> 6U);
    put_last(character);
  } else {
    put(0xF0U | character >> 18U);
    put_last(character >> 12U);
    put_last(character >> 6U);
    put_last(character);
  }
  return out;
}
/// The same in UTF-16.
inline char16_t* Put(char32_t character, char16_t* out) noexcept {
  if (character >= 0x10000) {
    *out++ = static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10U));
    character = 0xDC00U + (character & 0x3FFU);
  }
  *out++ = static_cast<char16_t>(character);
  return out;
}

/// How much `Put` writes.
constexpr std::size_t SizeOf(char32_t character, char /*of the result*/) noexcept {
  return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}
/// The same in UTF-16.
constexpr std::size_t SizeOf(char32_t character, char16_t /*of the result*/) noexcept {
  return character < 0x10000 ? 1 : 2;
}

/// Whether a unit or a byte is a character of ASCII.
template <typename Unit>
constexpr bool IsAscii(Unit unit) noexcept {
  return static_cast<std::make_unsigned_t<Unit>>(unit) < 0x80;
}

/// Four ASCII units in one word to four bytes, the same on machines of either byte order.
inline std::uint32_t Narrow(std::uint64_t units) noexcept {
  units |= units >> 8U;
  return static_cast<std::uint32_t>((units & 0xFFFFU) | (units >> 16U & 0xFFFF0000U));
}
/// The way back.
inline std::uint64_t Widen(std::uint32_t bytes) noexcept {
  std::uint64_t units = (bytes | std::uint64_t{bytes} << 16U) & 0x0000FFFF0000FFFFU;
  units = (units | units << 8U) & 0x00FF00FF00FF00FFU;
  return units;
}

/// Reads a word at any address.
template <typename Word>
Word Load(const void* from) noexcept {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}
/// Writes a word to any address.
template <typename Word>
void Store(void* to, Word word) noexcept {
  std::memcpy(to, &word, sizeof word);
}

/// Copies four characters from each of two places, which may overlap, if all are ASCII; and returns
/// whether they are.
inline bool CopyFours(const char16_t* first, char* to_first, const char16_t* second,
                      char* to_second) noexcept {
  const auto a = Load<std::uint64_t>(first);
  const auto b = Load<std::uint64_t>(second);
  if (((a | b) & 0xFF80FF80FF80FF80U) != 0) return false;
  Store(to_first, Narrow(a));
  Store(to_second, Narrow(b));
  return true;
}
/// The way back.
inline bool CopyFours(const char* first, char16_t* to_first, const char* second,
                      char16_t* to_second) noexcept {
  const auto a = Load<std::uint32_t>(first);
  const auto b = Load<std::uint32_t>(second);
  if (((a | b) & 0x80808080U) != 0) return false;
  Store(to_first, Widen(a));
  Store(to_second, Widen(b));
  return true;
}

#if defined(__SSE2__) || defined(_M_X64)
/// Loads to and stores from the lower half of a register, at any address.
inline __m128i LoadLow(const void* from) noexcept {
  return _mm_loadl_epi64(static_cast<const __m128i*>(from));
}
/// The way back.
inline void StoreLow(void* to, __m128i low) noexcept {
  _mm_storel_epi64(static_cast<__m128i*>(to), low);
}

/// As `CopyFours`, with eight characters from each place.
inline bool CopyEights(const char16_t* first, char* to_first, const char16_t* second,
                       char* to_second) noexcept {
  const auto a = Load<__m128i>(first);
  const auto b = Load<__m128i>(second);
  // Units are taken for signed: those from 0x8000 on become 0, and others from 0x100 on 0xFF.
  const __m128i bytes = _mm_packus_epi16(a, b);
  if (_mm_movemask_epi8(_mm_or_si128(_mm_or_si128(a, b), bytes)) != 0) return false;
  StoreLow(to_first, bytes);
  StoreLow(to_second, _mm_unpackhi_epi64(bytes, bytes));
  return true;
}
/// The way back.
inline bool CopyEights(const char* first, char16_t* to_first, const char* second,
                       char16_t* to_second) noexcept {
  const __m128i a = LoadLow(first);
  const __m128i b = LoadLow(second);
  if (_mm_movemask_epi8(_mm_or_si128(a, b)) != 0) return false;
  Store(to_first, _mm_unpacklo_epi8(a, _mm_setzero_si128()));
  Store(to_second, _mm_unpacklo_epi8(b, _mm_setzero_si128()));
  return true;
}
#else
/// As `CopyFours`, with eight characters from each place.
template <typename From, typename To>
bool CopyEights(const From* first, To* to_first, const From* second, To* to_second) noexcept {
  return CopyFours(first, to_first, first + 4, to_first + 4) &&
         CopyFours(second, to_second, second + 4, to_second + 4);
}
#endif

/// Copies characters up to the first one outside ASCII, and returns how many. The last block of a
/// text may copy some of its characters once more, so that no rest is left to copy singly.
template <typename From, typename To>
std::size_t CopyAscii(const From* from, std::size_t size, To* to) noexcept {
  std::size_t done = 0;
  const auto copy_eights = [&](std::size_t first, std::size_t second) {
    return CopyEights(from + first, to + first, from + second, to + second);
  };
  while (size - done > 16 && copy_eights(done, done + 8)) done += 16;
  const std::size_t rest = size - done;
  if (rest > 16) {
    // One of the next sixteen is another character.
  } else if (size >= 16) {
    if (copy_eights(size - 16, size - 8)) return size;
  } else if (size >= 8) {
    if (copy_eights(0, size - 8)) return size;
  } else if (size >= 4) {
    if (CopyFours(from, to, from + size - 4, to + size - 4)) return size;
  }
  for (; done < size && IsAscii(from[done]); ++done) to[done] = static_cast<To>(from[done]);
  return done;
}

/// Converts a text into an area that has room for all of it, and returns the end.
template <typename From, typename To>
To* Convert(std::basic_string_view<From> text, To* out) noexcept {
  for (;;) {
    const std::size_t ascii = CopyAscii(text.data(), text.size(), out);
    text.remove_prefix(ascii);
    out += ascii;
    if (text.empty()) return out;
    do {
      out = Put(Take(text), out);
    } while (!text.empty() && !IsAscii(text.front()));
  }
}

/// How much `Convert` writes.
template <typename To, typename From>
std::size_t ConvertedSize(std::basic_string_view<From> text) noexcept {
  std::size_t size = 0;
  while (!text.empty()) size += SizeOf(Take(text), To{});
  return size;
}

/// Converts a text behind what a string holds.
template <typename From, typename To>
void Append(std::basic_string<To>& out, std::basic_string_view<From> text) {
  const std::size_t start = out.size();
  out.resize(start + text.size());
  const std::size_t ascii = CopyAscii(text.data(), text.size(), out.data() + start);
  if (ascii == text.size()) return;
  text.remove_prefix(ascii);
  out.resize(start + ascii + ConvertedSize<To>(text));
  Convert(text, out.data() + start + ascii);
}

/// Converts what fits into an area and terminates it; returns the size of all.
template <typename From, typename To>
std::size_t Copy(std::basic_string_view<From> text, To* area, std::size_t room) noexcept {
  if (room == 0) return ConvertedSize<To>(text);
  To* out = area;
  To* const last = area + room - 1;
  for (;;) {
    const auto left = static_cast<std::size_t>(last - out);
    const std::size_t ascii = CopyAscii(text.data(), std::min(text.size(), left), out);
    text.remove_prefix(ascii);
    out += ascii;
    if (text.empty()) break;
    std::basic_string_view<From> rest = text;
    const char32_t character = Take(rest);
    if (SizeOf(character, To{}) > static_cast<std::size_t>(last - out)) break;
    out = Put(character, out);
    text = rest;
  }
  *out = To{};
  return static_cast<std::size_t>(out - area) + ConvertedSize<To>(text);
}

}  // namespace internal

/// @name To UTF-8
/// From any UTF-16: a result of a formatter, a literal, a `std::u16string`, a `GrowableText`. Not
/// from a null pointer; no result is one.
/// @{

/// A text as UTF-8, for whatever takes `char`:
///
///     std::cout << qxfmt::Utf8(format.FormatByte(1536, 2));
///     std::printf("%s", qxfmt::Utf8(format.FormatByte(1536, 2)).c_str());
///     std::string text = qxfmt::Utf8(format.FormatByte(1536, 2));
///
/// It holds its bytes itself, so that it outlives the text that it was made from, and no result
/// of a formatter makes it allocate. qxfmt/fmt.h and qxfmt/format.h let it be an argument of
/// `fmt::print` and `std::format`.
///
/// Pointers and views into it are void when it ends, which a temporary one does with its statement.
class Utf8 {
 public:
  /// Converts a text. Allocates only if it has more than 127 units, which no result has.
  /// @throws std::bad_alloc
  /// `qxfmt::Utf8(u"1.50 KB")` gives "1.50 KB".
  explicit Utf8(std::u16string_view text)
      : bytes_(text.size() <= kOwnUnits ? own_ : new char[3 * text.size() + 1]),
        size_(static_cast<std::size_t>(internal::Convert(text, bytes_) - bytes_)) {
    bytes_[size_] = '\0';
  }
  /// Not available: make another one of the text, or a `std::string`.
  Utf8(const Utf8&) = delete;
  /// Not available: make another one of the text, or a `std::string`.
  Utf8& operator=(const Utf8&) = delete;
  /// Gives memory back, if it took some.
  ~Utf8() {
    if (bytes_ != own_) delete[] bytes_;
  }

  /// The bytes, NUL-terminated; never null.
  [[nodiscard]] const char* c_str() const noexcept { return bytes_; }
  /// Bytes, the terminator not counted.
  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  /// The bytes without a terminator, as long as this object lives.
  operator std::string_view() const noexcept { return {bytes_, size_}; }
  /// A copy of the bytes. @throws std::bad_alloc
  operator std::string() const { return {bytes_, size_}; }

  /// Whether the bytes are these.
  friend bool operator==(const Utf8& text, std::string_view bytes) noexcept {
    return std::string_view(text) == bytes;
  }
  /// Whether the bytes are others.
  friend bool operator!=(const Utf8& text, std::string_view bytes) noexcept {
    return std::string_view(text) != bytes;
  }

  /// Prints the bytes, under the width and the fill of the stream.
  template <typename Traits>
  friend std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& stream,
                                                      const Utf8& text) {
    return stream << std::basic_string_view<char, Traits>(text.bytes_, text.size_);
  }

 private:
  static constexpr std::size_t kOwnUnits = 127;  // room for every result

  char* bytes_;
  std::size_t size_;
  char own_[3 * kOwnUnits + 1];
};

/// Appends a text to a string.
/// @param out may already hold bytes; they stay.
/// @param text any UTF-16.
/// @throws std::bad_alloc; the string may then end in a part of the text.
inline void AppendUtf8(std::string& out, std::u16string_view text) { internal::Append(out, text); }

/// Converts a text into the caller's area. What has no room is cut off after a whole character.
/// @param text any UTF-16.
/// @param area the area; not null unless `room` is 0.
/// @param room bytes of the area, with that of the terminator, which is always written unless the
///   room is 0. `3 * text.size() + 1` is room for everything, and 382 for every result.
/// @return bytes of the whole text, the terminator not counted: if that is `room` or more, the text
///   was cut off.
/// `qxfmt::CopyUtf8(u"1.50 KB", area, 5)` gives 7, and the area then holds "1.50".
inline std::size_t CopyUtf8(std::u16string_view text, char* area, std::size_t room) noexcept {
  return internal::Copy(text, area, room);
}
/// @}

/// @name From UTF-8
/// From any bytes, such as those that a user typed. Not from a null pointer.
/// @{

/// A text for the parsers: `QXFMT_GetIpAddress(qxfmt::Utf16(typed).c_str(), &valid)`. Mind that
/// they read a NUL, which a line of a file may hold, as the end of the text.
/// @throws std::bad_alloc
/// `qxfmt::Utf8(qxfmt::Utf16("1.50 KB"))` gives "1.50 KB".
[[nodiscard]] inline std::u16string Utf16(std::string_view bytes) {
  std::u16string text;
  internal::Append(text, bytes);
  return text;
}

/// Appends a text to a string.
/// @param out may already hold units; they stay.
/// @param bytes any UTF-8.
/// @throws std::bad_alloc; the string may then end in a part of the text.
inline void AppendUtf16(std::u16string& out, std::string_view bytes) {
  internal::Append(out, bytes);
}

/// Converts a text into the caller's area. What has no room is cut off after a whole character.
/// @param bytes any UTF-8.
/// @param area the area; not null unless `room` is 0.
/// @param room units of the area, with that of the terminator, which is always written unless the
///   room is 0. `bytes.size() + 1` is room for everything.
/// @return units of the whole text, the terminator not counted: if that is `room` or more, the text
///   was cut off.
inline std::size_t CopyUtf16(std::string_view bytes, char16_t* area, std::size_t room) noexcept {
  return internal::Copy(bytes, area, room);
}
/// @}

}  // namespace qxfmt
