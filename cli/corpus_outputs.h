#pragma once
// The command line's corpus outputs: the corpus table and the count file, written after the
// listing, and the check that neither would overwrite an input.
#include <string>

#include "cli/command_line.h"
#include "corpus/corpus_run.h"
#include "engine/engine_context.h"

namespace wordtally {

// False, with error set, when the corpus table or the count file is one of the input files.
bool CorpusOutputsSpareInputs(const CommandLineOptions& options, std::string& error);

// Writes the corpus table and the count file that options name; false, with each failure
// printed to standard error, when one could not be written.
bool WriteCorpusOutputs(const CommandLineOptions& options, EngineContext& ctx,
                        const CorpusRun& run);

}  // namespace wordtally
