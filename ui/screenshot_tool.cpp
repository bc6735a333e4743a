// wordtally-screenshots TEXTSDIR OUTDIR [SUFFIX]: counts a real book (TEXTSDIR/news_from_nowhere.htm)
// in the real main window and saves pictures of the main window during and after the run, of the
// results table, of two charts, of the keywords against TEXTSDIR/kjv_genesis.txt and of the
// settings window, as OUTDIR/main-window-running{SUFFIX}.png and so on. Run it through
// scripts/screenshots.sh, which supplies a display.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "engine/progress.h"
#include "ui/keywords_panel.h"
#include "ui/main_window.h"
#include "ui/results_views.h"
#include "ui/settings_window.h"

namespace {

using wordtally::ui::MainWindow;

bool Save(QWidget& widget, const QString& path) {
  // Layouts and charts settle at the next turns of the event loop.
  for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
  const bool saved = widget.grab().save(path);
  std::fprintf(stderr, "%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
  return saved;
}

// Fills in the input and output files as a user would, so that the file is vetted and its size
// shown, and lists by frequency; the modern text rules read the book's Unix line ends without a
// question.
void ChooseFiles(MainWindow& window, const QString& input, const QString& output) {
  window.settings().chkModernText = 1;
  auto* inputBox = window.findChild<QLineEdit*>("txbFile0");
  inputBox->setText(input);
  emit inputBox->editingFinished();
  auto* outputBox = window.findChild<QLineEdit*>("txbFile1");
  outputBox->setText(output);
  emit outputBox->editingFinished();
  window.settings().cboWordOrder = 0;
  window.settings().chkModernText = 1;
  window.RefreshFromSettings();
}

// The pictures of the results views after the run: the table, two charts and the keywords.
bool ShootResultsViews(MainWindow& window, const QString& reference,
                       const std::function<QString(const char*)>& path) {
  wordtally::ui::ResultsViews& views = window.resultsViews();
  views.setCurrentIndex(1);
  bool ok = Save(window, path("results-table"));
  views.setCurrentIndex(2);
  auto* charts = window.findChild<QTabWidget*>("chartTabs");
  ok = Save(window, path("chart-top-words")) && ok;
  charts->setCurrentIndex(1);
  ok = Save(window, path("chart-zipf")) && ok;
  views.setCurrentIndex(3);
  views.keywords().SetReference(reference);
  ok = views.keywords().Compare() && Save(window, path("keywords")) && ok;
  views.setCurrentIndex(0);
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: wordtally-screenshots TEXTSDIR OUTDIR [SUFFIX]\n");
    return 2;
  }
  // Absolute, because checking a file makes its folder the current one.
  const QDir texts(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
  const QDir outDir(QDir(QString::fromLocal8Bit(argv[2])).absolutePath());
  const QString suffix = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
  const auto path = [&](const char* name) { return outDir.filePath(name + suffix + ".png"); };
  QTemporaryDir work;
  if (!work.isValid()) return 1;

  MainWindow window(work.filePath("qzl.usr"));
  window.host().SetAnswerProvider([](const wordtally::MessageBoxRequest& request) {
    std::fprintf(stderr, "message \"%s\": %s\n", request.title.c_str(), request.text.c_str());
    return request.defaultButton;
  });
  window.show();
  window.Start();
  ChooseFiles(window, texts.filePath("news_from_nowhere.htm"), work.filePath("words.txt"));

  bool ok = true;
  bool runningShot = false;
  QTimer halfWay;  // fires at the turns of the event loop that the run gives
  QObject::connect(&halfWay, &QTimer::timeout, &window, [&] {
    const int halfBar = wordtally::kProgressBarWidth / 2;
    if (runningShot || window.context().run.intProgressBarPosition < halfBar) return;
    runningShot = true;
    ok = Save(window, path("main-window-running")) && ok;
  });
  QTimer::singleShot(500, &window, [&] {
    halfWay.start(0);
    window.findChild<QPushButton*>("cmdCount")->click();  // returns when the run has ended
    halfWay.stop();
    ok = runningShot && Save(window, path("main-window-done")) && ok;
    ok = ShootResultsViews(window, texts.filePath("kjv_genesis.txt"), path) && ok;
    window.settingsWindow().show();
    QTimer::singleShot(300, &window, [&] {
      ok = Save(window.settingsWindow(), path("settings-window")) && ok;
      app.quit();
    });
  });
  app.exec();
  return ok ? 0 : 1;
}
