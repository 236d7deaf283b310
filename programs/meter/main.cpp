// The network counters of this host, as text by QXFMT.

#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <exception>

#include <qxfmt/qxfmt.h>

#include "meter/lines.h"
#include "meter/live.h"
#include "meter/options.h"
#include "meter/sockets.h"
#include "shared/options.h"
#include "shared/print.h"
#include "shared/printable.h"
#include "shared/terminal.h"

namespace meter {

namespace {

// The meter writes UTF-8. A terminal of another encoding shows ASCII as it is, but not the Chinese
// words.
void KeepToEncoding(Options& options) {
  if (options.words != QXFMT_DURATION_WORDS_CN || programs::IsUtf8Locale()) return;
  std::fputs("qxfmt-meter: English words: the locale's encoding is not UTF-8\n", stderr);
  options.words = QXFMT_DURATION_WORDS_EN;
}

void PrintSockets(const Options& options) {
  // The queues make way for long addresses.
  const programs::Table table = SocketTable(options.root);
  programs::Print(options.csv ? table.ToCsv()
                              : table.ToString(programs::LineWidth(STDOUT_FILENO), {{5}, {4}}));
}

// Returns the signal that is to end the program, or 0.
int Run(Options options) {
  const bool in_lines = options.lines || options.once || !programs::TakesEscapes(STDOUT_FILENO);
  QXFMT_SetNumberDecimalPlaces(options.decimals);
  KeepToEncoding(options);
  if (options.help) {
    programs::Print(kUsage);
  } else if (options.version) {
    programs::Print("qxfmt-meter " QXFMT_VERSION "\n");
  } else if (options.sockets) {
    PrintSockets(options);
  } else if (options.csv) {
    PrintCsv(options);
  } else if (in_lines) {
    PrintLines(options);
  } else {
    return RunLive(options);
  }
  return 0;
}

}  // namespace

}  // namespace meter

int main(int argc, char** argv) {
  // LC_NUMERIC stays "C": numbers are grouped by commas, whatever the locale's decimal point is.
  std::setlocale(LC_CTYPE, "");  // the reader's encoding
  ::tzset();                     // and zone
  try {
    const int signal = meter::Run(meter::ParseOptions(argc, argv));
    if (signal != 0) std::raise(signal);  // the terminal is restored: end as any other program
    return 0;
  } catch (const programs::UsageError& error) {
    std::fprintf(stderr, "qxfmt-meter: %s\nqxfmt-meter --help lists the options\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    // What the kernel or a file tells is in there.
    std::fprintf(stderr, "qxfmt-meter: %s\n", programs::Printable(error.what()).c_str());
    return 1;
  }
}
