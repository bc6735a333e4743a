#include "ui/guarded_application.h"

#include <QMessageBox>

#include <exception>
#include <new>

#include "engine/program_texts.h"
#include "engine/run_driver.h"
#include "support/run_error.h"
#include "ui/qt_text.h"

namespace wordtally::ui {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    ReportUncaughtError(receiver->metaObject()->className());
  }
  return false;
}

// Called inside a catch handler: the error being handled is rethrown to tell its kind.
void ReportUncaughtError(std::string_view procedure) {
  int number = kErrInternal;
  AnsiString description = "Unknown error";
  try {
    throw;
  } catch (const std::bad_alloc&) {
    number = kErrOutOfMemory;
    description = "Out of memory";
  } catch (const std::exception& e) {
    description = e.what();
  } catch (...) {
  }
  QMessageBox::warning(nullptr, ToQString(texts::kErrorReportTitle),
                       ToDisplayText(ErrorReportText(number, description,
                                                     texts::kErrorReportPrefix, procedure)));
}

}  // namespace wordtally::ui
