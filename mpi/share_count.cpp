#include "mpi/share_count.h"

#include <exception>
#include <sstream>

#include "cli/command_run.h"
#include "cli/console_host.h"
#include "corpus/corpus_run.h"
#include "engine/engine_context.h"
#include "engine/run_driver.h"

namespace wordtally {
namespace {

// Counts share into result; false when the run was refused or failed (its messages tell why).
bool CountInto(ShareResult& result, const CommandLineOptions& options, CountingSettings& settings,
               const Share& share, bool showProgress, PartHelpers* helpers) {
  std::ostringstream messages;
  ConsoleHost host(EncodingOf(options), options.verbose, showProgress, messages);
  EngineContext ctx(host, settings);
  ctx.skipLineEndingChecks = true;
  ctx.threads = options.threads;
  ctx.partHelpers = helpers;
  CorpusRun run(share);
  run.Attach(ctx);
  // DoIt checks, loads the common words and counts as for wordtally; returning false after the
  // count leaves out the listing.
  bool counted = false;
  ctx.countCorpus = [&counted, count = std::move(ctx.countCorpus)](EngineContext& c) {
    counted = count(c);
    return false;
  };
  txbWordsToIgnore_LostFocus(settings, host);
  DoIt(ctx);
  host.EndProgressLine();
  result.messages = messages.str();
  if (!counted || host.ErrorReports() > 0) return false;
  result.counts = run.Counts();
  result.skipped = run.Skipped();
  return true;
}

}  // namespace

ShareResult CountShare(const CommandLineOptions& options, CountingSettings settings,
                       const Share& share, const std::string& who, bool showProgress,
                       PartHelpers* helpers) {
  ShareResult result;
  // Only rank 0 writes the output file, after the listing of the whole corpus.
  settings.txbFile[1].clear();
  try {
    if (!CountInto(result, options, settings, share, showProgress, helpers)) {
      Fail(result, "The count of " + who + " failed.");
    }
  } catch (const std::exception& e) {
    Fail(result, "The count of " + who + " failed: " + e.what());
  }
  return result;
}

}  // namespace wordtally
