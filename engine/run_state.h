#pragma once
// The run record: the variables one counting run shares between its procedures.
#include <cstdint>

#include "input/comment_markers.h"
#include "results/list_statistics.h"
#include "support/ansi_text.h"

namespace wordtally {

struct RunState {
  // Word extraction.
  AnsiString strLine;            // the current line, with its trailing blank
  int32_t lngLP = 1;             // 1-based position in strLine
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

  // Listing.
  int16_t intMinWidth = 6;
  int16_t intThresholdFrequency = 2;
  ListStatistics stats;
};

}  // namespace wordtally
