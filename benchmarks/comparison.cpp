#include "comparison.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <regex>

namespace qxfmt::bench {

void AddAddressRows();
void AddArenaRows();
void AddGrowableTextRows();
void AddNumberRows();
void AddPacketListRows();
void AddSettingRows();
void AddTimeRows();
void AddUtf8Rows();

namespace {

std::vector<Row> rows;
std::atomic<bool> has_failures = false;

// Every operation of the public headers has a row whose name begins with the operation's.
void CheckCoverage() {
  const std::regex declaration(R"((?:ResultText|void|QXFMT_API [\w:]+) ((?:Format|QXFMT_)\w+)\()");
  for (const auto& header : std::filesystem::directory_iterator(QXFMT_HEADERS)) {
    std::ifstream file(header.path());
    const std::string code(std::istreambuf_iterator<char>(file), {});
    for (std::sregex_iterator found(code.begin(), code.end(), declaration), end; found != end;
         ++found) {
      const std::regex name((*found)[1].str() + R"(\b.*)");
      if (std::none_of(rows.begin(), rows.end(),
                       [&](const Row& row) { return std::regex_match(row.operation, name); })) {
        ReportFailure("no benchmark calls " + (*found)[1].str());
      }
    }
  }
}

}  // namespace

const std::vector<Row>& AllRows() {
  if (rows.empty()) {
    AddNumberRows();
    AddTimeRows();
    AddAddressRows();
    AddGrowableTextRows();
    AddUtf8Rows();
    AddSettingRows();
    AddPacketListRows();
    AddArenaRows();
    CheckCoverage();
  }
  return rows;
}

void AddRow(Row row) { rows.push_back(std::move(row)); }

void ReportFailure(const std::string& message) {
  std::fprintf(stderr, "%s\n", message.c_str());
  has_failures = true;
}

bool HasFailures() { return has_failures; }

void SetZone(const char* zone) {
  static std::mutex mutex;
  static std::string current;
  const std::lock_guard lock(mutex);
  if (current == zone) return;
  current = zone;
  setenv("TZ", zone, 1);
  tzset();
}

}  // namespace qxfmt::bench
