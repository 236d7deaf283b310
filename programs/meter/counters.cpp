#include "meter/counters.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace meter {

namespace {

// The first line of a file under /sys; empty if there is none or the kernel refuses to tell.
std::string ReadLine(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

std::uint64_t ReadNumber(const std::string& path) {
  // A link that is down tells a speed of -1.
  std::istringstream text(ReadLine(path));
  std::int64_t number = 0;
  return text >> number && number > 0 ? static_cast<std::uint64_t>(number) : 0;
}

// "  eth0: bytes packets errs drop fifo frame compressed multicast bytes packets errs ..."
bool ParseLine(const std::string& line, Interface& interface) {
  const std::size_t colon = line.find(':');
  const std::size_t name = line.find_first_not_of(' ');
  if (colon == std::string::npos || name >= colon) return false;
  interface.name = line.substr(name, colon - name);

  std::istringstream fields(line.substr(colon + 1));
  std::uint64_t skipped = 0;
  fields >> interface.received.bytes >> interface.received.packets >> interface.received.errors;
  for (int i = 0; i < 5; ++i) fields >> skipped;
  fields >> interface.sent.bytes >> interface.sent.packets >> interface.sent.errors;
  return !fields.fail();
}

std::runtime_error BadLine(const std::string& path, const std::string& line) {
  return std::runtime_error(path + ": not a line of counters: '" + line + "'");
}

void ReadEntries(const std::string& directory, Interface& interface) {
  const std::string entries = directory + interface.name;
  interface.state = ReadLine(entries + "/operstate");
  interface.megabits = ReadNumber(entries + "/speed");
}

}  // namespace

std::vector<Interface> ReadInterfaces(const std::string& root) {
  const std::string path = root + "/proc/net/dev";
  std::ifstream file(path);
  std::string line;
  constexpr int kHeadings = 2;
  for (int i = 0; i < kHeadings; ++i) {
    if (!std::getline(file, line)) {
      throw std::runtime_error("cannot read " + path + ": " + std::strerror(errno));
    }
  }

  std::vector<Interface> interfaces;
  while (std::getline(file, line)) {
    Interface interface;
    if (!ParseLine(line, interface)) throw BadLine(path, line);
    ReadEntries(root + "/sys/class/net/", interface);
    interfaces.push_back(interface);
  }
  return interfaces;
}

}  // namespace meter
