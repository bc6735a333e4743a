#pragma once
// The host of the command line: refusals, warnings and errors go to standard error as
// "TITLE: TEXT"; questions take their safe answer (or the one the command line gives) and, like
// notices, are printed only when verbose. The output textbox is kept in memory.
#include <iostream>
#include <map>
#include <string>

#include "support/host.h"

namespace wordtally {

// How the "UTF-8 or ANSI file?" question is answered: as the file seems to be, or always UTF-8
// (--utf8) or always ANSI (--ansi).
enum class EncodingChoice { FollowFile, Utf8, Ansi };

class ConsoleHost : public Host {
 public:
  // showProgress: a corpus run's progress line is written to standard error (a terminal).
  // messages: where the messages go, standard error unless they are gathered elsewhere.
  ConsoleHost(EncodingChoice encoding, bool verbose, bool showProgress,
              std::ostream& messages = std::cerr)
      : encoding_(encoding), verbose_(verbose), showProgress_(showProgress),
        messages_(messages) {}

  Answer ShowMessage(const MessageBoxRequest& request) override;
  std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& prompt,
                                     const AnsiString& text) override;
  std::optional<AnsiString> ChooseOutputFile() override { return std::nullopt; }

  size_t OutputLength() const override { return output_.size(); }
  AnsiString OutputText() const override { return output_; }
  void SetOutputText(const AnsiString& text) override { output_ = text; }
  void AppendOutput(std::string_view text) override { output_.append(text); }

  void SetCaption(Control control, const AnsiString& caption) override;
  void SetVisible(Control control, bool visible) override;
  void SetBusy(bool) override {}

  void ProcessEvents() override {}
  void StartTimer() override {}
  void StopTimer() override {}

  // One line on standard error, rewritten in place, when the file or the megabytes read change.
  void ShowCorpusProgress(const CorpusProgress& progress) override;
  // Ends the progress line, if one is showing, so that what follows starts on a line of its own.
  void EndProgressLine() const;

  // No clipboard here: standard input streams to the run as its clipboard text instead.
  std::u16string ClipboardText() override { return {}; }

  // The statistics labels, "caption value" each, in the window's order; hidden ones left out.
  std::string StatisticsText() const;
  int ErrorReports() const { return errorReports_; }

 private:
  void Print(std::string_view title, std::string_view text) const;
  Answer EncodingAnswer(const AnsiString& question) const;

  EncodingChoice encoding_;
  bool verbose_;
  bool showProgress_;
  std::ostream& messages_;
  // The progress line on show: its file number and whole megabytes; fileNumber 0 when none.
  mutable int32_t progressFile_ = 0;
  int64_t progressMegabytes_ = -1;
  AnsiString output_;
  std::map<Control, AnsiString> statistics_;
  std::map<Control, bool> hidden_;
  int errorReports_ = 0;
};

// Windows-1252 text with CR LF line ends -> UTF-8 with LF line ends, for the terminal.
std::string ToTerminalText(std::string_view text);
// The same, appended to out.
void AppendTerminalText(std::string& out, std::string_view text);

}  // namespace wordtally
