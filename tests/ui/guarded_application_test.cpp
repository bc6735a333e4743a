// The desktop program's application object turns an error that escapes an event handler into
// the error report instead of ending the program.
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QDebug>

#include <new>
#include <stdexcept>

#include "ui/guarded_application.h"

namespace {

// An object whose events throw what it was told to.
class Thrower : public QObject {
 public:
  explicit Thrower(bool outOfMemory) : outOfMemory_(outOfMemory) {}
  bool event(QEvent*) override {
    if (outOfMemory_) throw std::bad_alloc();
    throw std::runtime_error("broken");
  }

 private:
  bool outOfMemory_;
};

// Sends an event to a thrower and returns the text of the message box that reports it.
QString ReportOf(bool outOfMemory) {
  Thrower thrower(outOfMemory);
  QString shown;
  QTimer::singleShot(0, [&shown] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      shown = box->text();
      box->accept();
    }
  });
  QEvent event(QEvent::User);
  QApplication::sendEvent(&thrower, &event);
  return shown;
}

}  // namespace

int main(int argc, char** argv) {
  wordtally::ui::GuardedApplication app(argc, argv);
  const QString outOfMemory = ReportOf(true);
  const QString other = ReportOf(false);
  const bool passed = outOfMemory.endsWith("At QObject error #7.\nDescription: Out of memory") &&
                      other.endsWith("At QObject error #51.\nDescription: broken");
  if (!passed) qWarning() << "reports:" << outOfMemory << other;
  return passed ? 0 : 1;
}
