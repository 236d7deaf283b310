#include "meter/order.h"

#include <algorithm>

namespace meter {

void Sort(Round& round, Order order) {
  const auto carries_more = [order](const Load& a, const Load& b) {
    const auto rate = [order](const Load& load) {
      return (order == Order::kSent ? 0 : load.received.rate) +
             (order == Order::kReceived ? 0 : load.sent.rate);
    };
    return rate(a) > rate(b);
  };
  const auto is_named_before = [](const Load& a, const Load& b) {
    return a.interface.name < b.interface.name;
  };
  if (order == Order::kKernel) return;
  if (order == Order::kName) {
    std::stable_sort(round.loads.begin(), round.loads.end(), is_named_before);
  } else {
    std::stable_sort(round.loads.begin(), round.loads.end(), carries_more);
  }
}

}  // namespace meter
