#include "analysis/word_frequencies.h"

namespace wordtally {

std::vector<int32_t> IndexesByRank(std::span<const WordListEntry> WordList,
                                   const ListStatistics& stats) {
  std::vector<int32_t> indexes;
  indexes.reserve(static_cast<size_t>(stats.lngNumWordsIncluded));
  int32_t index = stats.lngFirstFreq;
  for (int32_t n = 0; n < stats.lngNumWordsIncluded && index != 0; ++n) {
    indexes.push_back(index);
    index = WordList[static_cast<size_t>(index)].NextByFreq;
  }
  return indexes;
}

std::vector<WordFrequency> IncludedWords(std::span<const WordListEntry> WordList,
                                         const ListStatistics& stats) {
  std::vector<WordFrequency> words;
  for (const int32_t index : IndexesByRank(WordList, stats)) {
    const WordListEntry& entry = WordList[static_cast<size_t>(index)];
    words.push_back({entry.Word, entry.Frequency});
  }
  return words;
}

}  // namespace wordtally
