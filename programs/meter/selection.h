#pragma once

// Which interfaces the user wants to see.

#include <string>
#include <vector>

#include "meter/counters.h"

namespace meter {

struct Selection {
  std::vector<std::string> patterns;  // names, with the wildcards of a shell; none: all that are up
  bool with_down = false;
};

// What is selected of all interfaces.
std::vector<Interface> Select(std::vector<Interface> interfaces, const Selection& selection);

// Why nothing may be selected, for the user.
const char* WhyNone(const Selection& selection);

// Throws std::runtime_error with what there is, if no interface goes by one of the patterns.
void CheckPatterns(const std::vector<Interface>& interfaces, const Selection& selection);

}  // namespace meter
