// Another process on a core would look like a lock of ours. That is why each thread keeps to a
// core, why the work is cut into slices much shorter than what the scheduler gives to a process at
// a time, why the threads sleep before each slice, which lets them run as soon as they wake, and
// why the fastest slice counts.

#include "two_threads.h"

#include <pthread.h>
#include <sched.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

namespace qxfmt::bench {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

constexpr microseconds kSlice{500};    // about
constexpr microseconds kPeriod{2000};  // from the start of a slice to that of the next
constexpr microseconds kWaking{200};   // what a thread may take to wake up

// Fewer only for a quick run on few values.
std::size_t Slices() { return std::clamp<std::size_t>(ValueCount() / 1024, 1, 16); }

// The cores that this process may use.
std::vector<std::size_t> Cores() {
  cpu_set_t set;
  std::vector<std::size_t> cores;
  if (sched_getaffinity(0, sizeof set, &set) != 0) return cores;
  for (std::size_t core = 0; core < CPU_SETSIZE; ++core) {
    if (CPU_ISSET(core, &set)) cores.push_back(core);
  }
  return cores;
}

using Times = std::vector<Clock::duration>;

// How long each slice of so many results takes. The slices start at times that are fixed before, so
// that threads with the same `start` do them side by side.
Times Run(const Row& row, std::size_t core, std::size_t slice, Clock::time_point start) {
  cpu_set_t set;
  CPU_ZERO(&set);
  CPU_SET(core, &set);
  pthread_setaffinity_np(pthread_self(), sizeof set, &set);
  const Work work = row.start();
  Times durations;
  for (std::size_t i = 0; i < Slices(); ++i) {
    start += kPeriod;
    std::this_thread::sleep_until(start - kWaking);
    while (Clock::now() < start) {
    }
    work(i * slice, (i + 1) * slice);
    durations.push_back(Clock::now() - start);
  }
  return durations;
}

double Fastest(const Times& durations) {
  return static_cast<double>(std::min_element(durations.begin(), durations.end())->count());
}

}  // namespace

double TwoThreadRatio(const Row& row) {
  static const std::vector<std::size_t> cores = Cores();
  if (cores.size() < 2) return 0;

  const Work work = row.start();
  const Clock::time_point begin = Clock::now();
  work(0, row.results);
  const auto parts = static_cast<std::size_t>((Clock::now() - begin) / kSlice);
  const std::size_t slice = row.results / std::max(parts, Slices());

  Times one;
  std::thread([&] { one = Run(row, cores[0], slice, Clock::now()); }).join();

  Times first;
  Times second;
  const Clock::time_point start = Clock::now();
  std::thread thread([&] { first = Run(row, cores[0], slice, start); });
  std::thread([&] { second = Run(row, cores[1], slice, start); }).join();
  thread.join();
  for (std::size_t i = 0; i < Slices(); ++i) first[i] = std::max(first[i], second[i]);
  return 2 * Fastest(one) / Fastest(first);
}

}  // namespace qxfmt::bench
