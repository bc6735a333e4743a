#pragma once
// The line walk shared by every source: lines through their preparation into the store, with the
// progress bar and the Stop request served after each line.
#include <cstdint>
#include <functional>
#include <string>

namespace wordtally {

struct EngineContext;
class LineReader;
class LinePreparer;

// Called after each line with the bytes of the reader consumed so far.
using LineProgress = std::function<void(int64_t bytesConsumed)>;

// After each line: the progress bar (done bytes of size read), and the Stop request (asked about
// once 2000 words are in). Returns false when reading is to end.
bool ServeProgressAndStop(EngineContext& ctx, int64_t done, int64_t size);

// Reads every line of reader through the preparation (decoding, HTML head, markup) into the
// store. Returns at the end of the input or after a confirmed stop. The caller sets the progress
// bar's start (SetTotalNumOccurrencesForFileProgressBar) once per run.
void CountLines(EngineContext& ctx, LineReader& reader, LinePreparer& preparer,
                const LineProgress& onProgress = {});

// Empties the store and makes the count button a Stop button, before the first file or text.
void ResetStoreForCounting(EngineContext& ctx);

// Shows the reader's failure in the textbox and in a message naming name.
void ReportReadFailure(EngineContext& ctx, const LineReader& reader, const std::string& name);

}  // namespace wordtally
