#include "cli/corpus_outputs.h"

#include <iostream>

#include "corpus/corpus_table.h"
#include "corpus/count_file.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

bool IsAnInput(const std::string& path, const std::vector<std::string>& inputs) {
  for (const std::string& input : inputs) {
    if (SameFile(path, input)) return true;
  }
  return false;
}

}  // namespace

bool CorpusOutputsSpareInputs(const CommandLineOptions& options, std::string& error) {
  if (options.corpusTable.empty() && options.saveCounts.empty()) return true;
  const std::vector<std::string> inputs = CorpusFilePaths(options.inputs);
  if (!options.corpusTable.empty() && IsAnInput(options.corpusTable, inputs)) {
    error = "The corpus table cannot be one of the input files: " + options.corpusTable;
  } else if (!options.saveCounts.empty() && IsAnInput(options.saveCounts, inputs)) {
    error = "The count file to save cannot be one of the input files: " + options.saveCounts;
  }
  return error.empty();
}

bool WriteCorpusOutputs(const CommandLineOptions& options, EngineContext& ctx,
                        const CorpusRun& run) {
  std::string error;
  bool written = true;
  if (!options.corpusTable.empty() &&
      !WriteCorpusTable(options.corpusTable, ctx.store.WordList(), ctx.run.stats,
                        ctx.settings.cboWordOrder, run.Counts(), error)) {
    std::cerr << error << '\n';
    written = false;
  }
  if (!options.saveCounts.empty() && !WriteCountFile(options.saveCounts, run.Counts(), error)) {
    std::cerr << error << '\n';
    written = false;
  }
  return written;
}

}  // namespace wordtally
