#pragma once

// What a program shows of a capture.

#include <memory>

#include "capture/dissect.h"
#include "capture/options.h"
#include "capture/output.h"
#include "capture/source.h"

namespace capture {

class View {
 public:
  View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  virtual void Add(const Record& record, const Packet& packet) = 0;

  // After the last packet, also where the capture was interrupted or turned out to be cut.
  virtual void Finish() {}
};

// Each in a file of its own.
std::unique_ptr<View> MakeList(const Options& options, Output& output);
std::unique_ptr<View> MakeConversations(const Options& options, Output& output);
std::unique_ptr<View> MakeSummary(const Options& options, Output& output);

}  // namespace capture
