#pragma once
// What the main window shows about a listing besides the lines: the statistics labels, and the
// text that stands in the textbox when there is nothing to list.
#include <cstdint>

#include "results/list_statistics.h"
#include "support/ansi_text.h"
#include "support/host.h"

namespace wordtally {

// Sets each statistics label to its caption, one blank and the number with digit grouping, for
// example "Number of words in this list: 1,234". The label of the instances in the list is shown
// only when there are any.
void ShowListStatistics(Host& host, const ListStatistics& stats, int32_t lngTotalNumOccurrences,
                        int32_t lngNumWordsIgnored, bool blnIgnoringCommonWords);

// Empties every statistics label, so that a new run shows nothing of the last one's listing.
void ClearListStatistics(Host& host);

// "No words satisfying the conditions were found." for an empty store; otherwise
// "No words with more than 2 letters occur at least " and "once.", "twice." or "N times.".
AnsiString NothingToListText(int32_t lngNumWords, bool blnIgnoreInfrequentWords,
                             int32_t intThresholdFrequency);

}  // namespace wordtally
