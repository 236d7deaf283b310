#include "meter/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace meter {

namespace {

std::runtime_error CannotRead(const std::string& path, const char* reason) {
  return std::runtime_error("cannot read " + path + ": " + reason);
}

}  // namespace

std::vector<std::string> ReadLines(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r"),
                                                             std::fclose);
  if (!file) throw CannotRead(path, std::strerror(errno));
  std::vector<std::string> lines;
  std::string line;
  for (int byte = std::getc(file.get()); byte != EOF; byte = std::getc(file.get())) {
    if (byte != '\n') {
      line += static_cast<char>(byte);
    } else {
      lines.push_back(std::move(line));
      line.clear();
    }
  }
  if (std::ferror(file.get()) != 0) throw CannotRead(path, std::strerror(errno));
  if (!line.empty()) lines.push_back(std::move(line));
  return lines;
}

std::string ReadFirstLine(const std::string& path) {
  try {
    const std::vector<std::string> lines = ReadLines(path);
    return lines.empty() ? std::string() : lines.front();
  } catch (const std::runtime_error&) {
    return {};
  }
}

}  // namespace meter
