#pragma once

// From a typed text to the values that it stands for.

#include <string>
#include <vector>

#include "address/values.h"

namespace address {

struct Reading {
  // More than one where the text is ambiguous: "::0011:2233:4455" is an IPv6 address and a MAC
  // address.
  std::vector<Value> values;
  std::string refusal;  // why there are none
};

Reading Read(const std::u16string& text);

}  // namespace address
