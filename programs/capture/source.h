#pragma once

// Where packets come from: a file, the standard input or a network interface, read by libpcap.

#include <pcap/pcap.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "capture/dissect.h"

namespace capture {

// In place of a time that nanoseconds in 64 bits do not reach: QXFMT shows it as out of range.
inline constexpr std::int64_t kOutOfRange = -1'000'000'000;

struct Record {
  std::uint64_t number = 0;                // of the packet in its capture, from 1 on
  std::int64_t time = 0;                   // nanoseconds since 1970, or kOutOfRange
  std::span<const std::uint8_t> captured;  // until the next packet is read
  std::uint32_t length = 0;                // before the capture cut it
};

// All of it throws std::runtime_error with what is wrong, and what to do.
class Source {
 public:
  // A capture in `path`, or in the standard input if that is "-".
  static Source OpenFile(const std::string& path);
  static Source OpenInterface(const std::string& name);

  // From now on. The packets of a file keep their numbers. Throws programs::UsageError.
  void SetFilter(const std::string& expression);

  enum class Step : std::uint8_t {
    kPacket,
    kFilteredOut,
    kIdle,  // there may be nothing more at the moment
    kEnd,
  };
  Step Next(Record& record);

  // Waits a little for the next packet of an idle source.
  void Wait() const;

  Link link() const { return link_; }
  std::string link_name() const;
  std::uint64_t size() const { return size_; }  // bytes of a file, 0 of any other source
  std::uint64_t position() const;               // bytes of it that are read
  std::uint64_t dropped() const;                // packets that came too fast to be captured live

 private:
  struct Close {
    void operator()(pcap_t* handle) const { ::pcap_close(handle); }
  };
  struct Filter {
    bpf_program code{};
    Filter() = default;
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;
    ~Filter() { ::pcap_freecode(&code); }
  };

  Source(pcap_t* handle, std::string name);
  bool IsNothingWaiting() const;
  [[noreturn]] void FailReading() const;

  std::unique_ptr<pcap_t, Close> handle_;
  std::unique_ptr<Filter> filter_;
  std::string name_;
  bool is_live_ = false;
  bool is_stream_ = false;  // a pipe or the like, whose writer may be slower
  bool was_idle_ = false;
  std::uint64_t size_ = 0;
  std::uint64_t read_ = 0;  // packets
  Link link_ = Link::kUnknown;
};

}  // namespace capture
