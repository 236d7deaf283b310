#include "capture/source.h"

#include <poll.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "shared/options.h"

namespace capture {

namespace {

// Bytes of a packet that a live capture asks for: all headers, whatever their options.
constexpr int kLiveBytes = 1024;
constexpr int kLiveDelay = 100;  // milliseconds until the kernel hands over what has arrived
constexpr int kWait = 200;       // milliseconds, so that an interrupt is soon seen

Link ToLink(int type) {
  switch (type) {
    case DLT_EN10MB:
      return Link::kEthernet;
    case DLT_LINUX_SLL:
      return Link::kLinuxCooked1;
    case DLT_LINUX_SLL2:
      return Link::kLinuxCooked2;
    case DLT_RAW:
    case DLT_IPV4:
    case DLT_IPV6:
      return Link::kRawIp;
    case DLT_NULL:
      return Link::kLoopbackHostOrder;
    case DLT_LOOP:
      return Link::kLoopbackNetworkOrder;
    default:
      return Link::kUnknown;
  }
}

// With nanoseconds asked for, that is what libpcap puts in the place of microseconds.
std::int64_t Nanoseconds(const timeval& time) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  constexpr std::int64_t kLastSecond = 9'000'000'000;  // in the year 2255
  if (time.tv_sec < 0 || time.tv_sec > kLastSecond) return kOutOfRange;
  return time.tv_sec * kSecond + time.tv_usec;
}

std::string InterfaceNames() {
  char error[PCAP_ERRBUF_SIZE];
  pcap_if_t* list = nullptr;
  std::string names;
  if (::pcap_findalldevs(&list, error) != 0) return names;
  for (const pcap_if_t* one = list; one != nullptr; one = one->next) {
    if ((one->flags & PCAP_IF_UP) == 0) continue;
    if (!names.empty()) names += ", ";
    names += one->name;
  }
  ::pcap_freealldevs(list);
  return names;
}

[[noreturn]] void FailOpening(const std::string& name, int status, pcap_t* handle) {
  switch (status) {
    case PCAP_ERROR_NO_SUCH_DEVICE:
      throw std::runtime_error("there is no interface " + name + "; up are " + InterfaceNames());
    case PCAP_ERROR_PERM_DENIED:
    case PCAP_ERROR_PROMISC_PERM_DENIED:
      throw std::runtime_error("no permission to capture on " + name +
                               ": run it as root, sudo qxfmt-capture -i " + name);
    case PCAP_ERROR_IFACE_NOT_UP:
      throw std::runtime_error(name + " is down; to change that: sudo ip link set " + name + " up");
    default:
      const std::string detail = ::pcap_geterr(handle);
      throw std::runtime_error("cannot capture on " + name + ": " +
                               (detail.empty() ? ::pcap_statustostr(status) : detail));
  }
}

}  // namespace

Source::Source(pcap_t* handle, std::string name) : handle_(handle), name_(std::move(name)) {}

Source Source::OpenFile(const std::string& path) {
  const bool is_input = path == "-";
  const std::string name = is_input ? "the standard input" : path;
  std::unique_ptr<FILE, int (*)(FILE*)> file(is_input ? stdin : std::fopen(path.c_str(), "rb"),
                                             std::fclose);
  struct stat status {};
  if (file == nullptr || ::fstat(::fileno(file.get()), &status) != 0) {
    throw std::runtime_error("cannot open " + name + ": " + std::strerror(errno));
  }
  if (S_ISDIR(status.st_mode)) {
    throw std::runtime_error(name + " is a directory: name a capture file in it");
  }
  char error[PCAP_ERRBUF_SIZE] = "";
  pcap_t* const handle =
      ::pcap_fopen_offline_with_tstamp_precision(file.get(), PCAP_TSTAMP_PRECISION_NANO, error);
  if (handle == nullptr) {
    if (std::feof(file.get()) == 0) {
      throw std::runtime_error(name + " is not a capture in pcap or pcapng format: " + error);
    }
    throw std::runtime_error(name + " is no capture: it ends before the first packet's place");
  }
  static_cast<void>(file.release());  // the handle closes it
  Source source(handle, name);
  source.link_ = ToLink(::pcap_datalink(handle));
  source.is_stream_ = !S_ISREG(status.st_mode);
  if (!source.is_stream_) source.size_ = static_cast<std::uint64_t>(status.st_size);
  return source;
}

Source Source::OpenInterface(const std::string& name) {
  char error[PCAP_ERRBUF_SIZE] = "";
  pcap_t* const handle = ::pcap_create(name.c_str(), error);
  if (handle == nullptr) throw std::runtime_error("cannot capture on " + name + ": " + error);
  Source source(handle, name);
  source.is_live_ = true;
  ::pcap_set_snaplen(handle, kLiveBytes);
  ::pcap_set_promisc(handle, 1);
  ::pcap_set_timeout(handle, kLiveDelay);
  ::pcap_set_tstamp_precision(handle, PCAP_TSTAMP_PRECISION_NANO);
  const int status = ::pcap_activate(handle);
  if (status < 0) FailOpening(name, status, handle);
  if (::pcap_setnonblock(handle, 1, error) != 0) {
    throw std::runtime_error("cannot capture on " + name + ": " + error);
  }
  source.link_ = ToLink(::pcap_datalink(handle));
  return source;
}

void Source::SetFilter(const std::string& expression) {
  auto filter = std::make_unique<Filter>();
  if (::pcap_compile(handle_.get(), &filter->code, expression.c_str(), 1, PCAP_NETMASK_UNKNOWN) !=
      0) {
    throw programs::UsageError("the filter '" + expression +
                               "' cannot be used: " + ::pcap_geterr(handle_.get()) +
                               "; man pcap-filter tells how filters are written");
  }
  if (is_live_ && ::pcap_setfilter(handle_.get(), &filter->code) != 0) {
    throw std::runtime_error("cannot filter " + name_ + ": " + ::pcap_geterr(handle_.get()));
  }
  filter_ = std::move(filter);
}

Source::Step Source::Next(Record& record) {
  if (is_stream_ && !was_idle_ && IsNothingWaiting()) {
    was_idle_ = true;
    return Step::kIdle;
  }
  was_idle_ = false;
  errno = 0;
  pcap_pkthdr* header = nullptr;
  const std::uint8_t* bytes = nullptr;
  const int status = ::pcap_next_ex(handle_.get(), &header, &bytes);
  if (status == 0) return Step::kIdle;
  if (status == PCAP_ERROR_BREAK || (status != 1 && errno == EINTR)) return Step::kEnd;
  if (status != 1) FailReading();
  ++read_;
  const bool is_to_filter = filter_ != nullptr && !is_live_;
  if (is_to_filter && ::pcap_offline_filter(&filter_->code, header, bytes) == 0) {
    return Step::kFilteredOut;
  }
  record = {read_, Nanoseconds(header->ts), {bytes, header->caplen}, header->len};
  return Step::kPacket;
}

void Source::Wait() const {
  if (!is_live_) return;
  pollfd waiting{::pcap_get_selectable_fd(handle_.get()), POLLIN, 0};
  ::poll(&waiting, 1, kWait);
}

std::string Source::link_name() const {
  const int type = ::pcap_datalink(handle_.get());
  const char* const name = ::pcap_datalink_val_to_name(type);
  return name != nullptr ? name : std::to_string(type);
}

std::uint64_t Source::position() const {
  return static_cast<std::uint64_t>(::ftello(::pcap_file(handle_.get())));
}

std::uint64_t Source::dropped() const {
  pcap_stat counts{};
  if (!is_live_ || ::pcap_stats(handle_.get(), &counts) != 0) return 0;
  return std::uint64_t{counts.ps_drop} + counts.ps_ifdrop;
}

bool Source::IsNothingWaiting() const {
  pollfd waiting{::fileno(::pcap_file(handle_.get())), POLLIN, 0};
  return ::poll(&waiting, 1, 0) == 0;
}

void Source::FailReading() const {
  const std::string place = " after packet " + std::to_string(read_);
  if (!is_live_ && std::feof(::pcap_file(handle_.get())) != 0) {
    throw std::runtime_error(name_ + " is cut off in the middle" + place +
                             "; what comes before is shown");
  }
  const std::string detail = ::pcap_geterr(handle_.get());
  if (is_live_)
    throw std::runtime_error("capturing on " + name_ + " ended" + place + ": " + detail);
  throw std::runtime_error(name_ + " is damaged" + place + ": " + detail +
                           "; what comes before is shown");
}

}  // namespace capture
