#pragma once
// The per-file columns of the results table after a corpus run: one column per counted file,
// named by its path below the folder the files have in common.
#include "corpus/corpus_counts.h"
#include "ui/results_source.h"

namespace wordtally::ui {

// counts must outlive the columns (the corpus run of the results on show).
PerFileCounts PerFileCountsOf(const CorpusCounts& counts);

}  // namespace wordtally::ui
