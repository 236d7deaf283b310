#pragma once

// A value in every form that the library has, and what else is known of it.

#include <string>

#include "address/values.h"

namespace address {

// Lines of a name and a form, in UTF-8.
std::string Forms(const Value& value);

}  // namespace address
