// wordtally-screenshots OUTDIR [SUFFIX]: counts a generated book-sized text in the real main
// window and saves pictures of the main window during and after the run and of the settings
// window, as OUTDIR/main-window-running{SUFFIX}.png and so on. Run it through
// scripts/screenshots.sh, which supplies a display.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "engine/progress.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_window.h"

namespace {

using wordtally::ui::MainWindow;

// A book-sized text with CR LF line ends: a few hundred distinct words, the common ones far more
// frequent than the rare ones, as in a real text.
bool WriteSampleText(const QString& path) {
  static const char* const kSyllables[] = {"ka", "lo", "men", "tis", "ra", "vo", "sel", "dun",
                                           "pe", "tor", "mi", "ne", "sta", "gu", "ber", "fal"};
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  QRandomGenerator random(7);
  for (int line = 0; line < 400000; ++line) {
    QByteArray text;
    for (int word = 0; word < 10; ++word) {
      const double skew = random.generateDouble();
      const int index = static_cast<int>(400 * skew * skew * skew);  // 0..399, small ones often
      text += kSyllables[index % 16];
      text += kSyllables[(index / 16) % 16];
      if (index >= 256) text += kSyllables[index % 7];
      text += ' ';
    }
    text += "\r\n";
    file.write(text);
  }
  return true;
}

bool Save(QWidget& widget, const QString& path) {
  const bool saved = widget.grab().save(path);
  std::fprintf(stderr, "%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
  return saved;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: wordtally-screenshots OUTDIR [SUFFIX]\n");
    return 2;
  }
  const QDir outDir(QString::fromLocal8Bit(argv[1]));
  const QString suffix = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
  QTemporaryDir work;
  const QString input = work.filePath("sample-book.txt");
  if (!work.isValid() || !WriteSampleText(input)) return 1;

  MainWindow window(work.filePath("qzl.usr"));
  window.host().SetAnswerProvider(
      [](const wordtally::MessageBoxRequest& request) {
        std::fprintf(stderr, "message \"%s\": %s\n", request.title.c_str(), request.text.c_str());
        return request.defaultButton;
      });
  window.show();
  window.Start();
  // Filled in as a user would, so that the file is vetted and its size shown.
  auto* inputBox = window.findChild<QLineEdit*>("txbFile0");
  inputBox->setText(input);
  emit inputBox->editingFinished();
  auto* outputBox = window.findChild<QLineEdit*>("txbFile1");
  outputBox->setText(work.filePath("words.txt"));
  emit outputBox->editingFinished();
  window.settings().cboWordOrder = 0;
  window.RefreshFromSettings();

  bool ok = true;
  bool runningShot = false;
  QTimer halfWay;  // fires at the turns of the event loop that the run gives
  QObject::connect(&halfWay, &QTimer::timeout, &window, [&] {
    const int halfBar = wordtally::kProgressBarWidth / 2;
    if (runningShot || window.context().run.intProgressBarPosition < halfBar) return;
    runningShot = true;
    ok = Save(window, outDir.filePath("main-window-running" + suffix + ".png")) && ok;
  });
  QTimer::singleShot(500, &window, [&] {
    halfWay.start(0);
    window.findChild<QPushButton*>("cmdCount")->click();  // returns when the run has ended
    halfWay.stop();
    ok = runningShot && Save(window, outDir.filePath("main-window-done" + suffix + ".png")) && ok;
    window.settingsWindow().show();
    QTimer::singleShot(300, &window, [&] {
      ok = Save(window.settingsWindow(), outDir.filePath("settings-window" + suffix + ".png")) && ok;
      app.quit();
    });
  });
  app.exec();
  return ok ? 0 : 1;
}
