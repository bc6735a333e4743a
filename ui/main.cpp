// wordtally-gui: the desktop program.
#include <QApplication>
#include <QTimer>

#include "ui/main_window.h"
#include "ui/settings_persistence.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("wordtally"));
  QCoreApplication::setApplicationVersion(QStringLiteral(WORDTALLY_VERSION));

  wordtally::ui::MainWindow window(wordtally::ui::DefaultStateFilePath());
  window.show();
  // Restoring may show messages: do it once the window is on the screen.
  QTimer::singleShot(0, &window, &wordtally::ui::MainWindow::Start);
  return app.exec();
}
