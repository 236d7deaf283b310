#pragma once

// The nine settings as the formatters read them.

#include <atomic>
#include <cstdint>

#include <qxfmt/formats.h>

namespace qxfmt {

// One 32-bit word that any thread may read and write at any time. Relaxed: the settings order
// nothing else, and a reader is content with the old value or the new one.
template <typename Value>
class Setting {
 public:
  constexpr explicit Setting(Value start) : value_(start) {}
  void Set(Value value) { value_.store(value, std::memory_order_relaxed); }
  Value Get() const { return value_.load(std::memory_order_relaxed); }

 private:
  static_assert(sizeof(Value) == 4);
  std::atomic<Value> value_;
};

// All with their start values.
struct Settings {
  Setting<QXFMT_BYTES_FORMAT> byte_format{QXFMT_BYTES_AUTO};
  Setting<QXFMT_BYTES_FORMAT> bit_format{QXFMT_BYTES_AUTO};
  Setting<QXFMT_BYTES_FORMAT> byte_per_second_format{QXFMT_BYTES_AUTO};
  Setting<QXFMT_BYTES_FORMAT> bit_per_second_format{QXFMT_BYTES_AUTO};
  Setting<std::int32_t> number_decimal_places{2};
  Setting<std::int32_t> percentage_decimal_places{2};
  Setting<QXFMT_DATE_FORMAT> date_time_format{QXFMT_DATE_DEFAULT};
  Setting<QXFMT_TIME_ACCURACY> time_accuracy{QXFMT_TIME_USECOND};
  Setting<QXFMT_DURATION_FORMAT> duration_format{QXFMT_DURATION_CLOCK};
};

inline constinit Settings settings;

}  // namespace qxfmt
