#pragma once
// The window's last corpus run: counted through the engine with a CorpusRun attached, and kept
// so that its corpus table and counts can be saved until another run replaces the word store.
// Detaching a corpus run takes its caption off the statistics, so it is detached only when the
// next run starts.
#include <memory>
#include <string>
#include <vector>

#include "corpus/corpus_run.h"
#include "engine/engine_context.h"

namespace wordtally::ui {

class CorpusSession {
 public:
  // One run over inputs (files, folders, count files), as the count button starts it. The run
  // stays attached, and its files-counted caption on show, until the next run.
  void Run(EngineContext& ctx, std::vector<std::string> inputs);
  // Before another kind of run: the context counts its one source again, and nothing of the
  // corpus is left to show or save.
  void Forget(EngineContext& ctx);
  // The last run was a corpus run that got its words.
  bool HasResults(const EngineContext& ctx) const { return run_ && ctx.run.blnWordsGot; }
  // The counts of that run, or nullptr.
  const CorpusCounts* Counts(const EngineContext& ctx) const {
    return HasResults(ctx) ? &run_->Counts() : nullptr;
  }

  // False with error set when the file cannot be written.
  bool SaveTable(const EngineContext& ctx, const std::string& path, std::string& error) const;
  bool SaveCounts(const std::string& path, std::string& error) const;

 private:
  std::unique_ptr<CorpusRun> run_;
  // The order of the run's listing, which the table follows whatever the box says by then.
  int wordOrder_ = 0;
};

}  // namespace wordtally::ui
