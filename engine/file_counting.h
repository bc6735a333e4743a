#pragma once
// Counting one input file (text or docx) into the store as it stands: what a one-file run does
// after its checks, and what a corpus run does for each of its files.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/line_counting.h"
#include "engine/part_counting.h"

namespace wordtally {

struct EngineContext;

// The output box's text while the files are read, until the first word replaces it.
inline constexpr std::string_view kProcessingInputFile = "Now processing input file ...";

// The "Yes to all" / "No to all" answers to "UTF-8 or ANSI file?", one per verdict: the chkUTF8
// value to use for every later file that seems UTF-8, or that seems not to be.
struct EncodingAnswers {
  std::optional<int> ifSeemsUtf8;
  std::optional<int> ifSeemsNotUtf8;
};

struct OneFileOptions {
  // When set, the encoding question offers "Yes to all" / "No to all" and keeps such answers.
  EncodingAnswers* encodingAnswers = nullptr;
  LineProgress onProgress;
};

enum class FileOutcome {
  Counted,
  ReadInPart,  // reading failed after it began: the words before the failure are counted; told
  Refused,     // vetting refused it, it could not be opened, or it is a damaged docx: told already
  Cancelled,   // the user cancelled a question: the run ends here
};

// Vets path, settles its decoding and counts its lines into ctx.store, with its own markup kind
// and comment state and without emptying the store. A file whose reading fails partway keeps
// the words read before the failure, so that the store and the file's own counts agree.
FileOutcome CountOneFile(EngineContext& ctx, const std::string& path,
                         const OneFileOptions& options);

// A helper process's side of counting a large text file with others: part of it, from entry,
// read as a file's lines are (see part_counting.h).
CountedPart CountFilePart(const EngineContext& run, const FilePiece& part,
                          const PreparerDecisions& entry);

// Refuses, with a message, an output file that is inputFile or the common-words file, and with
// checkDocx one that is a docx file.
bool OutputFileAcceptable(EngineContext& ctx, const std::string& inputFile, bool checkDocx);

// With inputSize above the large-input limit and no output file, offers to choose one; the clock
// does not count the time the question waits. False: Cancel.
bool OfferOutputFileForLargeInput(EngineContext& ctx, int64_t inputSize);

}  // namespace wordtally
