#include "support/platform.h"

#include <cerrno>
#include <cstdlib>

namespace {

using Conversion = errno_t(__cdecl*)(std::tm*, const __time64_t*);

errno_t __cdecl Convert(std::tm* fields, const __time64_t* time) {
  static const auto real = reinterpret_cast<Conversion>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("msvcrt.dll"), "_localtime64_s")));
  ++qxfmt::test::zone_conversions;
  return qxfmt::test::zone_conversion_fails ? EINVAL : real(fields, time);
}

}  // namespace

// Calls of the runtime go through a pointer of this name; the linker takes this one.
extern "C" Conversion __imp__localtime64_s;
Conversion __imp__localtime64_s = &Convert;

namespace qxfmt::test {

void UseZone(const char* zone) {
  _putenv_s("TZ", zone);
  _tzset();
}

std::string Strftime(std::time_t time, const char* pattern) {
  std::string own(pattern);
  if (const std::size_t unpadded = own.find("%-"); unpadded != own.npos) own[unpadded + 1] = '#';
  std::tm fields;
  char text[64];
  _localtime64_s(&fields, &time);
  return {text, std::strftime(text, sizeof text, own.c_str(), &fields)};
}

bool HasNamedZones() { return false; }

std::vector<std::pair<const char*, std::string>> LocalesAndPoints() {
  return {{"German_Germany.1252", ","}, {"C", "."}};
}

char* EndOfReadableArea() {
  constexpr std::size_t kPages = 0x10000;
  static char* const area =
      static_cast<char*>(VirtualAlloc(nullptr, 2 * kPages, MEM_RESERVE, PAGE_NOACCESS));
  VirtualAlloc(area, kPages, MEM_COMMIT, PAGE_READWRITE);
  return area + kPages;
}

}  // namespace qxfmt::test
