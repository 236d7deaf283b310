#pragma once

// The meter on a terminal, where it refreshes in place.

#include "meter/options.h"

namespace meter {

// Until q, an interrupt or the last round. Returns the signal that is to end the program, or 0.
int RunLive(const Options& options);

}  // namespace meter
