#pragma once
// Counting one large file with the help of other processes (the ranks of an MPI job), with every
// result exactly that of reading it line after line in one process.
//
// The file is cut at line starts into one part for this process and one for each helper. The
// helpers count theirs, each taken to begin in the state predicted from the file's first line
// (outside every comment and construct); meanwhile this process counts the first part. It then
// takes the helpers' parts in order, as it takes the pieces of its own threads: a part whose
// assumed start state is the real one is merged; any other part (or one a helper could not read
// to its end) is read again here from the real state.
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/piece_counter.h"
#include "engine/piece_plan.h"
#include "input/comment_markers.h"
#include "input/line_preparation.h"

namespace wordtally {

// A part as a helper hands it back.
struct CountedPart {
  PreparerDecisions entry;  // the state it was taken to begin in
  // The state its last line left; none when that is inside markup or the HTML head, which the
  // decisions cannot tell: the part is then read again.
  std::optional<PreparerDecisions> exit;
  CommentState exitComment;
  std::vector<std::pair<std::string, int32_t>> words;  // with their counts, in order of arrival
  int32_t occurrences = 0;   // lngTotalNumOccurrences
  int32_t wordsIgnored = 0;  // lngNumWordsIgnored
  int32_t utf8SwitchAt = -1;  // distinct words when its lines switched UTF-8 on; -1: no switch
  bool complete = false;      // read to its end without error
};

// The helping processes, as the counting one sees them.
class PartHelpers {
 public:
  virtual ~PartHelpers() = default;
  // How many processes help: each takes one part.
  virtual int Count() const = 0;
  // Hands parts[i] to helper i, to be counted from entry under run's settings and common words.
  virtual void Hand(const EngineContext& run, const std::vector<FilePiece>& parts,
                    const PreparerDecisions& entry) = 0;
  // Helper i's counted part, waiting for it. Every part handed out is taken, in order.
  virtual CountedPart Take(int helper) = 0;
};

// Counts the file whole (begin 0, end its size) with ctx.partHelpers from preparer's state, and
// returns true; returns false, having done nothing, without helpers or when the file is not larger
// than one piece. reader is the file's reader: its error, if any, is the run's read failure.
bool CountFileWithHelpers(EngineContext& ctx, const LineCounting& lines, const FilePiece& whole,
                          LineReader& reader, LinePreparer& preparer);

// A helper's side: counts part from entry (comments taken as closed) silently, under run's
// settings and common words and on run.threads threads.
CountedPart CountPartHere(const EngineContext& run, const FilePiece& part,
                          const PreparerDecisions& entry, const LineCounting& lines);

}  // namespace wordtally
