#pragma once
// The text of one listing line in each of the ten display formats, plain (blanks between the
// columns) or in comma mode (",  " between them, for a spreadsheet), and the header line.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "support/ansi_text.h"

namespace wordtally {

// cboDisplayFormat, in the order of the combo box's items.
enum DisplayFormat : int {
  kRankFrequencyWord = 0,
  kRankWordFrequency = 1,
  kRankFrequency = 2,
  kRankWord = 3,
  kFrequencyRank = 4,
  kFrequencyWord = 5,
  kWordRank = 6,
  kWordFrequency = 7,
  kWordOnly = 8,
  kWordWithCommas = 9,
};
inline constexpr int kNumDisplayFormats = 10;

// The column widths and choices of one listing.
struct ListingLayout {
  int cboDisplayFormat = kRankFrequencyWord;
  bool blnCommaMode = false;
  int16_t intRankWidth = 6;
  int16_t intFreqWidth = 6;
  int16_t intWordWidth = 6;
  int16_t intMaxWordLengthFound = 0;
};

// Each width is the larger of intMinWidth and what the column must hold: the digits of
// lngNumWordsIncluded, of lngMaxFrequency, and intMaxWordLengthFound characters.
ListingLayout MakeListingLayout(const ListStatistics& stats, int16_t intMinWidth,
                                int cboDisplayFormat, bool blnCommaMode);

// Makes the lines of one listing in a buffer of its own, so that a line costs neither a new string
// nor the growth of one. Each field is appended to the line: rank and frequency right-aligned to
// their widths; the word left-aligned to its width, or, in comma mode for the formats where it is
// not the last field (1, 6 and 7), followed by ", " instead.
class ListingLineMaker {
 public:
  explicit ListingLineMaker(const ListingLayout& layout) : layout_(layout) {}

  // The line of the word at index, or the header line for index 0 (with the headings "Rank",
  // "Freq" and "Word"; for the formats ending in the word, followed by " (longest has N
  // characters)"). No line break. Valid until the next call.
  std::string_view Line(std::span<const WordListEntry> WordList, int32_t index);

 private:
  // The start of room for a line with a word of wordSize characters.
  char* RoomFor(size_t wordSize);

  ListingLayout layout_;
  std::string buffer_;
};

}  // namespace wordtally
