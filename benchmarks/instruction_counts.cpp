// Counts the instructions of each of our rows under callgrind: no noise of a machine reaches them.
// Each row ends in a dump whose trigger names its results and the operation. Prints what the counts
// depend on.

#include <gnu/libc-version.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <string>

#include "comparison.h"

int main() {
  using namespace qxfmt::bench;
#if defined(__clang__)
  std::printf("%s, ", __VERSION__);
#else
  std::printf("g++ %s, ", __VERSION__);
#endif
  std::printf("glibc %s, %zu-bit\n", gnu_get_libc_version(), 8 * sizeof(void*));
  SetValueCount(1024);
  for (const Row& row : AllRows()) {
    if (row.implementation != kOurs) continue;
    const std::string trigger = std::to_string(row.results) + " " + row.operation;
    const Work work = row.start();
    work(0, row.results);  // resolves symbols and lets the arena grow
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work(0, row.results);
    CALLGRIND_DUMP_STATS_AT(trigger.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
  }
  return HasFailures() ? 1 : 0;
}
