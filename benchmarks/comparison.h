#pragma once

// The frame of all rows: one operation beside what a user would call instead, on the same values.
//
//   Compare("FormatNumber u32, packet sizes", PacketSizes(),
//           [](CQXDataFormat& f, std::uint32_t v) { return f.FormatNumber(v, 0); },
//           Peer{"fmt compiled", kFmtDecimal, 1.2}, Peer{"std::to_chars", kToChars});

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <qxfmt/qxfmt.h>

#include "values.h"

namespace qxfmt::bench {

inline constexpr char kOurs[] = "qxfmt";
inline constexpr char kUtc[] = "UTC";
inline constexpr char kNewYork[] = "America/New_York";

inline constexpr std::size_t kResultsPerReset = 1024;
inline constexpr std::size_t kPeerBuffer = 512;

// Makes the results of a part of a row's values.
using Work = std::function<void(std::size_t begin, std::size_t end)>;

struct Row {
  std::string operation;
  std::string implementation;  // `kOurs` or a peer
  std::size_t results;         // of all values
  // Makes what the work needs. Several threads may call it; each gets a formatter of its own.
  std::function<Work()> start;
  double goal = 0;  // how many times as long as ours this peer should take at least; 0: no goal
  bool on_two_threads = false;
};

// All rows, ours of an operation before its peers.
const std::vector<Row>& AllRows();
void AddRow(Row row);

// Something that must hold did not: prints it, and the program will not end well.
void ReportFailure(const std::string& message);
bool HasFailures();

// Makes the zone that of the process, unless it is already.
void SetZone(const char* zone);

// `call(out, value)` prints 8-bit text into a buffer of `kPeerBuffer` bytes on the stack;
// `call(value)` returns a value that depends on all its work.
template <typename Call>
struct Peer {
  const char* name;
  Call call;
  double goal = 0;

  constexpr Peer WithGoal(double least) const { return {name, call, least}; }
};
template <typename Call>
Peer(const char*, Call) -> Peer<Call>;
template <typename Call>
Peer(const char*, Call, double) -> Peer<Call>;

// Works on a copy of the set, which the compiler can keep in registers.
template <typename Set, typename Call>
void CallEach(const Set set, std::size_t begin, std::size_t end, const Call& call) {
  for (std::size_t i = begin; i < end; ++i) call(set[i]);
}

template <typename Set, typename Call>
Work OurWork(Set set, Call call) {
  if constexpr (std::is_invocable_v<Call, CQXDataFormat&, decltype(set[0])>) {
    const Work work = [set, call, format = std::make_shared<CQXDataFormat>()](std::size_t begin,
                                                                              std::size_t end) {
      for (; begin < end; begin += kResultsPerReset) {
        CallEach(set, begin, std::min(begin + kResultsPerReset, end),
                 [call, format = format.get()](const auto& value) {
                   benchmark::DoNotOptimize(call(*format, value));
                 });
        format->Reset();
      }
    };
    work(0, std::min(kResultsPerReset, set.size()));  // now the arena has its size
    return work;
  } else {
    return [set, call](std::size_t begin, std::size_t end) {
      CallEach(set, begin, end,
               [call](const auto& value) { benchmark::DoNotOptimize(call(value)); });
    };
  }
}

template <typename Set, typename Call>
Work PeerWork(Set set, Call call) {
  return [set, call](std::size_t begin, std::size_t end) {
    CallEach(set, begin, end, [call](const auto& value) {
      if constexpr (std::is_invocable_v<Call, char*, decltype(value)>) {
        char buffer[kPeerBuffer];
        benchmark::DoNotOptimize(call(buffer, value));
        benchmark::DoNotOptimize(buffer);
      } else {
        benchmark::DoNotOptimize(call(value));
      }
    });
  };
}

// `operation` begins with the name of a function; `ours(format, value)` or `ours(value)` calls it.
template <typename Set, typename Call, typename... Calls>
void CompareIn(const char* zone, const std::string& operation, Set set, Call ours,
               Peer<Calls>... peers) {
  const auto add = [&](const std::string& implementation, double goal, auto make_work) {
    const auto start = [zone, make_work] {
      SetZone(zone);
      return make_work();
    };
    AddRow({operation, implementation, set.size(), start, goal, implementation == kOurs});
  };
  add(kOurs, 0, [set, ours] { return OurWork(set, ours); });
  (add(peers.name, peers.goal, [set, call = peers.call] { return PeerWork(set, call); }), ...);
}

// For what no zone matters to.
template <typename Set, typename Call, typename... Calls>
void Compare(const std::string& operation, Set set, Call ours, Peer<Calls>... peers) {
  CompareIn(kUtc, operation, set, ours, peers...);
}

}  // namespace qxfmt::bench
