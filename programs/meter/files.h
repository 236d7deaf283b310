#pragma once

// Reading what the kernel tells in files.

#include <cstdint>
#include <string>
#include <vector>

namespace meter {

// The lines of a file that has to be there. Throws std::runtime_error with what is wrong.
std::vector<std::string> ReadLines(const std::string& path);

// The first line of a file that may be missing; empty then, and where the kernel refuses to tell.
std::string ReadFirstLine(const std::string& path);

}  // namespace meter
