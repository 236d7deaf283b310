#pragma once

// What the interfaces carry as comma-separated values: plain numbers, for other programs.

#include <string>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/counters.h"
#include "meter/options.h"
#include "meter/rates.h"

namespace meter {

// What each interface has carried since boot.
std::string TotalsCsv(CQXDataFormat& format, const std::vector<Interface>& interfaces);

// What each interface has carried since the reading before; headings are asked for once.
std::string RoundCsv(CQXDataFormat& format, const Options& options, const Round& round,
                     bool with_headings);

}  // namespace meter
