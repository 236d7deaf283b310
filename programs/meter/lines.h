#pragma once

// The meter as lines, for pipes and files.

#include "meter/options.h"

namespace meter {

// Text: what the interfaces have carried since boot and their addresses, and then what they carry.
void PrintLines(const Options& options);

// Comma-separated values: what they carry, or with `once` what they have carried since boot.
void PrintCsv(const Options& options);

}  // namespace meter
