#pragma once
// The figures --verbose prints for each rank: what it counted, how long it took and the peak
// memory of its process.
#include <string>

#include "mpi/share_result.h"
#include "mpi/shares.h"

namespace wordtally {

// "rank 2 on node3: 5 files, 300 MB in 4.2 s, peak memory 40 MB", with a line end.
std::string RankReportLine(const std::string& who, const Share& share, double seconds);

// Rank 0's closing lines: the merge's messages and bytes, and its own peak memory.
std::string MergeReport(const ShareResult& all);
// Rank 0's closing line after a large file was shared: the parts the other ranks handed back
// and their bytes, and its own peak memory.
std::string PartsReport(int64_t parts, int64_t bytes);

}  // namespace wordtally
