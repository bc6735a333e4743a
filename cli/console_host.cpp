#include "cli/console_host.h"

#include <iostream>

#include "engine/program_texts.h"
#include "input/decoding.h"

namespace wordtally {
namespace {

bool IsStatistic(Control c) {
  return c == Control::StatWordsInList || c == Control::StatWordsIgnored ||
         c == Control::StatWordsExcluded || c == Control::StatInstancesInList ||
         c == Control::StatTotalInstances;
}

}  // namespace

std::string ToTerminalText(std::string_view text) {
  std::string lf;
  lf.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    lf += text[i];
  }
  return AnsiToUtf8(lf);
}

void ConsoleHost::Print(std::string_view title, std::string_view text) const {
  std::cerr << ToTerminalText(title) << ": " << ToTerminalText(text) << '\n';
}

Answer ConsoleHost::ShowMessage(const MessageBoxRequest& request) {
  if (request.title == texts::kErrorReportTitle) ++errorReports_;
  const bool answeredHere = request.buttons != MessageButtons::Ok;
  if (verbose_ || !(answeredHere || request.notice)) Print(request.title, request.text);
  if (!answeredHere) return Answer::Ok;
  if (request.title == kUtf8OrAnsiTitle) return utf8Answer_;
  if (request.title == "Large input file") return Answer::No;
  return request.defaultButton;
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

}  // namespace wordtally
