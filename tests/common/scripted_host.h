#pragma once
// A host for tests: records every message, caption and textbox change, and answers questions
// from a queue (an empty queue answers with the box's default button).
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/host.h"

namespace wordtally::testing {

class ScriptedHost : public Host {
 public:
  Answer ShowMessage(const MessageBoxRequest& request) override;
  std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& prompt,
                                     const AnsiString& text) override;
  std::optional<AnsiString> ChooseOutputFile() override;

  size_t OutputLength() const override { return output.size(); }
  AnsiString OutputText() const override { return output; }
  void SetOutputText(const AnsiString& text) override;
  void AppendOutput(std::string_view text) override;

  void SetCaption(Control control, const AnsiString& caption) override;
  void SetVisible(Control control, bool visible) override { visible_[control] = visible; }
  void SetBusy(bool isBusy) override { busy = isBusy; }
  void SettingsChanged() override { ++settingsChanges; }

  void ProcessEvents() override;
  void StartTimer() override { timerRunning = true; }
  void StopTimer() override { timerRunning = false; }
  std::u16string ClipboardText() override { return clipboard; }

  // The caption last set, "" when never set.
  AnsiString Caption(Control control) const;
  bool Visible(Control control) const;

  // Script.
  std::deque<Answer> answers;                          // for ShowMessage questions
  std::deque<std::optional<AnsiString>> inputAnswers;  // for InputBox; empty: accept the text
  std::deque<std::optional<AnsiString>> chosenFiles;   // for ChooseOutputFile; empty: cancel
  // Called on every ProcessEvents (for example to press Stop after a number of turns).
  std::function<void()> onProcessEvents;

  // Record.
  std::vector<MessageBoxRequest> messages;
  std::vector<std::pair<AnsiString, AnsiString>> inputBoxes;  // title, text
  std::map<Control, std::vector<AnsiString>> captionHistory;
  AnsiString output;
  int setOutputCount = 0;
  int settingsChanges = 0;
  int processEventsCount = 0;
  bool busy = false;
  bool timerRunning = false;
  std::u16string clipboard;

 private:
  std::map<Control, bool> visible_;
};

}  // namespace wordtally::testing
