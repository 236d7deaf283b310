// Shows the packets of a capture, as text by QXFMT.

#include <unistd.h>

#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <exception>
#include <memory>

#include "capture/dissect.h"
#include "capture/options.h"
#include "capture/output.h"
#include "capture/progress.h"
#include "capture/source.h"
#include "capture/view.h"
#include "shared/options.h"

namespace capture {

namespace {

volatile std::sig_atomic_t is_interrupted = 0;

// Who interrupts a live capture, or the program that writes it, wants to see what there is. A read
// that waits must end, so that there is no SA_RESTART.
void FinishOnInterrupt() {
  struct sigaction action {};
  action.sa_handler = [](int /*signal*/) { is_interrupted = 1; };
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
}

std::unique_ptr<View> MakeView(const Options& options, Output& output) {
  switch (options.view) {
    case ViewKind::kConversations:
      return MakeConversations(options, output);
    case ViewKind::kSummary:
      return MakeSummary(options, output);
    default:
      return MakeList(options, output);
  }
}

void Show(const Options& options, Source& source, View& view, Output& output) {
  // The rows of a list on the terminal would run through it.
  Progress progress(source, options.view != ViewKind::kList || ::isatty(STDOUT_FILENO) == 0);
  std::uint64_t shown = 0;
  Record record;
  while (is_interrupted == 0 && shown < options.count) {
    progress.Advance();
    switch (source.Next(record)) {
      case Source::Step::kPacket:
        view.Add(record, Dissect(source.link(), record.captured, record.length));
        ++shown;
        break;
      case Source::Step::kFilteredOut:
        break;
      case Source::Step::kIdle:
        output.Flush();
        source.Wait();
        break;
      case Source::Step::kEnd:
        return;
    }
  }
}

void Run(const Options& options) {
  Source source = options.interface.empty() ? Source::OpenFile(options.file)
                                            : Source::OpenInterface(options.interface);
  if (!options.filter.empty()) source.SetFilter(options.filter);
  if (source.size() == 0) FinishOnInterrupt();
  if (source.link() == Link::kUnknown) {
    std::fprintf(stderr, "qxfmt-capture: packets of the link type %s show without their content\n",
                 source.link_name().c_str());
  }

  // What was read before a capture turned out to be damaged is shown as well.
  Output output(STDOUT_FILENO);
  const std::unique_ptr<View> view = MakeView(options, output);
  std::exception_ptr failure;
  try {
    Show(options, source, *view, output);
  } catch (const std::exception&) {
    failure = std::current_exception();
  }
  view->Finish();
  output.Flush();
  if (const std::uint64_t dropped = source.dropped(); dropped > 0) {
    std::fprintf(stderr, "qxfmt-capture: %" PRIu64 " packets came too fast and are missing\n",
                 dropped);
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace

}  // namespace capture

int main(int argc, char** argv) {
  ::tzset();  // the reader's zone
  try {
    const capture::Options options = capture::ParseOptions(argc, argv);
    if (options.help) {
      std::fputs(capture::kUsage, stdout);
    } else if (options.version) {
      std::puts("qxfmt-capture " QXFMT_VERSION);
    } else {
      capture::Run(options);
    }
  } catch (const programs::UsageError& error) {
    std::fprintf(stderr, "qxfmt-capture: %s\nqxfmt-capture --help lists the options\n",
                 error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "qxfmt-capture: %s\n", error.what());
    return 1;
  }
}
