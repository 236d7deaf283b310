#include "support/local_time_probe.h"

#include <dlfcn.h>

extern "C" struct tm* localtime_r(const time_t* time, struct tm* fields) noexcept {
  static auto real = reinterpret_cast<decltype(&localtime_r)>(dlsym(RTLD_NEXT, "localtime_r"));
  ++qxfmt::test::zone_conversions;
  return qxfmt::test::zone_conversion_fails ? nullptr : real(time, fields);
}

void qxfmt::test::UseZone(const char* zone) {
  setenv("TZ", zone, 1);
  tzset();
}

std::string qxfmt::test::Strftime(std::time_t time, const char* pattern) {
  std::tm fields;
  char text[64];
  return {text, std::strftime(text, sizeof text, pattern, localtime_r(&time, &fields))};
}
