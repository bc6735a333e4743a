#pragma once
// The desktop program's application object: an error that escapes an event handler is shown in
// the error report (running out of memory as error 7) instead of ending the program.
#include <QApplication>
#include <string_view>

namespace wordtally::ui {

class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

// Shows the error report for the error being handled, which no run procedure caught; call it
// only from a catch handler. Out of memory is error 7, any other error 51.
void ReportUncaughtError(std::string_view procedure);

}  // namespace wordtally::ui
