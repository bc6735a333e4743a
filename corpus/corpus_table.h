#pragma once
// The corpus table: a CSV file (RFC 4180, UTF-8 with a byte-order mark) with the header
// Rank,Word,Frequency,Range and one column per counted file, named by its path relative to the
// folder the files have in common. Its rows are the included words in the listing's order.
#include <span>
#include <string>

#include "corpus/corpus_counts.h"
#include "engine/word_store.h"
#include "results/list_statistics.h"

namespace wordtally {

// WordList and stats as the listing left them (element 0 unused); wordOrder is cboWordOrder.
// False with error set when the file cannot be written.
bool WriteCorpusTable(const std::string& path, std::span<const WordListEntry> WordList,
                      const ListStatistics& stats, int wordOrder, const CorpusCounts& counts,
                      std::string& error);

}  // namespace wordtally
