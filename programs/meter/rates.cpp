#include "meter/rates.h"

#include <utility>

namespace meter {

namespace {

// What a counter gained. One that fell was reset, with its interface or its driver.
std::uint64_t Gain(std::uint64_t before, std::uint64_t now) {
  return now > before ? now - before : 0;
}

std::map<std::string, Interface> ByName(std::vector<Interface> interfaces) {
  std::map<std::string, Interface> by_name;
  for (Interface& interface : interfaces) {
    std::string name = interface.name;
    by_name.emplace(std::move(name), std::move(interface));
  }
  return by_name;
}

}  // namespace

Rates::Rates(std::vector<Interface> interfaces, Clock::time_point time)
    : before_(ByName(std::move(interfaces))), time_(time) {}

Round Rates::Advance(std::vector<Interface> interfaces, Clock::time_point time) {
  Round round;
  round.seconds = std::chrono::duration<double>(time - time_).count();
  for (const Interface& now : interfaces) {
    const auto found = before_.find(now.name);
    if (found == before_.end()) continue;
    const Interface& before = found->second;
    Load load{now.name, Gain(before.received.bytes, now.received.bytes),
              Gain(before.sent.bytes, now.sent.bytes),
              Gain(before.received.errors, now.received.errors) +
                  Gain(before.sent.errors, now.sent.errors),
              std::nullopt};
    if (load.received + load.sent > 0) last_traffic_[now.name] = time;
    const auto last = last_traffic_.find(now.name);
    if (last != last_traffic_.end()) load.idle = time - last->second;
    round.bytes += load.received + load.sent;
    round.loads.push_back(std::move(load));
  }
  before_ = ByName(std::move(interfaces));
  time_ = time;
  return round;
}

}  // namespace meter
