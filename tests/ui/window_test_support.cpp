#include "tests/ui/window_test_support.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include "ui/main_window.h"
#include "ui/qt_host.h"

namespace wordtally::ui::testing {

void AnswerBook::Attach(QtHost& host) {
  host.SetAnswerProvider([this](const MessageBoxRequest& request) {
    shown.push_back(request);
    const auto found = answers.find(request.title);
    return found == answers.end() ? request.defaultButton : found->second;
  });
  host.SetInputProvider([this](const AnsiString& title, const AnsiString&, const AnsiString& text) {
    inputBoxes.emplace_back(title, text);
    return cancelInputBoxes ? std::nullopt : std::optional<AnsiString>(text);
  });
  host.SetFileProvider([] { return std::optional<AnsiString>(); });
}

const MessageBoxRequest* AnswerBook::Find(std::string_view title) const {
  for (const MessageBoxRequest& request : shown) {
    if (request.title == title) return &request;
  }
  return nullptr;
}

bool AnswerBook::Shown(std::string_view title) const { return Find(title) != nullptr; }

void WriteBytes(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

QByteArray ReadBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString CaptionOf(const QWidget& window, const char* objectName) {
  if (const auto* label = window.findChild<QLabel*>(objectName)) return label->text();
  if (const auto* button = window.findChild<QAbstractButton*>(objectName)) return button->text();
  return QString();
}

QStringList OutputLines(const QWidget& window) {
  const auto* output = window.findChild<QPlainTextEdit*>("txbOutput");
  return output ? output->toPlainText().split('\n') : QStringList();
}

bool ContainsInOrder(const QStringList& lines, const QStringList& wanted) {
  qsizetype from = 0;
  for (const QString& line : wanted) {
    from = lines.indexOf(line, from);
    if (from < 0) return false;
    ++from;
  }
  return true;
}

MainWindowFixture::MainWindowFixture() = default;
MainWindowFixture::~MainWindowFixture() = default;

void MainWindowFixture::OpenWindow() {
  dir_ = std::make_unique<QTemporaryDir>();
  window_ = std::make_unique<MainWindow>(dir_->filePath("qzl.usr"));
  book_ = AnswerBook();
  book_.Attach(window_->host());
  window_->show();
  window_->Start();
}

void MainWindowFixture::CloseWindow() {
  window_.reset();
  dir_.reset();
}

}  // namespace wordtally::ui::testing
