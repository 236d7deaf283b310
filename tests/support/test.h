#pragma once

// What every test of the library uses.

#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"
#include "support/text.h"
