#include "analysis/reference_count.h"

#include "analysis/quiet_host.h"
#include "corpus/corpus_run.h"
#include "engine/run_driver.h"

namespace wordtally {
namespace {

// The target's settings with no output file and no echo.
CountingSettings ReferenceSettings(const CountingSettings& target) {
  CountingSettings s = target;
  s.optInFile = true;
  s.txbFile[1].clear();
  s.chkDisableOutputToFile = 1;
  s.chkSuppressWords = 1;
  return s;
}

}  // namespace

std::vector<WordFrequency> CountReference(const std::vector<std::string>& paths,
                                          const CountingSettings& settings,
                                          const CommonWordsList& commonWords, std::string& error) {
  QuietHost host;
  CountingSettings s = ReferenceSettings(settings);
  EngineContext ctx(host, s);
  // Files, folders and count files alike: a count file made under other settings is skipped.
  CorpusRun corpus(paths);
  corpus.Attach(ctx);
  ctx.commonWords = commonWords;
  ctx.skipLineEndingChecks = true;
  ctx.onListingLine = [](std::string_view) {};  // the whole list is read from the store
  ctx.run.blnStartUpCompleted = true;
  DoIt(ctx);
  std::vector<WordFrequency> words = IncludedWords(ctx.store.WordList(), ctx.run.stats);
  if (words.empty()) {
    error = host.Warnings().empty() ? "The reference holds no words to compare."
                                    : host.Warnings().front();
  }
  return words;
}

}  // namespace wordtally
