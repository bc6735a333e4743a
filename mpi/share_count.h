#pragma once
// Counting one rank's share of a corpus's text files with wordtally's engine and settings. The
// share is counted, not listed: the listing is rank 0's, over the whole corpus.
#include <string>

#include "cli/command_line.h"
#include "engine/counting_settings.h"
#include "engine/part_counting.h"
#include "mpi/share_result.h"
#include "mpi/shares.h"

namespace wordtally {

// Counts share under settings (as the command line made them); its messages are gathered in the
// result, not printed. who names the rank in a failure. showProgress: the progress line on
// standard error. helpers, when given, count parts of a large file with this rank.
ShareResult CountShare(const CommandLineOptions& options, CountingSettings settings,
                       const Share& share, const std::string& who, bool showProgress,
                       PartHelpers* helpers = nullptr);

}  // namespace wordtally
