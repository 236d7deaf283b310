#pragma once

// When a reading was made.

#include <string>

#include <qxfmt/qxfmt.h>

#include "meter/options.h"
#include "meter/rates.h"

namespace meter {

// The time of day now, in the layout and accuracy asked for.
ResultText NowText(CQXDataFormat& format, const Options& options);

// A line of the time, how long the meter is running, and how long the host is up. In UTF-8.
std::string Stamp(CQXDataFormat& format, const Options& options, Clock::duration running);

}  // namespace meter
