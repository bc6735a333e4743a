// wordtally-gui: the desktop program.
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
    // Restoring may show messages: do it once the window is on the screen.
    QTimer::singleShot(0, &window, &wordtally::ui::MainWindow::Start);
    return app.exec();
  } catch (...) {
    wordtally::ui::ReportUncaughtError("main");
  }
  return 1;
}
