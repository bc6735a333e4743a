#include "results/listing.h"

#include <optional>

#include "results/list_summary.h"
#include "results/listing_line.h"
#include "results/output_file.h"
#include "support/run_error.h"

namespace wordtally {

namespace {

constexpr int32_t kLinesPerTextboxMove = 20;
constexpr std::string_view kWordSeparator = ", ";
constexpr std::string_view kWritingToFile = "Now processing and writing to output file ...";
constexpr std::string_view kFileTerminated = "Output to file was terminated.";
constexpr std::string_view kListingStopped = "Listing stopped.";
constexpr std::string_view kWriteErrorTitle = "Output file";
constexpr std::string_view kWriteErrorText = "The output file could not be written completely:";
constexpr std::string_view kWriteErrorEnd = "Output to file has been ended.";

// One listing on its way to the textbox, the file and the line callback. The textbox receives the
// lines in blocks of 20 (the first block replaces its text) until its limit would be passed.
class ListingSession {
 public:
  ListingSession(std::span<const WordListEntry> WordList, const ListingLayout& layout, Host& host,
                 const ListingOptions& options, OutputFileWriter& file, const AnsiString& path)
      : WordList_(WordList), layout_(layout), lines_(layout), host_(host), options_(options),
        file_(file), path_(path) {}

  void ListHeader() { DisplayNextLine(0); }
  // Lists one word, gives the event loop a turn; false when the user asked to stop.
  bool ListWord(int32_t index);
  ListingOutcome Finish(std::string_view procedure);

 private:
  bool AllWordsOnOneLine() const { return layout_.cboDisplayFormat == kWordWithCommas; }
  void DisplayNextLine(int32_t index);
  void AddToTextbox(std::string_view text, std::string_view ending);
  void WriteToFile(std::string_view text, std::string_view ending);
  void MoveBufferToTextbox();
  void AppendOnNewLine(std::string_view text);

  std::span<const WordListEntry> WordList_;
  const ListingLayout& layout_;
  ListingLineMaker lines_;
  Host& host_;
  const ListingOptions& options_;
  OutputFileWriter& file_;
  const AnsiString& path_;

  AnsiString buffer_;
  AnsiString wordsLine_;  // format 9's one line of words, for the callback
  int32_t lngLinesListed_ = 0;
  bool textboxStarted_ = false;
  bool textboxFull_ = false;
  bool stopped_ = false;
};

bool ListingSession::ListWord(int32_t index) {
  DisplayNextLine(index);
  if (++lngLinesListed_ % kLinesPerTextboxMove == 0) MoveBufferToTextbox();
  host_.ProcessEvents();
  stopped_ = options_.blnStop != nullptr && *options_.blnStop;
  return !stopped_;
}

void ListingSession::DisplayNextLine(int32_t index) {
  const std::string_view line = lines_.Line(WordList_, index);
  if (index == 0 || !AllWordsOnOneLine()) {
    AddToTextbox(line, kCrLf);
    WriteToFile(line, kCrLf);
    if (options_.onLine) options_.onLine(line);
    return;
  }
  const std::string_view separator = lngLinesListed_ == 0 ? std::string_view() : kWordSeparator;
  AddToTextbox(separator, line);
  WriteToFile(separator, line);
  if (options_.onLine) wordsLine_.append(separator).append(line);
}

void ListingSession::AddToTextbox(std::string_view text, std::string_view ending) {
  if (textboxFull_) return;
  buffer_.append(text);
  buffer_.append(ending);
}

void ListingSession::WriteToFile(std::string_view text, std::string_view ending) {
  if (!file_.IsOpen()) return;
  file_.Write(text);
  file_.Write(ending);
}

void ListingSession::MoveBufferToTextbox() {
  if (textboxFull_ || buffer_.empty()) return;
  const size_t shown = textboxStarted_ ? host_.OutputLength() : 0;
  if (shown + buffer_.size() > lngMaxTextboxLength) {
    textboxFull_ = true;
    if (!textboxStarted_) host_.SetOutputText(AnsiString());
  } else if (textboxStarted_) {
    host_.AppendOutput(buffer_);
  } else {
    host_.SetOutputText(buffer_);
  }
  textboxStarted_ = true;
  buffer_.clear();
}

void ListingSession::AppendOnNewLine(std::string_view text) {
  const AnsiString shown = host_.OutputText();
  if (!shown.empty() && !shown.ends_with(kCrLf)) host_.AppendOutput(kCrLf);
  host_.AppendOutput(text);
}

ListingOutcome ListingSession::Finish(std::string_view procedure) {
  MoveBufferToTextbox();
  if (AllWordsOnOneLine()) {
    WriteToFile(std::string_view(), kCrLf);
    if (options_.onLine) options_.onLine(wordsLine_);
  }
  // A stopped listing says so at the end of its file, so that the file does not pass for whole.
  if (stopped_ && file_.IsOpen()) file_.WriteLine(kFileTerminated);
  const bool toFile = file_.IsOpen();
  const bool fileComplete = toFile && file_.Close();
  if (!fileComplete && file_.Failed()) {
    host_.ShowMessage({AnsiString(kWriteErrorTitle),
                       AnsiString(kWriteErrorText) + AnsiString(kCrLf) + path_ +
                           AnsiString(kCrLf) + AnsiString(kWriteErrorEnd),
                       MessageIcon::Exclamation, MessageButtons::Ok, Answer::Ok});
  }

  ListingOutcome outcome;
  outcome.blnFileWritten = fileComplete;
  outcome.strOutputFile = path_;
  if (stopped_) {
    AppendOnNewLine(fileComplete ? kFileTerminated : kListingStopped);
    outcome.end = ListingEnd::Stopped;
  } else if (textboxFull_) {
    outcome.end = ListingEnd::TextboxFull;
    outcome.strProcedure = AnsiString(procedure);
  }
  return outcome;
}

ListingOutcome ListWordsByFrequency(std::span<const WordListEntry> WordList,
                                    const ListStatistics& stats, ListingSession& session) {
  session.ListHeader();
  int32_t index = stats.lngFirstFreq;
  for (int32_t n = 0; n < stats.lngNumWordsIncluded && index != 0; ++n) {
    if (!session.ListWord(index)) break;
    index = WordList[index].NextByFreq;
  }
  return session.Finish("ListWordsByFrequency A");
}

ListingOutcome ListWordsAlphabetically(std::span<const WordListEntry> WordList,
                                       ListingSession& session) {
  session.ListHeader();
  for (size_t index = 1; index < WordList.size(); ++index) {
    if (WordList[index].Included && !session.ListWord(static_cast<int32_t>(index))) break;
  }
  return session.Finish("ListWordsAlphabetically A");
}

// The file this listing is written to, after the extension check and the overwrite warning.
std::optional<AnsiString> ListingFile(Host& host, const ListingOptions& options) {
  if (options.chkDisableOutputToFile == 1 || options.strOutputFile.empty()) return std::nullopt;
  return ConfirmOutputFile(host, options.strOutputFile, options.chkWarnOnOverwrite == 1);
}

}  // namespace

ListingOutcome ListWords(std::span<const WordListEntry> WordList, const ListStatistics& stats,
                         Host& host, const ListingOptions& options) {
  if (stats.lngNumWordsIncluded == 0 || stats.lngFirstFreq == 0) {
    const auto lngNumWords = static_cast<int32_t>(WordList.empty() ? 0 : WordList.size() - 1);
    host.SetOutputText(NothingToListText(lngNumWords, options.chkIgnoreInfrequentWords == 1,
                                         options.intThresholdFrequency));
    return {};
  }

  const std::optional<AnsiString> path = ListingFile(host, options);
  const bool blnCommaMode = path && options.chkOutputWithCommas == 1;
  OutputFileWriter file;
  if (path) {
    host.SetOutputText(AnsiString(kWritingToFile));
    if (!file.Open(*path)) throw RunError(kErrPermissionDenied, "Permission denied");
    file.Write(OutputFileNote(blnCommaMode));
  }

  const ListingLayout layout =
      MakeListingLayout(stats, options.intMinWidth, options.cboDisplayFormat, blnCommaMode);
  const AnsiString pathText = path.value_or(AnsiString());
  ListingSession session(WordList, layout, host, options, file, pathText);
  ListingOutcome outcome = options.cboWordOrder == 0
                               ? ListWordsByFrequency(WordList, stats, session)
                               : ListWordsAlphabetically(WordList, session);
  const bool fileWanted = options.chkDisableOutputToFile != 1 && !options.strOutputFile.empty();
  outcome.blnFileMissed = fileWanted && !outcome.blnFileWritten;
  return outcome;
}

}  // namespace wordtally
