// wordtally-gui [FILE...]: the desktop program, with FILE as its input file when one is named, or
// the files and folders named as the inputs of a corpus run.
#include <QApplication>
#include <QTimer>

#include "ui/guarded_application.h"
#include "ui/main_window.h"
#include "ui/settings_persistence.h"

int main(int argc, char** argv) {
  wordtally::ui::GuardedApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("wordtally"));
  QCoreApplication::setApplicationVersion(QStringLiteral(WORDTALLY_VERSION));
  try {
    wordtally::ui::MainWindow window(wordtally::ui::DefaultStateFilePath());
    window.show();
    // Restoring may show messages: do it once the window is on the screen. A file named on the
    // command line (a file manager's "Open with") becomes the input file; several make a corpus.
    const QStringList arguments = QCoreApplication::arguments();
    QTimer::singleShot(0, &window, [&window, arguments] {
      window.Start();
      if (arguments.size() > 1) window.OpenInputs(arguments.mid(1));
    });
    return app.exec();
  } catch (...) {
    wordtally::ui::ReportUncaughtError("main");
  }
  return 1;
}
