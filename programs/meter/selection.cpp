#include "meter/selection.h"

#include <fnmatch.h>

#include <algorithm>
#include <stdexcept>

namespace meter {

namespace {

bool Matches(const std::string& pattern, const Interface& interface) {
  return ::fnmatch(pattern.c_str(), interface.name.c_str(), 0) == 0;
}

}  // namespace

std::vector<Interface> Select(std::vector<Interface> interfaces, const Selection& selection) {
  const auto& patterns = selection.patterns;
  std::erase_if(interfaces, [&](const Interface& interface) {
    if (patterns.empty()) return !selection.with_down && !IsUp(interface);
    return std::none_of(patterns.begin(), patterns.end(),
                        [&](const std::string& pattern) { return Matches(pattern, interface); });
  });
  return interfaces;
}

const char* WhyNone(const Selection& selection) {
  return selection.patterns.empty() ? "no interface is up; --all shows those that are down"
                                    : "no such interface is there now";
}

void CheckPatterns(const std::vector<Interface>& interfaces, const Selection& selection) {
  for (const std::string& pattern : selection.patterns) {
    const bool is_known =
        std::any_of(interfaces.begin(), interfaces.end(),
                    [&](const Interface& interface) { return Matches(pattern, interface); });
    if (is_known) continue;
    std::string names;
    for (const Interface& interface : interfaces) names += " " + interface.name;
    throw std::runtime_error("no interface '" + pattern + "'; there are" +
                             (names.empty() ? " none" : ":" + names));
  }
}

}  // namespace meter
