#include "mpi/rank_report.h"

#include <sys/resource.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "support/file_utils.h"
#include "support/number_format.h"

namespace wordtally {
namespace {

std::string PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return "peak memory " + FormatWholeNumber(usage.ru_maxrss / 1024) + " MB";  // ru_maxrss in KB
}

}  // namespace

std::string RankReportLine(const std::string& who, const Share& share, double seconds) {
  int64_t bytes = 0;
  for (const std::string& file : share) bytes += std::max<int64_t>(FileSize(file), 0);
  char time[32];
  std::snprintf(time, sizeof time, "%.2f s", seconds);
  return who + ": " + FormatWholeNumber(static_cast<int64_t>(share.size())) + " files, " +
         FormatWholeNumber(bytes >> 20) + " MB in " + time + ", " + PeakMemory() + "\n";
}

std::string MergeReport(const ShareResult& all) {
  return "merge: " + FormatWholeNumber(all.messagesSent) + " messages, " +
         FormatWholeNumber(all.bytesSent) + " bytes sent; rank 0 after the listing: " +
         PeakMemory() + "\n";
}

std::string PartsReport(int64_t parts, int64_t bytes) {
  return "parts counted by other ranks: " + FormatWholeNumber(parts) + ", " +
         FormatWholeNumber(bytes) + " bytes received; rank 0 after the listing: " + PeakMemory() +
         "\n";
}

}  // namespace wordtally
