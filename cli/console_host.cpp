#include "cli/console_host.h"

#include <iostream>

#include "engine/program_texts.h"
#include "input/decoding.h"
#include "support/number_format.h"

namespace wordtally {
namespace {

bool IsStatistic(Control c) {
  return c == Control::StatWordsInList || c == Control::StatWordsIgnored ||
         c == Control::StatWordsExcluded || c == Control::StatInstancesInList ||
         c == Control::StatTotalInstances || c == Control::StatFiles;
}

// Whether text holds a CR or a byte above 127. No branch per byte, so that the compiler tests many
// bytes at once: each byte's top bit is gathered, with a CR counted as having it.
bool HasCrOrHighByte(std::string_view text) {
  unsigned char bits = 0;
  for (char c : text) bits |= static_cast<unsigned char>(c) | (c == '\r' ? 0x80 : 0);
  return (bits & 0x80) != 0;
}

}  // namespace

std::string ToTerminalText(std::string_view text) {
  std::string terminalText;
  AppendTerminalText(terminalText, text);
  return terminalText;
}

// Plain ASCII without a CR, as most listing lines are, stays as it is.
void AppendTerminalText(std::string& out, std::string_view text) {
  if (!HasCrOrHighByte(text)) {
    out.append(text);
    return;
  }
  for (size_t start = 0;;) {
    const size_t crLf = text.find(kCrLf, start);
    AppendAnsiAsUtf8(out, text.substr(start, crLf - start));  // to the end when there is none
    if (crLf == std::string_view::npos) return;
    start = crLf + 1;  // the LF stays
  }
}

void ConsoleHost::Print(std::string_view title, std::string_view text) const {
  EndProgressLine();
  messages_ << ToTerminalText(title) << ": " << ToTerminalText(text) << '\n';
}

Answer ConsoleHost::ShowMessage(const MessageBoxRequest& request) {
  if (request.title == texts::kErrorReportTitle) ++errorReports_;
  const bool answeredHere = request.buttons != MessageButtons::Ok;
  if (verbose_ || !(answeredHere || request.notice)) Print(request.title, request.text);
  if (!answeredHere) return Answer::Ok;
  if (request.title == kUtf8OrAnsiTitle) return EncodingAnswer(request.text);
  if (request.title == "Large input file") return Answer::No;
  return request.defaultButton;
}

Answer ConsoleHost::EncodingAnswer(const AnsiString& question) const {
  if (encoding_ != EncodingChoice::FollowFile) {
    return encoding_ == EncodingChoice::Utf8 ? Answer::Yes : Answer::No;
  }
  return question == kSeemsUtf8Question ? Answer::Yes : Answer::No;
}

std::optional<AnsiString> ConsoleHost::InputBox(const AnsiString& title, const AnsiString&,
                                                const AnsiString& text) {
  // The output file was named on the command line: it is overwritten as asked.
  if (verbose_) Print(title, text);
  return text;
}

void ConsoleHost::SetCaption(Control control, const AnsiString& caption) {
  if (IsStatistic(control)) statistics_[control] = caption;
}

void ConsoleHost::SetVisible(Control control, bool visible) { hidden_[control] = !visible; }

std::string ConsoleHost::StatisticsText() const {
  std::string text;
  for (const auto& [control, caption] : statistics_) {
    const auto hidden = hidden_.find(control);
    if (hidden != hidden_.end() && hidden->second) continue;
    text += ToTerminalText(caption) + '\n';
  }
  return text;
}

void ConsoleHost::ShowCorpusProgress(const CorpusProgress& progress) {
  constexpr int64_t kMegabyte = 1 << 20;
  const int64_t megabytes = progress.bytesDone / kMegabyte;
  if (!showProgress_ || (progress.fileNumber == progressFile_ && megabytes == progressMegabytes_)) {
    return;
  }
  progressFile_ = progress.fileNumber;
  progressMegabytes_ = megabytes;
  std::cerr << "\rFile " << FormatWholeNumber(progress.fileNumber) << " of "
            << FormatWholeNumber(progress.fileCount) << ", " << FormatWholeNumber(megabytes)
            << " of " << FormatWholeNumber(progress.bytesTotal / kMegabyte) << " MB read"
            << std::flush;
}

void ConsoleHost::EndProgressLine() const {
  if (progressFile_ == 0) return;
  std::cerr << '\n';
  progressFile_ = 0;
}

}  // namespace wordtally
