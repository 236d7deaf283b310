#include <algorithm>
#include <cstring>
#include <utility>

#include <qxfmt/growable_text.h>

#include "growable/format_arguments.h"

namespace {

WideText RequireText(WideText text) {
  if (text == nullptr) throw StatusException(StatusException::kInvalidArgument);
  return text;
}

void CopyUnits(char16_t* out, std::u16string_view text) {
  if (!text.empty()) std::memmove(out, text.data(), text.size() * sizeof(char16_t));
}

std::size_t BytesFor(std::size_t capacity) { return (capacity + 1) * sizeof(char16_t); }

// The process's heap. A short text needs no memory of it, and a longer one takes it from the plain
// operator new: the resource itself goes through the aligned one, which costs more.
bool IsHeap(const std::pmr::memory_resource* resource) {
  return resource == std::pmr::new_delete_resource();
}

}  // namespace

StatusException::~StatusException() = default;

const char* StatusException::what() const noexcept {
  switch (status_) {
    case kNoMemory:
      return "no memory for a text (0x8007000E)";
    case kFailed:
      return "no memory resource, or a format that cannot be printed (0x80004005)";
    case kInvalidArgument:
      return "invalid argument of a text operation (0x80070057)";
    default:
      return "text operation failed";
  }
}

GrowableText::GrowableText() : GrowableText(std::pmr::get_default_resource()) {}

GrowableText::GrowableText(std::pmr::memory_resource* resource) : resource_(resource) {
  if (resource == nullptr) throw StatusException(StatusException::kFailed);
  units_ = IsHeap(resource) ? own_units_ : Allocate(kOwnCapacity);
  capacity_ = kOwnCapacity;
  *units_ = u'\0';
}

GrowableText::GrowableText(const GrowableText& source) : GrowableText() { append(source); }

GrowableText::GrowableText(GrowableText&& source) noexcept
    : resource_(source.resource_),
      units_(std::exchange(source.units_, nullptr)),
      size_(std::exchange(source.size_, 0)),
      capacity_(std::exchange(source.capacity_, 0)) {
  if (units_ != source.own_units_) return;
  units_ = own_units_;
  CopyUnits(units_, {source.own_units_, size_ + 1});
}

GrowableText& GrowableText::operator=(const GrowableText& source) {
  if (this != &source) assign(source);
  return *this;
}

GrowableText::~GrowableText() { Release(); }

GrowableText& GrowableText::assign(WideText text) {
  return assign(std::u16string_view(RequireText(text)));
}

GrowableText& GrowableText::assign(std::u16string_view text) {
  if (text.size() > capacity_) {  // and so it is no part of this text
    if (text.size() > max_size()) throw StatusException(StatusException::kNoMemory);
    reserve(text.size());
  }
  CopyUnits(units_, text);
  SetSize(text.size());
  return *this;
}

GrowableText& GrowableText::append(WideText text) {
  return append(std::u16string_view(RequireText(text)));
}

GrowableText& GrowableText::append(std::u16string_view text) {
  Extend(text.size(), [text](char16_t* out) { CopyUnits(out, text); });
  return *this;
}

GrowableText& GrowableText::AppendFormatted(WideText format, const qxfmt::FormatArgument* arguments,
                                            std::size_t count) {
  const qxfmt::FormattedText text(RequireText(format), arguments, count);
  if (!text.valid()) throw StatusException(StatusException::kFailed);
  Extend(text.size(), [&text](char16_t* out) { text.Write(out); });
  return *this;
}

void GrowableText::clear() noexcept { SetSize(0); }

void GrowableText::reserve(std::size_t capacity) {
  if (capacity > max_size()) throw StatusException(StatusException::kInvalidArgument);
  if (capacity <= capacity_) return;
  char16_t* const grown = Allocate(capacity);
  CopyUnits(grown, *this);
  Adopt(grown, capacity);
  SetSize(size_);
}

void GrowableText::resize(std::size_t length, char16_t fill) {
  if (length > capacity_) throw StatusException(StatusException::kInvalidArgument);
  if (length > size_) std::fill(units_ + size_, units_ + length, fill);
  SetSize(length);
}

// Appends `count` units, which `write` writes where it is told to. It may read the old text: that
// is released last.
template <typename Write>
void GrowableText::Extend(std::uint64_t count, Write write) {
  if (count > max_size() - size_) throw StatusException(StatusException::kNoMemory);
  const std::size_t size = size_ + static_cast<std::size_t>(count);
  if (size <= capacity_) {
    write(units_ + size_);
  } else {
    const std::size_t capacity =
        std::min(std::max({size, 2 * capacity_, kOwnCapacity}), max_size());
    char16_t* const grown = Allocate(capacity);
    CopyUnits(grown, *this);
    write(grown + size_);
    Adopt(grown, capacity);
  }
  SetSize(size);
}

char16_t* GrowableText::Allocate(std::size_t capacity) {
  const std::size_t bytes = BytesFor(capacity);
  try {
    return static_cast<char16_t*>(
        IsHeap(resource_) ? ::operator new(bytes) : resource_->allocate(bytes, alignof(char16_t)));
  } catch (...) {  // whatever a resource says "no" with
    throw StatusException(StatusException::kNoMemory);
  }
}

void GrowableText::Adopt(char16_t* units, std::size_t capacity) noexcept {
  Release();
  units_ = units;
  capacity_ = capacity;
}

void GrowableText::Release() noexcept {
  if (units_ == nullptr || units_ == own_units_) return;
  if (IsHeap(resource_)) {
    ::operator delete(units_);
  } else {
    resource_->deallocate(units_, BytesFor(capacity_), alignof(char16_t));
  }
}

void GrowableText::SetSize(std::size_t size) noexcept {
  size_ = size;
  if (units_ != nullptr) units_[size] = u'\0';
}
