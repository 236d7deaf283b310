#pragma once

// What kind of address an address is, by the registries of IANA.

#include <cstdint>

#include "address/values.h"

namespace address {

struct Kind {
  const char* name = nullptr;
  const char* source = nullptr;  // the document that says so
};

Kind KindOf(const Ipv4& ipv4);
Kind KindOf(const Ipv6& ipv6);
Kind KindOf(const Mac& mac);
Kind KindOf(const Port& port);

}  // namespace address
