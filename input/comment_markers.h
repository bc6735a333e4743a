#pragma once
// Comment markers: the pairs of start and end markers whose enclosed text is not counted, the
// named syntaxes, and the detector and skipper that the line walk calls.
#include <array>
#include <cstdint>
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

struct CommentMarkerPairs {
  std::array<AnsiString, 2> start;
  std::array<AnsiString, 2> end;  // an empty end marker: the comment runs to the end of the line
  int count = 0;                  // pairs in force: intNumCommentMarkers
};

// The marker pairs of a named syntax: "C" and "PHP" (/* */ and //), "XML" and "HTML" (<!-- -->).
// An unknown name gives no pairs.
CommentMarkerPairs CommentSyntax(std::string_view name);

// Comment state carried from line to line: intWithinComment is -1 outside a comment, else the
// index of the pair whose end marker is awaited.
struct CommentState {
  int16_t intWithinComment = -1;
  bool startMarkerPending = false;  // the start marker at lngLP has not been stepped over yet
  // The line walked is a piece of an over-long line whose rest comes next: a comment to the end
  // of the line goes on into it.
  bool lineGoesOn = false;
};

// The detector: the index of the pair whose start marker begins at 1-based position lngLP of
// line, or -1. Sets state.startMarkerPending when it finds one.
int16_t DetectComment(const CommentMarkerPairs& markers, std::string_view line, int32_t lngLP,
                      CommentState& state);

// The skipper: moves lngLP through the comment text. When the end marker is passed, lngLP is the
// position after it and intWithinComment is -1; when the line ends first, lngLP is beyond the
// line and the state carries over to the next line (an empty end marker ends the comment there,
// unless state.lineGoesOn).
void SkipComment(const CommentMarkerPairs& markers, std::string_view line, int32_t& lngLP,
                 CommentState& state);

}  // namespace wordtally
