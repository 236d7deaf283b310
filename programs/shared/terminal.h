#pragma once

// What is known of the terminal that a file descriptor may be.

#include <cstddef>

namespace programs {

// Characters in a line of the terminal, SIZE_MAX where it is none.
std::size_t LineWidth(int descriptor);

// Lines of the terminal, SIZE_MAX where it is none.
std::size_t LineCount(int descriptor);

// Whether it is a terminal that takes escape sequences.
bool TakesEscapes(int descriptor);

// Whether colours are welcome: on a terminal that has them, unless the user wants none
// (https://no-color.org).
bool TakesColours(int descriptor);

// Whether the locale says that texts are UTF-8. Without a call of setlocale it says no.
bool IsUtf8Locale();

}  // namespace programs
