#include "ui/corpus_session.h"

#include "corpus/corpus_table.h"
#include "corpus/count_file.h"
#include "engine/run_driver.h"

namespace wordtally::ui {

void CorpusSession::Run(EngineContext& ctx, std::vector<std::string> inputs) {
  Forget(ctx);
  run_ = std::make_unique<CorpusRun>(std::move(inputs));
  wordOrder_ = ctx.settings.cboWordOrder;
  run_->Attach(ctx);
  DoIt(ctx);
}

void CorpusSession::Forget(EngineContext& ctx) {
  if (run_) run_->Detach(ctx);
  run_.reset();
}

bool CorpusSession::SaveTable(const EngineContext& ctx, const std::string& path,
                              std::string& error) const {
  return WriteCorpusTable(path, ctx.store.WordList(), ctx.run.stats, wordOrder_, run_->Counts(),
                          error);
}

bool CorpusSession::SaveCounts(const std::string& path, std::string& error) const {
  return WriteCountFile(path, run_->Counts(), error);
}

}  // namespace wordtally::ui
