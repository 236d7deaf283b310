#include "shared/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace programs {

std::size_t LineWidth(int descriptor) {
  winsize size{};
  if (::isatty(descriptor) == 0) return SIZE_MAX;
  if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return 80;
  return size.ws_col;
}

bool TakesColours(int descriptor) {
  const char* const refused = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  if (refused != nullptr && *refused != '\0') return false;
  return ::isatty(descriptor) != 0 && terminal != nullptr && terminal != std::string_view("dumb");
}

}  // namespace programs
