#include "analysis/reference_count.h"

#include "analysis/quiet_host.h"
#include "engine/run_driver.h"
#include "input/file_vetting.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

// The target's settings, reading path with no output file and no echo; UTF-8 as detected, as
// the window and the command line do for a chosen file.
CountingSettings ReferenceSettings(const CountingSettings& target, const std::string& path) {
  CountingSettings s = target;
  s.optInFile = true;
  s.txbFile[0] = path;
  s.txbFile[1].clear();
  s.chkDisableOutputToFile = 1;
  s.chkSuppressWords = 1;
  s.chkUTF8 = LowerExtension(path) != "docx" && IsDetectedAsUtf8(path, TextRulesOf(s)) ? 1 : 0;
  return s;
}

}  // namespace

std::vector<WordFrequency> CountReference(const std::vector<std::string>& paths,
                                          const CountingSettings& settings,
                                          const CommonWordsList& commonWords, std::string& error) {
  if (paths.size() != 1 || !FileExists(paths.front())) {
    error = "The reference must be one existing file.";
    return {};
  }
  QuietHost host;
  CountingSettings s = ReferenceSettings(settings, paths.front());
  EngineContext ctx(host, s);
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
