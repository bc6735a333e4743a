// The two sources of a counting run: an input file (text or docx) and the clipboard text. Both
// hand their lines, one at a time, through the same per-line preparation to the line walk.
#include <string>

#include "engine/clipboard_input.h"
#include "engine/engine_context.h"
#include "engine/piece_counting.h"
#include "engine/program_texts.h"
#include "engine/progress.h"
#include "engine/run_driver.h"
#include "engine/word_extraction.h"
#include "input/decoding.h"
#include "input/docx_reader.h"
#include "input/file_vetting.h"
#include "input/line_preparation.h"
#include "input/line_reader.h"
#include "input/markup.h"
#include "support/file_utils.h"
#include "support/number_format.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

constexpr std::string_view kProcessingInputFile = "Now processing input file ...";
constexpr std::string_view kSameFile = "Output file cannot be the same as the input file.";
constexpr std::string_view kDocxOutput = "Output file cannot be a 'docx' file.";
constexpr int64_t kLargeInputBytes = 204800;
constexpr int32_t kStopWithoutAskingBelow = 2000;
constexpr int32_t kCheckedClipboardChars = 3000;
constexpr std::string_view kStandardInputName = "(standard input)";

// The refusals of a file run are warnings.
void Warn(EngineContext& ctx, std::string_view title, std::string_view text) {
  Tell(ctx.host, title, text, MessageIcon::Exclamation);
}

Answer Ask(EngineContext& ctx, std::string_view title, std::string_view text,
           MessageButtons buttons) {
  return ctx.host.ShowMessage(
      {AnsiString(title), AnsiString(text), MessageIcon::None, buttons, Answer::Yes});
}

// After each line: the progress bar (done bytes of size read), and the Stop request (asked about
// once 2000 words are in). Returns false when reading is to end.
bool ServeProgressAndStop(EngineContext& ctx, int64_t done, int64_t size) {
  const double total = static_cast<double>(size);
  if (total > 0) {
    const auto p = static_cast<int16_t>(kProgressBarWidth * done / total + 0.5);
    if (p != ctx.run.intProgressBarPosition) {
      UpdateProgressBar(ctx, static_cast<double>(done), total, 1);
    }
  }
  ctx.GiveEventLoopATurn();
  if (!ctx.run.blnStop) return true;
  const int32_t numWords = ctx.store.lngNumWords();
  if (numWords < kStopWithoutAskingBelow) return false;
  // The number keeps the blank that the number conversion puts before it.
  const AnsiString question = NumberText(numWords) +
                              " different words have been found.\r\nDo you really wish to stop?";
  if (Ask(ctx, texts::kStopQuestionTitle, question, MessageButtons::YesNo) == Answer::Yes) {
    return false;
  }
  ctx.run.blnStop = false;
  return true;
}

// Reads every line of reader through the preparation (decoding, HTML head, markup) into the
// store. Returns at the end of the input or after a confirmed stop.
void CountLines(EngineContext& ctx, LineReader& reader, LinePreparer& preparer) {
  LineWalker walker(ctx);
  AnsiString& line = ctx.run.strLine;
  while (preparer.NextLine(reader, line)) {
    ctx.run.blnCharacterEntitiesPossible = preparer.Kind() != MarkupKind::None;
    if (preparer.IsUtf8() && ctx.settings.chkUTF8 != 1) {  // a charset in the HTML head
      ctx.settings.chkUTF8 = 1;
      ctx.host.SettingsChanged();
    }
    ctx.run.comment.lineGoesOn = reader.LineGoesOn();
    if (!line.empty()) {
      line += ' ';
      walker.WalkLine();
    }
    if (!ServeProgressAndStop(ctx, reader.BytesConsumed(), reader.Size())) return;
  }
}

// Refuses an output file that is the input file or the common-words file, and with checkDocx
// one that is a docx file.
bool OutputFileAcceptable(EngineContext& ctx, const std::string& inputFile, bool checkDocx) {
  const CountingSettings& s = ctx.settings;
  if (!OutputToFileActive(s)) return true;
  if (SameFile(s.txbFile[1], inputFile)) {
    Warn(ctx, texts::kGenericErrorTitle, kSameFile);
    return false;
  }
  if (!OutputSparesCommonWordsFile(ctx)) return false;
  if (checkDocx && LowerExtension(s.txbFile[1]) == "docx") {
    Warn(ctx, texts::kGenericErrorTitle, kDocxOutput);
    return false;
  }
  return true;
}

// Settles the decoding with the user where the file and the UTF-8 box disagree. False: Cancel.
bool SettleEncoding(EngineContext& ctx, bool fileIsUtf8) {
  CountingSettings& s = ctx.settings;
  const bool boxSaysUtf8 = s.chkUTF8 == 1;
  if (fileIsUtf8 == boxSaysUtf8) return true;
  const Answer answer = Ask(ctx, kUtf8OrAnsiTitle,
                            fileIsUtf8 ? kSeemsUtf8Question : kSeemsNotUtf8Question,
                            MessageButtons::YesNoCancel);
  if (answer == Answer::Cancel) {
    ctx.host.SetOutputText("");
    return false;
  }
  s.chkUTF8 = answer == Answer::Yes ? 1 : 0;
  ctx.host.SettingsChanged();
  return true;
}

// With a large input and no output file, offers to choose one; the clock does not count the
// time the question waits. False: Cancel.
bool OfferOutputFileForLargeInput(EngineContext& ctx, int64_t inputSize) {
  if (inputSize <= kLargeInputBytes || !ctx.settings.txbFile[1].empty()) return true;
  ctx.run.blnElapsedTimeRunning = false;
  ctx.host.SetVisible(Control::TimeElapsed, false);
  const Answer answer =
      Ask(ctx, "Large input file",
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
      Warn(ctx, kDocxTooBigTitle, DocxTooBigMessage(inputFile));
      return false;
    case DocxStatus::CannotOpen:
      throw RunError(docx.errorNumber, "The file cannot be opened.");
    case DocxStatus::Damaged:
      break;
  }
  Warn(ctx, kDamagedDocxTitle, DamagedDocxMessage(inputFile));
  return false;
}

// Vets a text file and settles its decoding; false when the run is not to go on.
bool VetTextFile(EngineContext& ctx, const std::string& inputFile) {
  bool isUtf8 = false;
  int16_t classCode = 0;
  if (!CheckInputFile(ctx.host, ctx.blnMacNoticeShown, inputFile, ctx.skipLineEndingChecks,
                      isUtf8, classCode, !ctx.skipLineEndingChecks, TextRulesOf(ctx.settings))) {
    return false;
  }
  return SettleEncoding(ctx, isUtf8);
}

void ResetStoreForCounting(EngineContext& ctx) {
  ctx.store.Reset();
  ctx.run.blnStop = false;
  ctx.host.SetCaption(Control::CountButton, AnsiString(texts::kStop));
}

void ReportReadFailure(EngineContext& ctx, const LineReader& reader, const std::string& name) {
  ctx.host.SetOutputText("Processing input file ...\r\n\r\n" + reader.ErrorDescription());
  ShowReadFailure(ctx.host, reader, name);
}

bool CountFile(EngineContext& ctx, const std::string& inputFile) {
  const bool isDocx = ctx.run.blnInputIsDocx;
  AnsiString docxText;
  if (isDocx && !ReadDocx(ctx, inputFile, docxText)) return false;
  if (!OutputFileAcceptable(ctx, inputFile, false)) return false;
  if (!isDocx && !VetTextFile(ctx, inputFile)) return false;
  if (!OfferOutputFileForLargeInput(ctx, FileSize(inputFile))) return false;
  if (!OutputFileAcceptable(ctx, inputFile, true)) return false;

  ResetStoreForCounting(ctx);
  ctx.host.SetOutputText(AnsiString(kProcessingInputFile));
  LineReader reader;
  if (isDocx) {
    reader.OpenText(std::move(docxText));
  } else if (!reader.Open(inputFile)) {
    ReportReadFailure(ctx, reader, inputFile);
    return false;
  }
  LinePreparer preparer(inputFile, ctx.settings.chkUTF8 == 1, isDocx);
  SetTotalNumOccurrencesForFileProgressBar(ctx);
  const LineCounting lines{CountLines, ServeProgressAndStop};
  if (isDocx || !CountFileInPieces(ctx, lines, inputFile, reader, preparer)) {
    CountLines(ctx, reader, preparer);
  }
  if (reader.ErrorNumber() != 0) {
    ReportReadFailure(ctx, reader, inputFile);
    return false;
  }
  return true;
}

// The reader of the clipboard text, or nullptr when the text does not pass the plain-text test
// of its first kCheckedClipboardChars characters. The host's clipboard text is read whole into
// textReader; the command line's standard input streams through its own reader, and its first
// characters are tested before they are read (no character takes more than four bytes).
LineReader* ClipboardReader(EngineContext& ctx, LineReader& textReader) {
  if (ctx.clipboardStream != nullptr) {
    const std::string_view start = ctx.clipboardStream->Peek(4 * kCheckedClipboardChars);
    const bool plain = IsPlainText(AnsiToUtf16(Utf8ToAnsiText(start)), kCheckedClipboardChars,
                                   true, TextRulesOf(ctx.settings));
    return plain ? ctx.clipboardStream : nullptr;
  }
  const std::u16string text = ctx.host.ClipboardText();
  if (!IsPlainText(text, kCheckedClipboardChars, true, TextRulesOf(ctx.settings))) return nullptr;
  textReader.OpenText(Utf16ToAnsi(text));
  return &textReader;
}

}  // namespace

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

bool DoItFromClipboard(EngineContext& ctx) {
  try {
    LineReader textReader;
    LineReader* reader = ClipboardReader(ctx, textReader);
    if (reader == nullptr) {
      Warn(ctx, "Invalid input",
           "The text on the clipboard does not consist\r\nsolely of natural language words.");
      // The source goes back to the input file, as after an empty clipboard.
      ctx.settings.optInFile = true;
      ctx.host.SettingsChanged();
      return false;
    }
    ResetStoreForCounting(ctx);
    LinePreparer preparer("", false, false);
    SetTotalNumOccurrencesForFileProgressBar(ctx);
    CountLines(ctx, *reader, preparer);
    if (reader->ErrorNumber() == 0) return true;
    ShowReadFailure(ctx.host, *reader, std::string(kStandardInputName));
  } catch (const RunError& e) {
    ReportError(ctx, e.Number(), e.what(), texts::kErrorReportPrefix, "DoItFromClipboard");
  } catch (const std::bad_alloc&) {
    ReportError(ctx, kErrOutOfMemory, "Out of memory", texts::kErrorReportPrefix,
                "DoItFromClipboard");
  }
  return false;
}

}  // namespace wordtally
