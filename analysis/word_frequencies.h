#pragma once
// A finished count as plain word/frequency pairs: what the analysis functions compare, whichever
// run or file the counts came from.
#include <cstdint>
#include <span>
#include <vector>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "support/ansi_text.h"

namespace wordtally {

struct WordFrequency {
  AnsiString word;
  int64_t frequency = 0;
};

// The store indexes of the included words by rank (falling frequency), as the ranking numbered
// them in FreqOrder. WordList and stats as the listing left them.
std::vector<int32_t> IndexesByRank(std::span<const WordListEntry> WordList,
                                   const ListStatistics& stats);

// The included words of a listed run with their frequencies, by rank.
std::vector<WordFrequency> IncludedWords(std::span<const WordListEntry> WordList,
                                         const ListStatistics& stats);

}  // namespace wordtally
