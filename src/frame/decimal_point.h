#pragma once

namespace qxfmt {

// The decimal point of the C locale that the calling thread is in: the process's, unless the thread
// has one of its own. Safe beside other threads that read it; like every print of the C library it
// may not overlap a setlocale call.
char16_t DecimalPoint();

}  // namespace qxfmt
