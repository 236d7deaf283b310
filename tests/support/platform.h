#pragma once

// The C library's zone conversion as tests see it: `localtime_r` of this program counts the calls
// of the thread and fails where it is told to; otherwise it is the C library's own.

#include <ctime>
#include <string>

namespace qxfmt::test {

inline thread_local int zone_conversions = 0;
inline thread_local bool zone_conversion_fails = false;

// Sets TZ, for the tests behind this one too.
void UseZone(const char* zone);

// The instant in that zone, as the C library shows it.
std::string Strftime(std::time_t time, const char* pattern = "%Y/%m/%d %H:%M:%S");

}  // namespace qxfmt::test
