#pragma once

// What tests ask of the operating system: platform_posix.cpp or platform_windows.cpp. The functions
// for Internet addresses have the same names on both.

#if defined(_WIN32)
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#endif

#include <ctime>
#include <string>
#include <utility>
#include <vector>

namespace qxfmt::test {

// The C library's zone conversion as tests see it: the one of this program counts the calls of the
// thread and fails where it is told to; otherwise it is the C library's own.
inline thread_local int zone_conversions = 0;
inline thread_local bool zone_conversion_fails = false;

// Sets TZ, for the tests behind this one too.
void UseZone(const char* zone);

// The instant in that zone, as the C library shows it.
std::string Strftime(std::time_t time, const char* pattern = "%Y/%m/%d %H:%M:%S");

// Whether zones have names (America/New_York), or POSIX rules alone.
bool HasNamedZones();

// Locales and their decimal points. A new machine may lack them: the tests bring their own.
std::vector<std::pair<const char*, std::string>> LocalesAndPoints();

// The end of 64 KiB of memory, before an unreadable page. The same one with each call.
char* EndOfReadableArea();

}  // namespace qxfmt::test
