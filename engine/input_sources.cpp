// The line walk that every source hands its lines to, and the clipboard source. The file source
// is in file_counting.cpp.
#include <string>

#include "engine/clipboard_input.h"
#include "engine/engine_context.h"
#include "engine/line_counting.h"
#include "engine/program_texts.h"
#include "engine/run_messages.h"
#include "engine/progress.h"
#include "engine/run_driver.h"
#include "engine/word_extraction.h"
#include "input/decoding.h"
#include "input/line_preparation.h"
#include "input/line_reader.h"
#include "input/markup.h"
#include "support/number_format.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

constexpr int32_t kStopWithoutAskingBelow = 2000;
constexpr int32_t kCheckedClipboardChars = 3000;
constexpr std::string_view kStandardInputName = "(standard input)";

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

// From done on, the bytes done for which the bar stays at position p: the bar moves on once
// kProgressBarWidth * done / size + 0.5 reaches p + 1; a byte less than that bound keeps clear of
// its rounding, which is far smaller than a byte's share of the bar.
ProgressBarStretch StretchAt(int64_t done, int64_t size, int16_t p) {
  const double bound = (p + 0.5) * static_cast<double>(size) / kProgressBarWidth;
  return {size, done, static_cast<int64_t>(bound) - 1, p};
}

}  // namespace

bool ServeProgressAndStop(EngineContext& ctx, int64_t done, int64_t size) {
  RunState& run = ctx.run;
  if (size > 0 && !run.progressBarStretch.Holds(done, size, run.intProgressBarPosition)) {
    const auto total = static_cast<double>(size);
    const auto p = static_cast<int16_t>(kProgressBarWidth * done / total + 0.5);
    if (p != run.intProgressBarPosition) UpdateProgressBar(ctx, static_cast<double>(done), total, 1);
    if (p == run.intProgressBarPosition) run.progressBarStretch = StretchAt(done, size, p);
  }
  ctx.GiveEventLoopATurn();
  if (!ctx.run.blnStop) return true;
  const int32_t numWords = ctx.store.lngNumWords();
  if (numWords < kStopWithoutAskingBelow) return false;
  // The number keeps the blank that the number conversion puts before it.
  const AnsiString question = NumberText(numWords) +
                              " different words have been found.\r\nDo you really wish to stop?";
  if (Ask(ctx.host, texts::kStopQuestionTitle, question, MessageButtons::YesNo) == Answer::Yes) {
    return false;
  }
  ctx.run.blnStop = false;
  return true;
}

void CountLines(EngineContext& ctx, LineReader& reader, LinePreparer& preparer,
                const LineProgress& onProgress) {
  LineWalker walker(ctx);
  std::string_view line;
  while (preparer.NextLine(reader, line)) {
    ctx.run.blnCharacterEntitiesPossible = preparer.Kind() != MarkupKind::None;
    if (preparer.IsUtf8() && ctx.settings.chkUTF8 != 1) {  // a charset in the HTML head
      ctx.settings.chkUTF8 = 1;
      ctx.host.SettingsChanged();
    }
    ctx.run.comment.lineGoesOn = reader.LineGoesOn();
    if (!line.empty()) walker.WalkLine(line);
    if (onProgress) onProgress(reader.BytesConsumed());
    if (!ServeProgressAndStop(ctx, reader.BytesConsumed(), reader.Size())) return;
  }
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

bool DoItFromClipboard(EngineContext& ctx) {
  try {
    LineReader textReader;
    LineReader* reader = ClipboardReader(ctx, textReader);
    if (reader == nullptr) {
      Warn(ctx.host, "Invalid input",
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
