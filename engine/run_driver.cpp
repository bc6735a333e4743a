#include "engine/run_driver.h"

#include <string>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/progress.h"
#include "engine/word_filters.h"
#include "results/list_summary.h"
#include "results/listing.h"
#include "results/output_file.h"
#include "results/sorting.h"
#include "support/file_utils.h"
#include "support/number_format.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

void ResetRun(EngineContext& ctx) {
  RunState& run = ctx.run;
  run.blnReadingWords = false;
  run.blnStoppedAndListed = false;
  run.blnCharacterEntitiesPossible = false;
  run.blnSuppressionNoticeShown = false;
  run.blnInputIsDocx = false;
  run.blnWordsGot = false;
  run.blnOutputFileMissed = false;
  run.intMinWidth = 6;
  run.lngTotalNumOccurrences = 0;
  run.lngNumWordsIgnored = 0;
  run.comment = CommentState{};
  run.stats = ListStatistics{};
  run.intThresholdFrequency = ThresholdFrequency(ctx.settings);
  // Nothing of the last run stays on show, even when this one is refused.
  ConcealNumWords(ctx, false);
  ctx.host.SetCaption(Control::NumberOfWords, "");
  ClearListStatistics(ctx.host);
}

void SetIdle(EngineContext& ctx) {
  ctx.host.StopTimer();
  ctx.run.blnElapsedTimeRunning = false;
  ctx.host.SetCaption(Control::CountButton, AnsiString(texts::kCountButtonIdle));
  ctx.host.SetCaption(Control::Twirler, " ");
  ctx.host.SetBusy(false);
}

// The common words must be in memory before a run that ignores them.
bool EnsureCommonWordsLoaded(EngineContext& ctx) {
  CountingSettings& s = ctx.settings;
  if (s.chkIgnoreCommonWords != 1) return true;
  if (ctx.commonWords.blnCommonWordsLoaded &&
      ctx.commonWords.strCommonWordsFile == s.txbCommonWordsFile) {
    return true;
  }
  ctx.commonWords.strCommonWordsFile = s.txbCommonWordsFile;
  return AttemptToReadCommonWords(ctx);
}

// Source "clipboard": there must be text on it.
bool ClipboardHasText(EngineContext& ctx) {
  const bool hasText = ctx.clipboardStream != nullptr ? !ctx.clipboardStream->Peek(1).empty()
                                                      : !ctx.host.ClipboardText().empty();
  if (hasText) return true;
  ctx.host.ShowMessage({"Clipboard empty", "Clipboard is empty.", MessageIcon::None,
                        MessageButtons::Ok});
  ctx.settings.optInFile = true;
  ctx.host.SettingsChanged();
  return false;
}

// The output file, when one is named, may be written: it is not the common-words file, and the
// probe found it writable.
bool OutputFileUsable(EngineContext& ctx) {
  const CountingSettings& s = ctx.settings;
  return !OutputToFileActive(s) ||
         (OutputSparesCommonWordsFile(ctx) && ProbeOutputFile(ctx.host, s.txbFile[1]));
}

// Counts the chosen source into the store; false when the run was abandoned.
bool CountSource(EngineContext& ctx) {
  CountingSettings& s = ctx.settings;
  if (!s.optInFile) return ClipboardHasText(ctx) && DoItFromClipboard(ctx);
  if (ctx.countCorpus) return ctx.countCorpus(ctx);
  const size_t first = s.txbFile[0].find_first_not_of(' ');
  s.txbFile[0] = first == std::string::npos
                     ? ""
                     : s.txbFile[0].substr(first, s.txbFile[0].find_last_not_of(' ') - first + 1);
  ctx.host.SettingsChanged();
  if (s.txbFile[0].empty()) {
    ctx.host.ShowMessage({AnsiString(texts::kInputFileNotSpecifiedTitle),
                          "Input file not specified.", MessageIcon::Exclamation,
                          MessageButtons::Ok});
    ctx.host.SetOutputText("");
    ctx.host.FocusOutput();
    return false;
  }
  return DoItFromFile(ctx);
}

// After a stop: reports what was found and asks whether to list it. False: do not list.
bool ConfirmListingAfterStop(EngineContext& ctx) {
  ctx.run.blnStop = false;
  const int32_t n = ctx.store.lngNumWords();
  if (ctx.host.OutputLength() > 0) ctx.host.AppendOutput("\r\n\r\n");
  ctx.host.AppendOutput("Stopped with" + NumberText(n) + " word" + (n == 1 ? "" : "s") +
                        " found.");
  ConcealNumWords(ctx, false);
  const Answer answer = ctx.host.ShowMessage(
      {"Counting interrupted",
       "The operation was stopped before all words were counted.\r\n"
       "Do you wish to list the words which were found?",
       MessageIcon::None, MessageButtons::YesNo, Answer::Yes});
  if (answer != Answer::Yes) return false;
  ctx.run.blnStoppedAndListed = true;
  return true;
}

void ShowPhase(EngineContext& ctx, std::string_view text) {
  ctx.host.SetOutputText(AnsiString(text) + " ...");
}

ListingOptions MakeListingOptions(const EngineContext& ctx) {
  const CountingSettings& s = ctx.settings;
  ListingOptions options;
  options.cboWordOrder = s.cboWordOrder;
  options.cboDisplayFormat = s.cboDisplayFormat;
  options.chkOutputWithCommas = s.chkOutputWithCommas;
  options.chkWarnOnOverwrite = s.chkWarnOnOverwrite;
  options.chkDisableOutputToFile = s.chkDisableOutputToFile;
  options.strOutputFile = s.txbFile[1];
  options.chkIgnoreInfrequentWords = s.chkIgnoreInfrequentWords;
  options.intThresholdFrequency = ctx.run.intThresholdFrequency;
  options.intMinWidth = ctx.run.intMinWidth;
  options.blnStop = &ctx.run.blnStop;
  options.onLine = ctx.onListingLine;
  return options;
}

// Orders the store, works out the ranks and lists the words with their statistics.
void ListResults(EngineContext& ctx) {
  ctx.run.blnWordsGot = !ctx.run.blnStoppedAndListed;
  ctx.host.SetCaption(Control::CountButton, AnsiString(texts::kCountButtonBusy));
  const auto list = ctx.store.WordList();
  ListStatistics& stats = ctx.run.stats;
  ShowPhase(ctx, texts::kMarkingWords);
  MarkIncludedWords(list, ctx.settings.chkIgnoreInfrequentWords == 1,
                    ctx.run.intThresholdFrequency);
  ShowPhase(ctx, texts::kRankingWords);
  CountIncludedWords(list, stats);
  BuildFrequencyOrder(list, stats, ctx.host);
  ShowPhase(ctx, texts::kPreparingListing);
  ShowListStatistics(ctx.host, stats, ctx.run.lngTotalNumOccurrences, ctx.run.lngNumWordsIgnored,
                     ctx.settings.chkIgnoreCommonWords == 1);
  const ListingOutcome outcome = ListWords(list, stats, ctx.host, MakeListingOptions(ctx));
  ctx.run.blnStop = false;
  ctx.run.blnOutputFileMissed = outcome.blnFileMissed;
  if (outcome.blnFileWritten && outcome.strOutputFile != ctx.settings.txbFile[1]) {
    ctx.settings.txbFile[1] = outcome.strOutputFile;  // edited in the overwrite box
    ctx.host.SettingsChanged();
  }
  // A front end that receives the whole listing line by line has it all: the textbox's limit
  // does not concern it.
  if (outcome.end == ListingEnd::TextboxFull && !ctx.onListingLine) {
    const AnsiString where = outcome.blnFileWritten ? outcome.strOutputFile : AnsiString();
    ReportError(ctx, kErrTextboxFull, where, "", outcome.strProcedure);
  }
}

// Starts the clock, counts the source, sorts the store and lists it, unless the source was
// abandoned or the user does not want a stopped run listed.
void CountAndList(EngineContext& ctx) {
  StartClock(ctx);
  if (!CountSource(ctx)) return;
  SortWordList(ctx.store.WordList());
  if (!ctx.run.blnStop || ConfirmListingAfterStop(ctx)) ListResults(ctx);
}

AnsiString TextboxFullText(std::string_view outputFile) {
  AnsiString text =
      "The list is too long to be shown in full in the text window,\r\n"
      "which shows only its first part.";
  // The desktop's Results table always holds every included word; the command line, which
  // receives the whole listing, never shows this box.
  if (outputFile.empty()) return text + "\r\n\r\nThe whole list is in the Results table.";
  return text + "\r\n\r\nThe whole list is in the Results table\r\nand in the output file\r\n" +
         AnsiString(outputFile);
}

}  // namespace

bool OutputSparesCommonWordsFile(EngineContext& ctx) {
  const CountingSettings& s = ctx.settings;
  if (s.chkIgnoreCommonWords != 1 || !SameFile(s.txbFile[1], s.txbCommonWordsFile)) return true;
  ctx.host.ShowMessage({AnsiString(texts::kGenericErrorTitle),
                        "Output file cannot be the common-words file\r\n" + s.txbCommonWordsFile,
                        MessageIcon::Exclamation, MessageButtons::Ok});
  return false;
}

bool ValidateSettings(EngineContext& ctx) {
  const CountingSettings& s = ctx.settings;
  if (s.chkUTF8 == 1 && s.chkOnly7bitASCII == 1) {
    ctx.host.ShowMessage({"Incompatible setting",
                          "Scanning as UTF-8 is not compatible with\r\n"
                          "'Allow only 7-bit ASCII characters'.\r\n\r\n"
                          "Clear one of the two settings.",
                          MessageIcon::Exclamation, MessageButtons::Ok});
    return false;
  }
  return true;
}

AnsiString ErrorReportText(int number, std::string_view description, std::string_view prefix,
                           std::string_view procedure) {
  return AnsiString(prefix) + "At " + AnsiString(procedure) + " error #" + std::to_string(number) +
         ".\r\nDescription: " + AnsiString(description);
}

void ReportError(EngineContext& ctx, int number, std::string_view description,
                 std::string_view prefix, std::string_view procedure) {
  ctx.host.StopTimer();
  ctx.run.blnElapsedTimeRunning = false;
  const AnsiString text = number == kErrTextboxFull
                             ? TextboxFullText(description) + "\r\n(" + AnsiString(procedure) + ")"
                             : ErrorReportText(number, description, prefix, procedure);
  ctx.host.ShowMessage({AnsiString(texts::kErrorReportTitle), text, MessageIcon::Exclamation,
                        MessageButtons::Ok});
}

void DoIt(EngineContext& ctx) {
  if (!ValidateSettings(ctx)) return;
  ResetRun(ctx);
  try {
    // A load of the common words sets the window busy and idle again by itself.
    if (!EnsureCommonWordsLoaded(ctx)) {
      SetIdle(ctx);
      return;
    }
    ctx.host.SetBusy(true);
    if (OutputFileUsable(ctx)) CountAndList(ctx);
  } catch (const RunError& e) {
    ReportError(ctx, e.Number(), e.what(), texts::kErrorReportPrefix, "DoIt");
    if (e.Number() == kErrPermissionDenied) {
      ctx.host.SetOutputText(
          "Error: " + AnsiString(e.what()) +
          "\r\nIf the output file is open in Excel then it must first be closed\r\n"
          "or a different file should be specified as the output file.");
    }
  } catch (const std::bad_alloc&) {
    ReportError(ctx, kErrOutOfMemory, "Out of memory", texts::kErrorReportPrefix, "DoIt");
  }
  SetIdle(ctx);
  ctx.host.FocusOutput();
}

}  // namespace wordtally
