#pragma once
// The host port on Qt widgets: real modal message boxes, the output textbox, the named labels,
// the cheap event-loop turn and the one-second timer Timer2. Tests replace the modal boxes with
// answer providers so that nothing blocks.
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>
#include <map>

#include "support/host.h"

class QPlainTextEdit;
class QWidget;

namespace wordtally::ui {

// The widgets the engine writes to, owned by the main window.
struct HostWidgets {
  QWidget* dialogParent = nullptr;
  QPlainTextEdit* output = nullptr;    // txbOutput
  QPlainTextEdit* pasteBox = nullptr;  // the large text box for pasted text
  std::map<Control, QWidget*> controls;  // labels and the count button
};

class QtHost : public QObject, public Host {
  Q_OBJECT

 public:
  using AnswerProvider = std::function<Answer(const MessageBoxRequest&)>;
  using InputProvider = std::function<std::optional<AnsiString>(
      const AnsiString& title, const AnsiString& prompt, const AnsiString& text)>;
  using FileProvider = std::function<std::optional<AnsiString>()>;

  explicit QtHost(HostWidgets widgets, QObject* parent = nullptr);

  // When set, these answer instead of opening a modal dialog.
  void SetAnswerProvider(AnswerProvider provider) { answerProvider_ = std::move(provider); }
  void SetInputProvider(InputProvider provider) { inputProvider_ = std::move(provider); }
  void SetFileProvider(FileProvider provider) { fileProvider_ = std::move(provider); }

  Answer ShowMessage(const MessageBoxRequest& request) override;
  std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& prompt,
                                     const AnsiString& text) override;
  std::optional<AnsiString> ChooseOutputFile() override;

  // The textbox's text is kept here at once; the widget catches up at the next turn of the
  // event loop, so that a run lays the box out once per turn rather than once per word.
  size_t OutputLength() const override { return outputText_.size(); }
  AnsiString OutputText() const override { return outputText_; }
  void SetOutputText(const AnsiString& text) override;
  void AppendOutput(std::string_view text) override;
  void FocusOutput() override;
  // Shows in the widget what was written since the last turn.
  void FlushOutput();

  void SetCaption(Control control, const AnsiString& caption) override;
  void SetVisible(Control control, bool visible) override;
  void SetBusy(bool busy) override { emit busyChanged(busy); }
  void SettingsChanged() override { emit settingsChanged(); }

  // The status label: "File 3 of 20: name.txt - 45%", set only when that text changes.
  void ShowCorpusProgress(const CorpusProgress& progress) override;

  void ProcessEvents() override;
  void StartTimer() override { timer2_.start(); }
  void StopTimer() override { timer2_.stop(); }

  std::u16string ClipboardText() override;
  void SetPastedText(const std::u16string& text) override;

 signals:
  void busyChanged(bool busy);
  void settingsChanged();
  void timerTicked();

 private:
  QWidget* Widget(Control control) const;
  Answer ShowModalMessage(const MessageBoxRequest& request);
  void ScheduleFlush();

  HostWidgets widgets_;
  // What the engine wrote, byte for byte (CR LF included); the widget shows it with plain
  // line feeds. Keeping it here makes OutputLength cheap and exact.
  AnsiString outputText_;
  // The widget shows the first shownUpTo_ bytes of outputText_; with replacePending_ it still
  // shows an older text, which those bytes replaced.
  bool replacePending_ = false;
  size_t shownUpTo_ = 0;
  bool flushScheduled_ = false;
  QTimer timer2_;
  QElapsedTimer sinceLastTurn_;
  // The file number and percentage the status label shows; -1 when it shows something else.
  int32_t progressFile_ = -1;
  int progressPercent_ = -1;
  AnswerProvider answerProvider_;
  InputProvider inputProvider_;
  FileProvider fileProvider_;
};

}  // namespace wordtally::ui
