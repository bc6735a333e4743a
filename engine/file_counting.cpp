// The file source of a counting run: a text or docx file vetted, its decoding settled and its
// lines counted. A one-file run empties the store first; a corpus run counts file after file
// into the same store.
#include "engine/file_counting.h"

#include <string>

#include "engine/engine_context.h"
#include "engine/piece_counting.h"
#include "engine/program_texts.h"
#include "engine/run_messages.h"
#include "engine/progress.h"
#include "engine/run_driver.h"
#include "engine/worker_pool.h"
#include "input/decoding.h"
#include "input/docx_reader.h"
#include "input/file_vetting.h"
#include "input/line_preparation.h"
#include "input/line_reader.h"
#include "support/file_utils.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

constexpr std::string_view kSameFile = "Output file cannot be the same as the input file.";
constexpr std::string_view kDocxOutput = "Output file cannot be a 'docx' file.";
constexpr int64_t kLargeInputBytes = 204800;
constexpr std::string_view kReadInPartTitle = "File read in part";
constexpr std::string_view kReadInPartNote = "Its words up to the failure are counted.";

// The question of a file whose encoding and the UTF-8 box disagree: the chkUTF8 value chosen, or
// nothing on Cancel. With answers, "Yes to all" / "No to all" are offered and kept per verdict.
std::optional<int> AskEncoding(EngineContext& ctx, bool fileIsUtf8, EncodingAnswers* answers) {
  std::optional<int>* kept =
      answers == nullptr ? nullptr : fileIsUtf8 ? &answers->ifSeemsUtf8 : &answers->ifSeemsNotUtf8;
  if (kept != nullptr && kept->has_value()) return *kept;
  const Answer answer =
      Ask(ctx.host, kUtf8OrAnsiTitle, fileIsUtf8 ? kSeemsUtf8Question : kSeemsNotUtf8Question,
          kept != nullptr ? MessageButtons::YesNoToAllCancel : MessageButtons::YesNoCancel);
  if (answer == Answer::Cancel) return std::nullopt;
  const int utf8 = answer == Answer::Yes || answer == Answer::YesToAll ? 1 : 0;
  if (kept != nullptr && (answer == Answer::YesToAll || answer == Answer::NoToAll)) *kept = utf8;
  return utf8;
}

// Settles the decoding with the user where the file and the UTF-8 box disagree. False: Cancel.
bool SettleEncoding(EngineContext& ctx, bool fileIsUtf8, EncodingAnswers* answers) {
  CountingSettings& s = ctx.settings;
  if (fileIsUtf8 == (s.chkUTF8 == 1)) return true;
  const std::optional<int> utf8 = AskEncoding(ctx, fileIsUtf8, answers);
  if (!utf8) {
    ctx.host.SetOutputText("");
    return false;
  }
  s.chkUTF8 = *utf8;
  ctx.host.SettingsChanged();
  return true;
}

// Reads a docx file's text; false, with the message shown, when it cannot be used.
bool ReadDocx(EngineContext& ctx, const std::string& inputFile, AnsiString& text) {
  DocxText docx = ReadDocxText(inputFile);
  switch (docx.status) {
    case DocxStatus::Ok:
      text = std::move(docx.text);
      return true;
    case DocxStatus::NotDocx:
      ShowNotDocxMessage(ctx.host, inputFile);
      return false;
    case DocxStatus::TooBig:
      Warn(ctx.host, kDocxTooBigTitle, DocxTooBigMessage(inputFile));
      return false;
    case DocxStatus::CannotOpen:
      throw RunError(docx.errorNumber, "The file cannot be opened.");
    case DocxStatus::Damaged:
      break;
  }
  Warn(ctx.host, kDamagedDocxTitle, DamagedDocxMessage(inputFile));
  return false;
}

// Vets a text file; false when it is refused (the message has been shown).
bool VetTextFile(EngineContext& ctx, const std::string& inputFile, bool& isUtf8) {
  int16_t classCode = 0;
  return CheckInputFile(ctx.host, ctx.blnMacNoticeShown, inputFile, ctx.skipLineEndingChecks,
                        isUtf8, classCode, !ctx.skipLineEndingChecks, TextRulesOf(ctx.settings),
                        ThreadsToUse(ctx.threads));
}

// The one-thread line loop and its per-line service, as the pieces of a large file use them.
const LineCounting kLineCounting{
    [](EngineContext& ctx, LineReader& reader, LinePreparer& preparer) {
      CountLines(ctx, reader, preparer);
    },
    ServeProgressAndStop};

// Counts the lines of a file that passed its checks through reader: Refused, told, when it
// cannot be opened; ReadInPart, not yet told, when reading failed after it began.
FileOutcome CountFileLines(EngineContext& ctx, LineReader& reader, const std::string& inputFile,
                           AnsiString docxText, const LineProgress& onProgress) {
  const bool isDocx = ctx.run.blnInputIsDocx;
  if (isDocx) {
    reader.OpenText(std::move(docxText));
  } else if (!reader.Open(inputFile)) {
    ReportReadFailure(ctx, reader, inputFile);
    return FileOutcome::Refused;
  }
  ctx.run.comment = CommentState{};
  LinePreparer preparer(inputFile, ctx.settings.chkUTF8 == 1, isDocx);
  SetTotalNumOccurrencesForFileProgressBar(ctx);
  const FilePiece whole{inputFile, 0, reader.Size()};
  if (isDocx || !(CountFileWithHelpers(ctx, kLineCounting, whole, reader, preparer) ||
                  CountRangeInPieces(ctx, kLineCounting, whole, reader, preparer))) {
    CountLines(ctx, reader, preparer, onProgress);
  }
  return reader.ErrorNumber() == 0 ? FileOutcome::Counted : FileOutcome::ReadInPart;
}

// The one-file run: the checks in their classic order, then an empty store and the count.
bool CountFile(EngineContext& ctx, const std::string& inputFile) {
  const bool isDocx = ctx.run.blnInputIsDocx;
  AnsiString docxText;
  if (isDocx && !ReadDocx(ctx, inputFile, docxText)) return false;
  if (!OutputFileAcceptable(ctx, inputFile, false)) return false;
  bool isUtf8 = false;
  if (!isDocx && !(VetTextFile(ctx, inputFile, isUtf8) && SettleEncoding(ctx, isUtf8, nullptr))) {
    return false;
  }
  if (!OfferOutputFileForLargeInput(ctx, FileSize(inputFile))) return false;
  if (!OutputFileAcceptable(ctx, inputFile, true)) return false;

  ResetStoreForCounting(ctx);
  ctx.host.SetOutputText(AnsiString(kProcessingInputFile));
  LineReader reader;
  const FileOutcome outcome = CountFileLines(ctx, reader, inputFile, std::move(docxText), {});
  if (outcome == FileOutcome::ReadInPart) ReportReadFailure(ctx, reader, inputFile);
  return outcome == FileOutcome::Counted;
}

}  // namespace

CountedPart CountFilePart(const EngineContext& run, const FilePiece& part,
                          const PreparerDecisions& entry) {
  return CountPartHere(run, part, entry, kLineCounting);
}

bool OutputFileAcceptable(EngineContext& ctx, const std::string& inputFile, bool checkDocx) {
  const CountingSettings& s = ctx.settings;
  if (!OutputToFileActive(s)) return true;
  if (SameFile(s.txbFile[1], inputFile)) {
    Warn(ctx.host, texts::kGenericErrorTitle, kSameFile);
    return false;
  }
  if (!OutputSparesCommonWordsFile(ctx)) return false;
  if (checkDocx && LowerExtension(s.txbFile[1]) == "docx") {
    Warn(ctx.host, texts::kGenericErrorTitle, kDocxOutput);
    return false;
  }
  return true;
}

bool OfferOutputFileForLargeInput(EngineContext& ctx, int64_t inputSize) {
  if (inputSize <= kLargeInputBytes || !ctx.settings.txbFile[1].empty()) return true;
  ctx.run.blnElapsedTimeRunning = false;
  ctx.host.SetVisible(Control::TimeElapsed, false);
  const Answer answer =
      Ask(ctx.host, "Large input file",
          "The input file is quite large.  It is advisable to specify an output file \r\n"
          "before continuing, in case the text window will not hold the result. \r\n"
          "Do you wish to specify an output file?",
          MessageButtons::YesNoCancel);
  if (answer == Answer::Cancel) return false;
  if (answer == Answer::Yes) {
    if (auto chosen = ctx.host.ChooseOutputFile()) {
      ctx.settings.txbFile[1] = *chosen;
      ctx.host.SettingsChanged();
    }
  }
  ctx.run.blnElapsedTimeRunning = true;
  ctx.host.SetVisible(Control::TimeElapsed, true);
  return true;
}

FileOutcome CountOneFile(EngineContext& ctx, const std::string& path,
                         const OneFileOptions& options) {
  ctx.run.blnInputIsDocx = LowerExtension(path) == "docx";
  AnsiString docxText;
  if (ctx.run.blnInputIsDocx) {
    if (!ReadDocx(ctx, path, docxText)) return FileOutcome::Refused;
  } else {
    bool isUtf8 = false;
    if (!VetTextFile(ctx, path, isUtf8)) return FileOutcome::Refused;
    if (!SettleEncoding(ctx, isUtf8, options.encodingAnswers)) return FileOutcome::Cancelled;
  }
  LineReader reader;
  const FileOutcome outcome =
      CountFileLines(ctx, reader, path, std::move(docxText), options.onProgress);
  if (outcome == FileOutcome::ReadInPart) {
    Warn(ctx.host, kReadInPartTitle, reader.ErrorDescription() + " when processing \r\n" + path +
                                    "\r\n" + AnsiString(kReadInPartNote));
  }
  return outcome;
}

bool DoItFromFile(EngineContext& ctx) {
  try {
    ctx.host.SetOutputText(AnsiString(kProcessingInputFile));
    const std::string& inputFile = ctx.settings.txbFile[0];
    ctx.run.blnInputIsDocx = LowerExtension(inputFile) == "docx";
    return CountFile(ctx, inputFile);
  } catch (const RunError& e) {
    ReportError(ctx, e.Number(), e.what(), texts::kErrorReportPrefix, "DoItFromFile");
  } catch (const std::bad_alloc&) {
    ReportError(ctx, kErrOutOfMemory, "Out of memory", texts::kErrorReportPrefix, "DoItFromFile");
  }
  return false;
}

}  // namespace wordtally
