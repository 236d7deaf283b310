#include "support/local_time_probe.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <time.h>

extern "C" struct tm* localtime_r(const time_t* time, struct tm* fields) noexcept {
  using Convert = struct tm*(const time_t*, struct tm*);
  static Convert* const convert = reinterpret_cast<Convert*>(dlsym(RTLD_NEXT, "localtime_r"));
  ++qxfmt::test::zone_conversions;
  return qxfmt::test::zone_conversion_fails ? nullptr : convert(time, fields);
}

namespace qxfmt::test {

ScopedZone::ScopedZone(const char* zone) {
  setenv("TZ", zone, 1);
  tzset();
}

ScopedZone::~ScopedZone() {
  unsetenv("TZ");
  tzset();
}

}  // namespace qxfmt::test
