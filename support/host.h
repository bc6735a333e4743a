#pragma once
// The host port: everything the engine and the listing ask of "the main window" (message boxes,
// the output textbox, labels, the event loop, the clipboard). The desktop window, the console and
// the tests each implement it. It lives in support/ because both the engine and the results
// layer talk through it, and neither may depend on the other's headers for that.
#include <cstdint>
#include <optional>
#include <string>

#include "support/ansi_text.h"

namespace wordtally {

enum class MessageIcon { None, Information, Exclamation };
// YesNoToAllCancel adds "Yes to all" and "No to all": in a corpus run, the answer is then kept
// for every later file that raises the same question.
enum class MessageButtons { Ok, YesNo, YesNoCancel, YesNoToAllCancel };
enum class Answer { Ok, Yes, No, Cancel, YesToAll, NoToAll };

struct MessageBoxRequest {
  AnsiString title;
  AnsiString text;  // lines separated by CR LF
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
  Answer defaultButton = Answer::Ok;  // for Yes/No boxes: Yes unless stated
  // Only informs: nothing is refused or wrong, and the run goes on as if it had not been shown
  // (a terminal shows such boxes only when asked to).
  bool notice = false;
};

// Labels and buttons whose caption or visibility the engine sets.
enum class Control {
  CountButton,                // the count button, captioned "Stop" during a run
  Status,                     // the main window's status label
  TimeElapsed,                // lblTimeElapsed
  NumberOfWords,              // lblNumberOfWords
  TotalNumOccurrences,        // lblTotalNumOccurrences (the text progress bar during a run)
  NumWordsExcluded,           // lblNumWordsExcluded
  NumOccurrences,             // lblNumOccurrences
  Twirler,                    // lblTwirler
  SizeOfClipboardContents,    // lblSizeOfClipboardContents
  FileSize,                   // the input file's size label
  StatWordsInList,            // statistics labels shown after a listing
  StatWordsIgnored,
  StatWordsExcluded,
  StatInstancesInList,
  StatTotalInstances,
  StatFiles,                  // a corpus run's files counted and skipped
};

class Host {
 public:
  virtual ~Host() = default;

  virtual Answer ShowMessage(const MessageBoxRequest& request) = 0;
  // An input box with an editable text; nothing when the user cancels.
  virtual std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& prompt,
                                             const AnsiString& text) = 0;
  // The output-file chooser; nothing when the user cancels.
  virtual std::optional<AnsiString> ChooseOutputFile() = 0;

  // The output textbox. A window may show what is written at its next turn of the event loop;
  // OutputText is always the text written.
  virtual size_t OutputLength() const = 0;
  virtual AnsiString OutputText() const = 0;
  virtual void SetOutputText(const AnsiString& text) = 0;
  // Appends and moves the caret to the end, so that the box scrolls to it.
  virtual void AppendOutput(std::string_view text) = 0;
  virtual void FocusOutput() {}

  // Captions and visibility; a window shows them at its next turn of the event loop.
  virtual void SetCaption(Control control, const AnsiString& caption) = 0;
  virtual void SetVisible(Control control, bool visible) = 0;

  // Busy: everything that could start a second run or change a setting is disabled, and the
  // count button only serves as Stop. Idle: all enabled again.
  virtual void SetBusy(bool busy) = 0;
  // The settings record was changed by the engine (for example chkSuppressWords or chkUTF8):
  // the views refresh their controls.
  virtual void SettingsChanged() {}

  // Lets pending events run. Called often; the host decides cheaply whether a real turn is due.
  virtual void ProcessEvents() = 0;
  // The one-second timer that drives the elapsed-time tick.
  virtual void StartTimer() = 0;
  virtual void StopTimer() = 0;

  // A corpus run's progress, after each line read and at the start of each file: the file being
  // read (1-based number out of fileCount) and the bytes read of all files.
  struct CorpusProgress {
    int32_t fileNumber = 0;
    int32_t fileCount = 0;
    std::string path;
    int64_t bytesDone = 0;
    int64_t bytesTotal = 0;
  };
  virtual void ShowCorpusProgress(const CorpusProgress& progress) { (void)progress; }

  virtual std::u16string ClipboardText() = 0;
  // Puts pasted clipboard text into the main window's large text box.
  virtual void SetPastedText(const std::u16string& text) { (void)text; }
};

// A message box with an OK button only.
inline void Tell(Host& host, std::string_view title, std::string_view text, MessageIcon icon) {
  host.ShowMessage({AnsiString(title), AnsiString(text), icon, MessageButtons::Ok, Answer::Ok});
}

// A notice: an information box with an OK button only.
inline void Inform(Host& host, std::string_view title, std::string_view text) {
  host.ShowMessage({AnsiString(title), AnsiString(text), MessageIcon::Information,
                    MessageButtons::Ok, Answer::Ok, true});
}

}  // namespace wordtally
