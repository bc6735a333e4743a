#pragma once
// The list statistics that ranking leaves for the listing.
#include <cstdint>

namespace wordtally {

struct ListStatistics {
  int32_t lngNumWordsIncluded = 0;
  int32_t lngNumWordsExcluded = 0;
  int32_t lngNumOccurrences = 0;
  int32_t lngMaxFrequency = 0;
  int16_t intMaxWordLengthFound = 0;
  int32_t lngFirstFreq = 0;
};

}  // namespace wordtally
