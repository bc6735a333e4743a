#pragma once
// Helpers for the window tests: answers the message boxes of a window's host without opening
// them, and reads and writes the small files a test works on.
#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <vector>

#include "support/host.h"

class QTemporaryDir;
class QWidget;

namespace wordtally::ui {
class MainWindow;
class QtHost;
}

namespace wordtally::ui::testing {

// Records every message box and answers it by its title, else with its default button. Input
// boxes are recorded and keep their text (or are cancelled); the output-file chooser is cancelled.
class AnswerBook {
 public:
  void Attach(QtHost& host);

  std::map<AnsiString, Answer> answers;  // by title
  std::vector<MessageBoxRequest> shown;
  std::vector<std::pair<AnsiString, AnsiString>> inputBoxes;  // title, text
  bool cancelInputBoxes = false;

  bool Shown(std::string_view title) const;
  const MessageBoxRequest* Find(std::string_view title) const;
};

// The base of the window tests: a started main window whose state file lives in a fresh
// temporary folder and whose message boxes the answer book answers.
class MainWindowFixture : public QObject {
 protected:
  MainWindowFixture();
  ~MainWindowFixture() override;
  void OpenWindow();
  void CloseWindow();

  std::unique_ptr<QTemporaryDir> dir_;
  std::unique_ptr<MainWindow> window_;
  AnswerBook book_;
};

void WriteBytes(const QString& path, const QByteArray& bytes);
QByteArray ReadBytes(const QString& path);
// The text of the child label (or button) with this object name; "" when there is none.
QString CaptionOf(const QWidget& window, const char* objectName);
// The lines of the window's output textbox.
QStringList OutputLines(const QWidget& window);
// True when every line of wanted occurs in lines, in that order (other lines may come between).
bool ContainsInOrder(const QStringList& lines, const QStringList& wanted);

}  // namespace wordtally::ui::testing
