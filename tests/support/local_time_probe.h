#pragma once

// The C library's zone conversion as tests see it: `localtime_r` of this program counts the calls
// of the thread and fails where it is told to; otherwise it is the C library's own.

namespace qxfmt::test {

inline thread_local int zone_conversions = 0;
inline thread_local bool zone_conversion_fails = false;

// Sets TZ for its life.
class ScopedZone {
 public:
  explicit ScopedZone(const char* zone);
  ~ScopedZone();
  ScopedZone(const ScopedZone&) = delete;
  ScopedZone& operator=(const ScopedZone&) = delete;
};

}  // namespace qxfmt::test
