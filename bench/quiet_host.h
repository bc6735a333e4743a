#pragma once
// A host for benchmarks: keeps the textbox's text, shows nothing and answers every question with
// its default button.
#include "support/host.h"

namespace wordtally::bench {

class QuietHost : public Host {
 public:
  Answer ShowMessage(const MessageBoxRequest& request) override { return request.defaultButton; }
  std::optional<AnsiString> InputBox(const AnsiString&, const AnsiString&,
                                     const AnsiString& text) override {
    return text;
  }
  std::optional<AnsiString> ChooseOutputFile() override { return std::nullopt; }
  size_t OutputLength() const override { return output_.size(); }
  AnsiString OutputText() const override { return output_; }
  void SetOutputText(const AnsiString& text) override { output_ = text; }
  void AppendOutput(std::string_view text) override { output_.append(text); }
  void SetCaption(Control, const AnsiString&) override {}
  void SetVisible(Control, bool) override {}
  void SetBusy(bool) override {}
  void ProcessEvents() override {}
  void StartTimer() override {}
  void StopTimer() override {}
  std::u16string ClipboardText() override { return {}; }

 private:
  AnsiString output_;
};

}  // namespace wordtally::bench
