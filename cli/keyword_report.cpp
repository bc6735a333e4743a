#include "cli/keyword_report.h"

#include <algorithm>
#include <iostream>

#include "analysis/keyness.h"
#include "analysis/keywords_csv.h"
#include "analysis/reference_count.h"
#include "cli/console_host.h"

namespace wordtally {
namespace {

KeywordCutoff CutoffOf(const CommandLineOptions& options) {
  const double value = std::stod(options.keywordCutoff);
  const auto level = std::ranges::find_if(
      kSignificanceLevels, [value](const SignificanceLevel& l) { return l.criticalValue == value; });
  return {*level, options.bonferroni};
}

}  // namespace

bool WriteKeywordReport(const CommandLineOptions& options, EngineContext& ctx) {
  std::string error;
  const std::vector<WordFrequency> reference =
      CountReference(options.reference, ctx.settings, ctx.commonWords, error);
  if (reference.empty()) {
    std::cerr << ToTerminalText(error) << '\n';
    return false;
  }
  const std::vector<Keyword> keywords =
      CompareCounts(IncludedWords(ctx.store.WordList(), ctx.run.stats), reference,
                    CutoffOf(options));
  if (WriteKeywordsCsv(options.keywords, keywords, error)) return true;
  std::cerr << error << '\n';
  return false;
}

}  // namespace wordtally
