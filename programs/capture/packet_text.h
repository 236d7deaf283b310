#pragma once

// The texts of one packet that all views share.

#include <cstdint>

#include <qxfmt/qxfmt.h>

#include "capture/dissect.h"
#include "capture/options.h"
#include "capture/output.h"

namespace capture {

// "127.0.0.1:80", "[::1]:80" or, without a port, "::1" or "00:1A:2B:3C:4D:5E"; "-" for none.
ResultText EndpointText(CQXDataFormat& format, const Endpoint& endpoint);

// The time of a packet, nanoseconds since 1970, in the style that is asked for. Since the first one
// it may be negative: captures need not be in order.
ResultText TimeText(CQXDataFormat& format, const Options& options, std::int64_t time,
                    std::int64_t first);

ResultText DurationText(CQXDataFormat& format, const Options& options, std::int64_t nanoseconds);

// What the protocol says: flags, types, questions; and what could not be read. Parts are divided by
// semicolons, so that no cell of comma-separated values needs quotes for it.
void PutInfo(Output& output, CQXDataFormat& format, const Packet& packet);

}  // namespace capture
