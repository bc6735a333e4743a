#pragma once
// Orders the word store after a counting run: the alphabetical sort of the records, the
// frequency threshold, the list statistics and the chain of words by falling frequency.
// WordList is the store's array as the store hands it out: element 0 unused, words 1..n.
#include <cstdint>
#include <span>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "support/host.h"

namespace wordtally {

// Sorts entries lo..hi by SortKey from the 1-based position intStartPos, in code-unit order.
// A quicksort with a copied middle pivot and two inward scans; entries with equal keys end where
// these exact steps leave them (the sort is not stable, but it is deterministic).
void QuickSortWords(std::span<WordListEntry> WordList, int32_t lo, int32_t hi,
                    int32_t intStartPos);
// QuickSortWords over the whole list (element 0 unused), from the keys' first position. It leaves
// strictly ascending keys where they are, so such a list (the common case: the store hands its
// records out in word order, and most words are their own key) is only checked, not sorted.
void SortWordList(std::span<WordListEntry> WordList);

// Sets Included on every word, then clears it on words counted fewer than intThresholdFrequency
// times when infrequent words are to be ignored.
void MarkIncludedWords(std::span<WordListEntry> WordList, bool blnIgnoreInfrequentWords,
                       int32_t intThresholdFrequency);

// Writes the five counts of the included and excluded words into stats (lngFirstFreq is left
// alone). Throws RunError 6 when a sum passes the 32- or 16-bit range of its field.
void CountIncludedWords(std::span<const WordListEntry> WordList, ListStatistics& stats);

// Numbers the included words 1, 2, 3 ... by falling frequency, equal frequencies in store order,
// into FreqOrder (the rank), chains them through NextByFreq from stats.lngFirstFreq, and appends
// " ." to the output textbox at every 1000th link, giving the event loop a turn there. O(n) but
// for the sort of the distinct frequencies.
void BuildFrequencyOrder(std::span<WordListEntry> WordList, ListStatistics& stats, Host& host);

}  // namespace wordtally
