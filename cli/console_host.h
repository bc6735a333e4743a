#pragma once
// The host of the command line: refusals, warnings and errors go to standard error as
// "TITLE: TEXT"; questions take their safe answer (or the one the command line gives) and, like
// notices, are printed only when verbose. The output textbox is kept in memory.
#include <map>
#include <string>

#include "support/host.h"

namespace wordtally {

class ConsoleHost : public Host {
 public:
  // Answer to the "UTF-8 or ANSI file?" question: Yes follows the file's detected encoding
  // (or the user's --utf8), No keeps ANSI (--ansi).
  ConsoleHost(Answer utf8Answer, bool verbose) : utf8Answer_(utf8Answer), verbose_(verbose) {}

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

  // No clipboard here: standard input streams to the run as its clipboard text instead.
  std::u16string ClipboardText() override { return {}; }

  // The statistics labels, "caption value" each, in the window's order; hidden ones left out.
  std::string StatisticsText() const;
  int ErrorReports() const { return errorReports_; }

 private:
  void Print(std::string_view title, std::string_view text) const;

  Answer utf8Answer_;
  bool verbose_;
  AnsiString output_;
  std::map<Control, AnsiString> statistics_;
  std::map<Control, bool> hidden_;
  int errorReports_ = 0;
};

// Windows-1252 text with CR LF line ends -> UTF-8 with LF line ends, for the terminal.
std::string ToTerminalText(std::string_view text);

}  // namespace wordtally
