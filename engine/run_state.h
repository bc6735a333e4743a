#pragma once
// The run record: the variables one counting run shares between its procedures.
#include <cstdint>

#include "input/comment_markers.h"
#include "results/list_statistics.h"
#include "support/ansi_text.h"

namespace wordtally {

// The bytes done over which the progress bar is known to stay at position, for an input of size
// bytes: the per-line service works the bar's position out (a division) only outside them.
struct ProgressBarStretch {
  int64_t size = -1;
  int64_t from = 0;
  int64_t until = 0;  // the first byte count outside
  int16_t position = -1;

  bool Holds(int64_t done, int64_t inputSize, int16_t barPosition) const {
    return inputSize == size && barPosition == position && done >= from && done < until;
  }
};

struct RunState {
  // Word extraction.
  AnsiString strLine;            // the current line with its trailing blank, when it is cleaned
  int32_t lngLP = 1;             // 1-based position in the line walked
  CommentState comment;          // comment.intWithinComment carries across lines
  int intNumCommentMarkers = 0;
  bool blnCommentsPossible = false;
  bool blnCharacterEntitiesPossible = false;
  bool blnReadingWords = false;  // a common-words file is being read
  bool blnInputIsDocx = false;

  // Totals.
  int32_t lngTotalNumOccurrences = 0;  // every accepted word, excluded ones included
  int32_t lngNumWordsIgnored = 0;      // instances excluded by the 7-bit test or the words to ignore

  // Run control.
  bool blnStop = false;
  bool blnStartUpCompleted = false;
  bool blnWordsGot = false;
  bool blnStoppedAndListed = false;
  bool blnSuppressionNoticeShown = false;
  bool blnOutputFileMissed = false;  // the listing did not reach the named output file in full

  // Clock.
  bool blnElapsedTimeRunning = false;
  int32_t lngSecondsElapsed = 0;
  int16_t intProgressBarPosition = 0;  // cells filled at the last progress-bar update
  ProgressBarStretch progressBarStretch;

  // Listing.
  int16_t intMinWidth = 6;
  int16_t intThresholdFrequency = 2;
  ListStatistics stats;
};

}  // namespace wordtally
