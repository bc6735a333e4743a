#include "ui/qt_host.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include "ui/qt_text.h"

namespace wordtally::ui {
namespace {

// A real turn of the event loop at most this often: often enough for a live Stop button, a
// smooth window and a box that shows the words found at least every 50 ms, rare enough that a
// gigabyte run does not spend its time in the event loop or in laying out the box.
constexpr qint64 kTurnIntervalMs = 40;

QMessageBox::Icon ToQtIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton ToQtButton(Answer answer) {
  switch (answer) {
    case Answer::Yes: return QMessageBox::Yes;
    case Answer::No: return QMessageBox::No;
    case Answer::Cancel: return QMessageBox::Cancel;
    case Answer::YesToAll: return QMessageBox::YesToAll;
    case Answer::NoToAll: return QMessageBox::NoToAll;
    case Answer::Ok: break;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButtons ToQtButtons(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::YesNoToAllCancel:
      return QMessageBox::Yes | QMessageBox::YesToAll | QMessageBox::No | QMessageBox::NoToAll |
             QMessageBox::Cancel;
    case MessageButtons::Ok: break;
  }
  return QMessageBox::Ok;
}

// Closing the box with Escape or the title bar gives the answer that changes least.
Answer EscapeAnswer(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::YesNo: return Answer::No;
    case MessageButtons::YesNoCancel:
    case MessageButtons::YesNoToAllCancel: return Answer::Cancel;
    case MessageButtons::Ok: break;
  }
  return Answer::Ok;
}

Answer FromQtButton(int button, MessageButtons buttons) {
  switch (button) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    case QMessageBox::YesToAll: return Answer::YesToAll;
    case QMessageBox::NoToAll: return Answer::NoToAll;
    case QMessageBox::Ok: return Answer::Ok;
    default: return EscapeAnswer(buttons);
  }
}

}  // namespace

QtHost::QtHost(HostWidgets widgets, QObject* parent) : QObject(parent), widgets_(std::move(widgets)) {
  timer2_.setObjectName("Timer2");
  timer2_.setInterval(1000);
  connect(&timer2_, &QTimer::timeout, this, &QtHost::timerTicked);
}

// The box behind a question shows everything written before it.
Answer QtHost::ShowMessage(const MessageBoxRequest& request) {
  FlushOutput();
  if (answerProvider_) return answerProvider_(request);
  return ShowModalMessage(request);
}

Answer QtHost::ShowModalMessage(const MessageBoxRequest& request) {
  QMessageBox box(ToQtIcon(request.icon), ToQString(request.title), ToDisplayText(request.text),
                  ToQtButtons(request.buttons), widgets_.dialogParent);
  box.setDefaultButton(ToQtButton(request.defaultButton));
  box.setEscapeButton(ToQtButton(EscapeAnswer(request.buttons)));
  return FromQtButton(box.exec(), request.buttons);
}

std::optional<AnsiString> QtHost::InputBox(const AnsiString& title, const AnsiString& prompt,
                                           const AnsiString& text) {
  FlushOutput();
  if (inputProvider_) return inputProvider_(title, prompt, text);
  bool accepted = false;
  const QString answer = QInputDialog::getText(widgets_.dialogParent, ToQString(title),
                                               ToDisplayText(prompt), QLineEdit::Normal,
                                               PathToQString(text), &accepted);
  if (!accepted) return std::nullopt;
  return PathFromQString(answer);
}

std::optional<AnsiString> QtHost::ChooseOutputFile() {
  FlushOutput();
  if (fileProvider_) return fileProvider_();
  const QString chosen = QFileDialog::getSaveFileName(
      widgets_.dialogParent, QObject::tr("Output file"), QString(),
      QObject::tr("Text files (*.txt);;Comma-separated files (*.csv)"));
  if (chosen.isEmpty()) return std::nullopt;
  return PathFromQString(chosen);
}

void QtHost::SetOutputText(const AnsiString& text) {
  outputText_ = text;
  replacePending_ = true;
  shownUpTo_ = text.size();
  ScheduleFlush();
}

void QtHost::AppendOutput(std::string_view text) {
  outputText_.append(text);
  ScheduleFlush();
}

// Text written outside a run reaches the widget at the next turn of the event loop as well.
void QtHost::ScheduleFlush() {
  if (flushScheduled_) return;
  flushScheduled_ = true;
  QMetaObject::invokeMethod(this, &QtHost::FlushOutput, Qt::QueuedConnection);
}

void QtHost::FlushOutput() {
  flushScheduled_ = false;
  if (!widgets_.output) return;
  QPlainTextEdit& box = *widgets_.output;
  const std::string_view text(outputText_);
  const bool appended = shownUpTo_ < text.size();
  if (replacePending_) {
    box.setPlainText(ToDisplayText(text));
  } else if (appended) {
    // The paragraph appended to keeps its glyphs, so that placing the caret and painting after
    // its layout do not work through its whole text once more.
    box.document()->lastBlock().layout()->setCacheEnabled(true);
    box.moveCursor(QTextCursor::End);
    box.insertPlainText(ToDisplayText(text.substr(shownUpTo_)));
  }
  if (appended) {
    // The caret goes to the end of what was appended, so that the box scrolls to it.
    box.moveCursor(QTextCursor::End);
    box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum());
  }
  replacePending_ = false;
  shownUpTo_ = text.size();
}

void QtHost::FocusOutput() {
  if (widgets_.output) widgets_.output->setFocus();
}

QWidget* QtHost::Widget(Control control) const {
  const auto found = widgets_.controls.find(control);
  return found == widgets_.controls.end() ? nullptr : found->second;
}

void QtHost::SetCaption(Control control, const AnsiString& caption) {
  if (control == Control::Status) progressFile_ = -1;
  QWidget* widget = Widget(control);
  if (auto* label = qobject_cast<QLabel*>(widget)) {
    label->setText(ToDisplayText(caption));
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    button->setText(ToDisplayText(caption));
  }
}

void QtHost::SetVisible(Control control, bool visible) {
  if (QWidget* widget = Widget(control)) widget->setVisible(visible);
}

// Called after every line read: the text is built only when the file or the percentage moves on.
void QtHost::ShowCorpusProgress(const CorpusProgress& progress) {
  const int percent = progress.bytesTotal > 0
                          ? static_cast<int>(progress.bytesDone * 100 / progress.bytesTotal)
                          : 100;
  if (progress.fileNumber == progressFile_ && percent == progressPercent_) return;
  auto* status = qobject_cast<QLabel*>(Widget(Control::Status));
  if (!status) return;
  progressFile_ = progress.fileNumber;
  progressPercent_ = percent;
  status->setText(tr("File %1 of %2: %3 - %4%")
                      .arg(progress.fileNumber)
                      .arg(progress.fileCount)
                      .arg(QFileInfo(PathToQString(progress.path)).fileName())
                      .arg(percent));
}

void QtHost::ProcessEvents() {
  if (sinceLastTurn_.isValid() && sinceLastTurn_.elapsed() < kTurnIntervalMs) return;
  sinceLastTurn_.start();
  FlushOutput();  // first, so that this turn paints it
  QCoreApplication::processEvents();
}

std::u16string QtHost::ClipboardText() { return ToU16(QGuiApplication::clipboard()->text()); }

void QtHost::SetPastedText(const std::u16string& text) {
  if (widgets_.pasteBox) {
    widgets_.pasteBox->setPlainText(
        QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
  }
}

}  // namespace wordtally::ui
