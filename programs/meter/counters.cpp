#include "meter/counters.h"

#include <sstream>
#include <stdexcept>

#include "meter/files.h"

namespace meter {

namespace {

constexpr std::size_t kHeadings = 2;  // lines of /proc/net/dev before the first interface

// "bytes packets errs drop", and what else the direction has.
void ReadDirection(std::istream& fields, int others, Direction& direction) {
  fields >> direction.bytes >> direction.packets >> direction.errors >> direction.drops;
  std::uint64_t skipped = 0;
  for (int i = 0; i < others; ++i) fields >> skipped;
}

// "  eth0: bytes packets errs drop fifo frame compressed multicast bytes packets errs drop ..."
bool ParseLine(const std::string& line, Interface& interface) {
  const std::size_t colon = line.find(':');
  const std::size_t name = line.find_first_not_of(' ');
  if (colon == std::string::npos || name >= colon) return false;
  interface.name = line.substr(name, colon - name);

  std::istringstream fields(line.substr(colon + 1));
  ReadDirection(fields, 4, interface.received);
  ReadDirection(fields, 0, interface.sent);
  return !fields.fail();
}

void ReadEntries(const std::string& directory, Interface& interface) {
  constexpr const char* kLoopback = "772";  // ARPHRD_LOOPBACK of linux/if_arp.h
  const std::string entries = directory + interface.name;
  interface.state = ReadFirstLine(entries + "/operstate");
  const std::string type = ReadFirstLine(entries + "/type");
  interface.is_loopback = type.empty() ? interface.name == "lo" : type == kLoopback;
  // A link that is down tells a speed of -1.
  std::istringstream speed(ReadFirstLine(entries + "/speed"));
  std::int64_t megabits = 0;
  if (speed >> megabits && megabits > 0) interface.megabits = static_cast<std::uint64_t>(megabits);
}

}  // namespace

// Of an interface without a link, a tunnel or the loopback, the kernel knows no state.
bool IsUp(const Interface& interface) {
  return interface.state.empty() || interface.state == "up" || interface.state == "unknown";
}

std::vector<Interface> ReadInterfaces(const std::string& root) {
  const std::string path = root + "/proc/net/dev";
  const std::vector<std::string> lines = ReadLines(path);
  if (lines.size() < kHeadings) throw std::runtime_error(path + " has no counters: it is empty");

  std::vector<Interface> interfaces;
  for (std::size_t i = kHeadings; i < lines.size(); ++i) {
    Interface interface;
    if (!ParseLine(lines[i], interface)) {
      throw std::runtime_error(path + ": not a line of counters: '" + lines[i] + "'");
    }
    ReadEntries(root + "/sys/class/net/", interface);
    interfaces.push_back(interface);
  }
  return interfaces;
}

}  // namespace meter
