#include "meter/rates.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace meter {

namespace {

// What a counter gained. One that fell ran over its end, at 2^32 or 2^64, if that explains it with
// a gain of less than half of its range. Otherwise somebody set it back.
std::uint64_t Gain(std::uint64_t before, std::uint64_t now) {
  if (now >= before) return now - before;
  const bool has_32_bits = before <= UINT32_MAX;
  const std::uint64_t gain = has_32_bits ? static_cast<std::uint32_t>(now - before) : now - before;
  return gain < (has_32_bits ? UINT64_C(1) << 31 : UINT64_C(1) << 63) ? gain : 0;
}

// Where bytes and packets both fell, the interface or its driver started again, and counts from 0.
Direction Gain(const Direction& before, const Direction& now) {
  if (now.bytes < before.bytes && now.packets < before.packets) return now;
  return {Gain(before.bytes, now.bytes), Gain(before.packets, now.packets),
          Gain(before.errors, now.errors), Gain(before.drops, now.drops)};
}

void Add(Direction& sum, const Direction& gained) {
  sum.bytes += gained.bytes;
  sum.packets += gained.packets;
  sum.errors += gained.errors;
  sum.drops += gained.drops;
}

double Seconds(Clock::duration span) { return std::chrono::duration<double>(span).count(); }

double Share(const Flow& part, const Flow& whole) {
  return whole.gained.bytes == 0
             ? 0
             : static_cast<double>(part.gained.bytes) / static_cast<double>(whole.gained.bytes);
}

void SetShares(Load& load, const Load& total) {
  load.received.share = Share(load.received, total.received);
  load.sent.share = Share(load.sent, total.sent);
}

}  // namespace

Rates::Rates(double interval)
    : minute_(static_cast<std::size_t>(std::max(1.0, std::round(60 / interval)))) {}

Round Rates::Advance(const std::vector<Interface>& interfaces, Clock::time_point time) {
  Round round;
  round.time = time;
  round.minute = minute_;
  for (const Interface& now : interfaces) {
    const auto known = loads_.find(now.name);
    Load load = known == loads_.end() ? Load{now, {}, {}, time} : known->second;
    if (known != loads_.end()) {
      const Interface before = std::exchange(load.interface, now);
      Advance(load, Gain(before.received, now.received), Gain(before.sent, now.sent), time);
    }
    round.loads.push_back(std::move(load));
  }
  AddTotal(round);
  loads_.clear();
  for (const Load& load : round.loads) loads_.emplace(load.interface.name, load);
  time_ = time;
  return round;
}

void Rates::Advance(Load& load, const Direction& received, const Direction& sent,
                    Clock::time_point time) const {
  Advance(load.received, received, load.since, time);
  Advance(load.sent, sent, load.since, time);
}

void Rates::Advance(Flow& flow, const Direction& gained, Clock::time_point since,
                    Clock::time_point time) const {
  const double seconds = Seconds(time - time_);
  flow.gained = gained;
  flow.rate = static_cast<double>(gained.bytes) / seconds;
  flow.packet_rate = static_cast<double>(gained.packets) / seconds;
  flow.peak = std::max(flow.peak, flow.rate);
  flow.bytes += gained.bytes;
  flow.average = static_cast<double>(flow.bytes) / Seconds(time - since);
  if (gained.packets + gained.bytes > 0) flow.traffic = time;
  ++flow.readings;
  flow.minute.push_back(flow.rate);
  if (flow.minute.size() > minute_) flow.minute.erase(flow.minute.begin());
}

void Rates::AddTotal(Round& round) {
  Direction received;
  Direction sent;
  bool any = false;
  for (const Load& load : round.loads) {
    if (load.interface.is_loopback) continue;
    any = true;
    Add(received, load.received.gained);
    Add(sent, load.sent.gained);
  }
  if (total_) {
    Advance(*total_, received, sent, round.time);
  } else {
    total_ = Load{{}, {}, {}, round.time};
    total_->interface.name = "total";
  }
  if (!any) return;

  for (Load& load : round.loads) SetShares(load, *total_);
  round.total = total_;
  SetShares(*round.total, *total_);
}

}  // namespace meter
