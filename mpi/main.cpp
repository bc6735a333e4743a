// wordtally-mpi: wordtally's count spread over the ranks of an MPI job. Rank 0 runs as wordtally
// does and leaves the reading of the text files to rounds in which every rank takes part: for a
// corpus, each rank counts a share of the files and the counts are merged up a tree of messages;
// a large file has a round of its own, in which each rank counts a part of it. Rank 0 lists the
// whole and writes the outputs, as wordtally would.
#include <mpi.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <optional>

#include "cli/command_run.h"
#include "mpi/byte_messages.h"
#include "mpi/rank_helpers.h"
#include "mpi/rank_report.h"
#include "mpi/reduction.h"
#include "mpi/share_count.h"
#include "support/file_utils.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

// What the other ranks do next: end, count their share of some of a corpus's files, or help
// rank 0 count one large file.
enum class Plan : int { End, Shares, Parts };

// Rank 0's plan, on every rank.
Plan BroadcastPlan(Plan plan) {
  int value = static_cast<int>(plan);
  MPI_Bcast(&value, 1, MPI_INT, 0, MPI_COMM_WORLD);
  return static_cast<Plan>(value);
}

std::string RankName(int rank) {
  char host[MPI_MAX_PROCESSOR_NAME];
  int length = 0;
  MPI_Get_processor_name(host, &length);
  return "rank " + std::to_string(rank) + " on " + std::string(host, length);
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool ProgressShown(int rank) { return rank == 0 && isatty(STDERR_FILENO) == 1; }

// Counts this rank's share, then merges it up the tree; the whole result on rank 0.
ShareResult CountAndMerge(int rank, const CommandLineOptions& options,
                          const CountingSettings& settings, const Share& share) {
  const std::string who = RankName(rank);
  const auto start = std::chrono::steady_clock::now();
  ShareResult own = CountShare(options, settings, share, who, ProgressShown(rank));
  if (options.verbose) own.report = RankReportLine(who, share, SecondsSince(start));
  return ReduceShares(std::move(own), MPI_COMM_WORLD);
}

// Rank 0's side of a round of shares.
ShareResult LeadShares(const CommandLineOptions& options, const CountingSettings& settings,
                       const std::vector<Share>& shares) {
  BroadcastPlan(Plan::Shares);
  std::string bytes = EncodeShares(shares);
  BroadcastBytes(bytes, 0, MPI_COMM_WORLD);
  return CountAndMerge(0, options, settings, shares[0]);
}

// Rank 0's side of a large file's round: it counts the file with the other ranks' help.
ShareResult LeadLargeFile(const CommandLineOptions& options, const CountingSettings& settings,
                          const std::string& file) {
  BroadcastPlan(Plan::Parts);
  RankHelpers helpers(MPI_COMM_WORLD);
  const std::string who = RankName(0);
  const auto start = std::chrono::steady_clock::now();
  ShareResult result = CountShare(options, settings, {file}, who, ProgressShown(0), &helpers);
  helpers.Release();
  if (options.verbose) result.report = RankReportLine(who + " and its helpers", {file},
                                                      SecondsSince(start));
  result.bytesSent = helpers.BytesReceived();
  result.messagesSent = helpers.PartsReceived();
  return result;
}

// Where the corpus run would read its text files: counts them round after round, tells the
// messages gathered, in input order, and hands over the merged counts, or throws the failure.
// all keeps the figures for --verbose.
TextFileCounts CountInRounds(const CommandLineOptions& options, const CountingSettings& settings,
                             const std::vector<std::string>& files, int ranks, ShareResult& all) {
  std::vector<int64_t> sizes;
  for (const std::string& file : files) sizes.push_back(std::max<int64_t>(FileSize(file), 0));
  const std::vector<Round> rounds = PlanRounds(files, sizes, ranks, kDefaultPieceBytes);
  for (size_t i = 0; i < rounds.size() && all.failure.empty(); ++i) {
    ShareResult result = rounds[i].largeFile.empty()
                             ? LeadShares(options, settings, rounds[i].shares)
                             : LeadLargeFile(options, settings, rounds[i].largeFile);
    if (i == 0) {
      all = std::move(result);
    } else {
      all.Append(std::move(result));
    }
  }
  std::cerr << all.messages;
  if (!all.failure.empty()) throw RunError(kErrInternal, all.failure);
  return {std::move(all.counts), std::move(all.skipped)};
}

int LeadCorpus(const CommandLineOptions& options, CountingSettings& settings, int ranks) {
  const CountingSettings asGiven = settings;  // every round counts under the command line's
  ShareResult all;
  const int exitStatus = RunCommandLine(options, settings, [&](EngineContext&, CorpusRun& run) {
    run.TakeTextFileCountsFrom([&](EngineContext&, const std::vector<std::string>& files) {
      return CountInRounds(options, asGiven, files, ranks, all);
    });
  });
  if (options.verbose) std::cerr << all.report << MergeReport(all);
  return exitStatus;
}

// A run of one input (a file, or standard input): a large file is counted in one round of parts.
int LeadOneInput(const CommandLineOptions& options, CountingSettings& settings) {
  BroadcastPlan(Plan::Parts);
  RankHelpers helpers(MPI_COMM_WORLD);
  const int exitStatus =
      RunCommandLine(options, settings,
                     [&helpers](EngineContext& ctx, CorpusRun&) { ctx.partHelpers = &helpers; });
  helpers.Release();
  if (options.verbose) std::cerr << PartsReport(helpers.PartsReceived(), helpers.BytesReceived());
  return exitStatus;
}

int Lead(int argc, char** argv, int ranks) {
  int exitStatus = 0;
  std::string error;
  const auto options = ParseCommandLine(argc, argv, exitStatus);
  auto settings =
      options ? SettingsFromCommandLine(*options, error, exitStatus) : std::nullopt;
  if (settings) {
    exitStatus = WantsCorpusRun(*options) ? LeadCorpus(*options, *settings, ranks)
                                          : LeadOneInput(*options, *settings);
  } else if (!error.empty()) {
    std::cerr << error << '\n';
  }
  BroadcastPlan(Plan::End);
  return exitStatus;
}

// A rank other than 0 reads the command line itself, when its first share comes (never for
// --help or a refused command line, which rank 0 answers alone).
class FollowerCommandLine {
 public:
  FollowerCommandLine(int argc, char** argv) : argc_(argc), argv_(argv) {}

  // The settings, or nullopt with the error in Error().
  const std::optional<CountingSettings>& Settings() {
    if (!read_) {
      read_ = true;
      int exitStatus = 0;
      options_ = ParseCommandLine(argc_, argv_, exitStatus);
      if (options_) settings_ = SettingsFromCommandLine(*options_, error_, exitStatus);
    }
    return settings_;
  }
  const CommandLineOptions& Options() const { return *options_; }
  const std::string& Error() const { return error_; }

 private:
  int argc_;
  char** argv_;
  bool read_ = false;
  std::optional<CommandLineOptions> options_;
  std::optional<CountingSettings> settings_;
  std::string error_;
};

// A rank other than 0 in a round of shares: counts the share rank 0 gives it and hands the result
// on; rank 0 tells what happened.
void FollowShares(FollowerCommandLine& commandLine, int rank) {
  std::string bytes;
  BroadcastBytes(bytes, 0, MPI_COMM_WORLD);
  const Share share = DecodeShare(bytes, rank);
  if (commandLine.Settings()) {
    CountAndMerge(rank, commandLine.Options(), *commandLine.Settings(), share);
    return;
  }
  ShareResult refused;
  refused.messages = commandLine.Error().empty() ? "" : commandLine.Error() + '\n';
  Fail(refused, "The command line was refused on " + RankName(rank) + ".");
  ReduceShares(std::move(refused), MPI_COMM_WORLD);
}

int Follow(int argc, char** argv, int rank) {
  FollowerCommandLine commandLine(argc, argv);
  while (true) {
    switch (BroadcastPlan(Plan::End)) {  // the plan is rank 0's
      case Plan::End:
        return 0;
      case Plan::Shares:
        FollowShares(commandLine, rank);
        break;
      case Plan::Parts:
        ServeParts(MPI_COMM_WORLD);
        break;
    }
  }
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
