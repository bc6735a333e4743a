#pragma once
// A host that shows nothing: a file is read in the encoding it seems to have, other questions take
// their default button, and the messages that warn or refuse are kept. For a count that runs
// behind the front end's back (the keyword reference) and for benchmarks.
#include <vector>

#include "support/host.h"

namespace wordtally {

class QuietHost : public Host {
 public:
  // "TITLE: TEXT" of every message with an exclamation icon, in order.
  const std::vector<AnsiString>& Warnings() const { return warnings_; }

  Answer ShowMessage(const MessageBoxRequest& request) override;
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
  std::vector<AnsiString> warnings_;
};

}  // namespace wordtally
