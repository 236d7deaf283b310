#pragma once

// One operation beside what a user would call instead, on the same values in one run.

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <qxfmt/qxfmt.h>

namespace qxfmt::bench {

// Values of one pass; a formatter is reset after each pass.
inline constexpr std::size_t kValues = 4096;

// Named "operation|implementation". What runs is one pass over all values.
void Register(const std::string& operation, const std::string& implementation,
              std::function<void(benchmark::State&)> body);

// Our side: `call(format, value)` returns the result text.
template <typename Value, typename Call>
void Ours(const std::string& operation, const std::vector<Value>& values, Call call) {
  Register(operation, "qxfmt", [values, call](benchmark::State& state) {
    CQXDataFormat format;
    for ([[maybe_unused]] auto _ : state) {
      for (const Value& value : values) benchmark::DoNotOptimize(call(format, value));
      format.Reset();
    }
  });
}

// A free function of ours, or a peer: `call(value)` returns something that depends on all its work.
template <typename Value, typename Call>
void Other(const std::string& operation, const std::string& implementation,
           const std::vector<Value>& values, Call call) {
  Register(operation, implementation, [values, call](benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
      for (const Value& value : values) benchmark::DoNotOptimize(call(value));
    }
  });
}

// A peer that prints 8-bit text into a buffer on the stack: `call(buffer, value)`.
inline constexpr std::size_t kPeerBuffer = 512;

template <typename Value, typename Call>
void Peer(const std::string& operation, const std::string& implementation,
          const std::vector<Value>& values, Call call) {
  Other(operation, implementation, values, [call](const Value& value) {
    char buffer[kPeerBuffer];
    benchmark::DoNotOptimize(call(buffer, value));
    benchmark::DoNotOptimize(buffer);
    return 0;
  });
}

}  // namespace qxfmt::bench
