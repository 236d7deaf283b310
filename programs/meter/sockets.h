#pragma once

// The open sockets of the host.

#include <string>

#include "shared/table.h"

namespace meter {

// The entries of ROOT/proc/net/tcp, tcp6, udp and udp6; a kernel without IPv6 has only two of them.
// Throws std::runtime_error if none can be read, or one does not look as it should.
programs::Table SocketTable(const std::string& root);

}  // namespace meter
