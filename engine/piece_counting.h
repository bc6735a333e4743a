#pragma once
// Counting a large file in pieces on worker threads, with every result exactly that of reading it
// line after line on one thread: listing, statistics, messages, echo, Stop and the settings the
// run changes.
//
// The file is cut at line starts into pieces of about ctx.pieceBytes. A bounded window of pieces
// (two per thread) is counted at a time, each into its own store, taken to begin outside every
// state that crosses lines (comments, markup, the HTML head) and with the decisions the pieces
// before it have left so far (markup kind, head skipped, UTF-8). This (main) thread takes the
// pieces in order: when a piece's assumed start state is the real one, its store is merged into
// ctx.store and freed; otherwise (or after a read error, an exception, or when a count would
// overflow) the piece is read again here with the one-thread line loop from the real state, so
// that the one-thread result, message or error follows. Only this thread talks to the host.
#include <string>

#include "engine/piece_counter.h"

namespace wordtally {

// Counts range (a whole file, or a stretch of it between line starts) in pieces when that pays
// (more than one thread, larger than one piece), reading it from preparer's state at its start.
// reader is the file's reader for the pieces read again here: its error, if any, is the run's
// read failure. Returns false, having done nothing, when the range is better read line after line.
bool CountRangeInPieces(EngineContext& ctx, const LineCounting& lines, const FilePiece& range,
                        LineReader& reader, LinePreparer& preparer);
// Counts range from preparer's state: in pieces when that pays, otherwise line after line through
// reader (opened on it here).
void CountRange(EngineContext& ctx, const LineCounting& lines, const FilePiece& range,
                LineReader& reader, LinePreparer& preparer);

// The state a later stretch of the file at path (size bytes) is taken to begin in while the text
// before it is still being read: preparer's decisions (from the start of the file, those its
// opening lines take: markup kind, HTML head, charset), outside every construct.
LinePreparer PredictedRest(const LinePreparer& preparer, const std::string& path, int64_t size);

}  // namespace wordtally
