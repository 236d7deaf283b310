#pragma once

// What the interfaces have carried since boot, and their addresses.

#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/counters.h"
#include "meter/options.h"
#include "shared/table.h"

namespace meter {

programs::Table TotalsTable(CQXDataFormat& format, const Options& options,
                            const std::vector<Interface>& interfaces);

// Throws std::runtime_error if the kernel does not tell.
programs::Table AddressTable(CQXDataFormat& format, const Options& options,
                             const std::vector<Interface>& interfaces);

}  // namespace meter
