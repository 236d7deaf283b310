#include "support/platform.h"

#include <dlfcn.h>
#include <sys/mman.h>

#include <cstdlib>

// A 32-bit machine's conversion of 64-bit times has another name.
#if defined(__USE_TIME_BITS64) && defined(__TIMESIZE) && __TIMESIZE == 32
#define LOCALTIME_SYMBOL "__localtime64_r"
#else
#define LOCALTIME_SYMBOL "localtime_r"
#endif

extern "C" struct tm* localtime_r(const time_t* time, struct tm* fields) noexcept {
  static auto real = reinterpret_cast<decltype(&localtime_r)>(dlsym(RTLD_NEXT, LOCALTIME_SYMBOL));
  ++qxfmt::test::zone_conversions;
  return qxfmt::test::zone_conversion_fails ? nullptr : real(time, fields);
}

namespace qxfmt::test {

void UseZone(const char* zone) {
  setenv("TZ", zone, 1);
  tzset();
}

std::string Strftime(std::time_t time, const char* pattern) {
  std::tm fields;
  char text[64];
  return {text, std::strftime(text, sizeof text, pattern, localtime_r(&time, &fields))};
}

bool HasNamedZones() { return true; }

std::vector<std::pair<const char*, std::string>> LocalesAndPoints() {
  return {{"de_DE.UTF-8", ","}, {"ps_AF.UTF-8", "\u066B"}, {"C", "."}};
}

char* EndOfReadableArea() {
  constexpr std::size_t kPages = 0x10000;  // whole pages on every machine
  static char* const area =
      static_cast<char*>(mmap(nullptr, 2 * kPages, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  mprotect(area, kPages, PROT_READ | PROT_WRITE);
  return area + kPages;
}

}  // namespace qxfmt::test
