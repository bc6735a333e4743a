#include "analysis/word_frequencies.h"

namespace wordtally {

// One pass in store order, placing each included word at its rank (FreqOrder): reading the
// records in order is far faster than following the chain across them.
std::vector<int32_t> IndexesByRank(std::span<const WordListEntry> WordList,
                                   const ListStatistics& stats) {
  const int32_t n = stats.lngFirstFreq == 0 ? 0 : stats.lngNumWordsIncluded;
  std::vector<int32_t> indexes(static_cast<size_t>(n));
  for (size_t i = 1; i < WordList.size(); ++i) {
    const WordListEntry& entry = WordList[i];
    if (entry.Included && entry.FreqOrder >= 1 && entry.FreqOrder <= n) {
      indexes[static_cast<size_t>(entry.FreqOrder - 1)] = static_cast<int32_t>(i);
    }
  }
  return indexes;
}

std::vector<WordFrequency> IncludedWords(std::span<const WordListEntry> WordList,
                                         const ListStatistics& stats) {
  std::vector<WordFrequency> words;
  for (const int32_t index : IndexesByRank(WordList, stats)) {
    const WordListEntry& entry = WordList[static_cast<size_t>(index)];
    words.push_back({AnsiString(entry.Word), entry.Frequency});
  }
  return words;
}

}  // namespace wordtally
