#include "shared/terminal.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace programs {

namespace {

winsize SizeOf(int descriptor) {
  winsize size{};
  const bool is_known = ::ioctl(descriptor, TIOCGWINSZ, &size) == 0;
  if (!is_known || size.ws_col == 0) size.ws_col = 80;
  if (!is_known || size.ws_row == 0) size.ws_row = 24;
  return size;
}

}  // namespace

std::size_t LineWidth(int descriptor) {
  return ::isatty(descriptor) == 0 ? SIZE_MAX : SizeOf(descriptor).ws_col;
}

std::size_t LineCount(int descriptor) {
  return ::isatty(descriptor) == 0 ? SIZE_MAX : SizeOf(descriptor).ws_row;
}

bool TakesEscapes(int descriptor) {
  const char* const terminal = std::getenv("TERM");
  return ::isatty(descriptor) != 0 && terminal != nullptr && terminal != std::string_view("dumb");
}

bool TakesColours(int descriptor) {
  const char* const refused = std::getenv("NO_COLOR");
  return (refused == nullptr || *refused == '\0') && TakesEscapes(descriptor);
}

bool IsUtf8Locale() { return ::nl_langinfo(CODESET) == std::string_view("UTF-8"); }

}  // namespace programs
