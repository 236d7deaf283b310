#pragma once

// The order of the interfaces in a table.

#include <cstdint>

#include "meter/rates.h"

namespace meter {

enum class Order : std::uint8_t { kKernel, kName, kReceived, kSent, kBoth };

inline constexpr const char* kOrderNames[] = {"kernel", "name", "received", "sent", "both"};

// Of those that carry alike the order stays as it is.
void Sort(Round& round, Order order);

}  // namespace meter
