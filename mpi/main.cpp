// wordtally-mpi: wordtally's count spread over the ranks of an MPI job. For a corpus, rank 0 lists
// the inputs and gives each rank a share of the text files; every rank counts its share with the
// same engine; the counts are merged up a tree of messages; rank 0 lists the whole corpus and
// writes its outputs, as wordtally would. For one large file, rank 0 runs as wordtally and hands
// each other rank a part of the file to count.
#include <mpi.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>

#include "cli/command_run.h"
#include "corpus/corpus_files.h"
#include "mpi/byte_messages.h"
#include "mpi/rank_helpers.h"
#include "mpi/rank_report.h"
#include "mpi/reduction.h"
#include "mpi/share_count.h"
#include "support/file_utils.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

std::string RankName(int rank) {
  char host[MPI_MAX_PROCESSOR_NAME];
  int length = 0;
  MPI_Get_processor_name(host, &length);
  return "rank " + std::to_string(rank) + " on " + std::string(host, length);
}

// Counts this rank's share, then merges it up the tree; the whole result on rank 0.
ShareResult CountAndMerge(int rank, const CommandLineOptions& options,
                          const CountingSettings& settings, const Share& share) {
  const std::string who = RankName(rank);
  const auto start = std::chrono::steady_clock::now();
  ShareResult own = CountShare(options, settings, share, who,
                               rank == 0 && isatty(STDERR_FILENO) == 1);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  if (options.verbose) own.report = RankReportLine(who, share, seconds.count());
  return ReduceShares(std::move(own), MPI_COMM_WORLD);
}

std::vector<Share> SharesOfCorpus(const CommandLineOptions& options, int ranks) {
  std::vector<std::string> files;
  std::vector<int64_t> sizes;
  for (const CorpusInput& input : ExpandCorpusInputs(options.inputs)) {
    if (input.isCountFile) continue;  // read by rank 0's run, after the text files, as wordtally
    files.push_back(input.path);
    sizes.push_back(std::max<int64_t>(FileSize(input.path), 0));
  }
  return DivideIntoShares(files, sizes, ranks);
}

// Where the corpus run would read its text files: the messages the ranks gathered, in input
// order, then their merged counts, or the failure.
TextFileCounts Deliver(ShareResult& all) {
  std::cerr << all.messages;
  if (!all.failure.empty()) throw RunError(kErrInternal, all.failure);
  return {std::move(all.counts), std::move(all.skipped)};
}

// What the other ranks do: nothing (the command line was refused), count their share of a
// corpus, or help rank 0 count one large file.
enum class Plan : int { Idle, Shares, Parts };

Plan BroadcastPlan(Plan plan) {
  int value = static_cast<int>(plan);
  MPI_Bcast(&value, 1, MPI_INT, 0, MPI_COMM_WORLD);
  return static_cast<Plan>(value);
}

// A run of one input (a file, or standard input) on rank 0, which shares a large file with the
// other ranks.
int LeadOneInput(const CommandLineOptions& options, CountingSettings& settings) {
  RankHelpers helpers(MPI_COMM_WORLD);
  const int exitStatus =
      RunCommandLine(options, settings,
                     [&helpers](EngineContext& ctx, CorpusRun&) { ctx.partHelpers = &helpers; });
  helpers.Release();
  if (options.verbose) std::cerr << PartsReport(helpers.PartsReceived(), helpers.BytesReceived());
  return exitStatus;
}

int LeadCorpus(const CommandLineOptions& options, CountingSettings& settings, int ranks) {
  std::vector<Share> shares = SharesOfCorpus(options, ranks);
  std::string bytes = EncodeShares(shares);
  BroadcastBytes(bytes, 0, MPI_COMM_WORLD);
  ShareResult all = CountAndMerge(0, options, settings, shares[0]);
  const int exitStatus = RunCommandLine(options, settings, [&all](EngineContext&, CorpusRun& run) {
    run.TakeTextFileCountsFrom(
        [&all](EngineContext&, const std::vector<std::string>&) { return Deliver(all); });
  });
  if (options.verbose) std::cerr << all.report << MergeReport(all);
  return exitStatus;
}

int Lead(int argc, char** argv, int ranks) {
  int exitStatus = 0;
  std::string error;
  const auto options = ParseCommandLine(argc, argv, exitStatus);
  auto settings =
      options ? SettingsFromCommandLine(*options, error, exitStatus) : std::nullopt;
  if (!settings) {
    BroadcastPlan(Plan::Idle);
    if (!error.empty()) std::cerr << error << '\n';
    return exitStatus;
  }
  if (WantsCorpusRun(*options)) {
    BroadcastPlan(Plan::Shares);
    return LeadCorpus(*options, *settings, ranks);
  }
  BroadcastPlan(Plan::Parts);
  return LeadOneInput(*options, *settings);
}

// A rank other than 0: counts the share rank 0 gives it, under its own reading of the command
// line, and hands the result on; rank 0 tells what happened.
int Follow(int argc, char** argv, int rank) {
  const Plan plan = BroadcastPlan(Plan::Idle);  // the value is rank 0's
  if (plan == Plan::Idle) return 0;
  if (plan == Plan::Parts) {
    ServeParts(MPI_COMM_WORLD);
    return 0;
  }
  std::string bytes;
  BroadcastBytes(bytes, 0, MPI_COMM_WORLD);
  const std::optional<Share> share = DecodeShare(bytes, rank);
  if (!share) return 0;
  int exitStatus = 0;
  std::string error;
  const auto options = ParseCommandLine(argc, argv, exitStatus);
  const auto settings =
      options ? SettingsFromCommandLine(*options, error, exitStatus) : std::nullopt;
  if (settings) {
    CountAndMerge(rank, *options, *settings, *share);
    return 0;
  }
  ShareResult refused;
  refused.messages = error.empty() ? "" : error + '\n';
  Fail(refused, "The command line was refused on " + RankName(rank) + ".");
  ReduceShares(std::move(refused), MPI_COMM_WORLD);
  return 0;
}

}  // namespace
}  // namespace wordtally

int main(int argc, char** argv) {
  using namespace wordtally;
  MPI_Init(&argc, &argv);
  int rank = 0, ranks = 1;
  MPI_Comm_rank(MPI_COMM_WORLD, &rank);
  MPI_Comm_size(MPI_COMM_WORLD, &ranks);
  bool finished = false;
  const int exitStatus = ReportingUncaught([&] {
    const int status = rank == 0 ? Lead(argc, argv, ranks) : Follow(argc, argv, rank);
    finished = true;
    return status;
  });
  // An error that escaped a rank may leave the others waiting for its messages: end them all.
  if (!finished) MPI_Abort(MPI_COMM_WORLD, 1);
  MPI_Finalize();
  return exitStatus;
}
