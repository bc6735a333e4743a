#include "ui/settings_persistence.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "settings/settings_file.h"
#include "ui/qt_text.h"

namespace wordtally::ui {
namespace {

void Report(Host& host, std::string_view title, const AnsiString& error) {
  host.ShowMessage({AnsiString(title), error, MessageIcon::Exclamation, MessageButtons::Ok,
                    Answer::Ok});
}

}  // namespace

QString DefaultStateFilePath() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  return QDir(folder).filePath(PathToQString(std::string(kStateFileName)));
}

void RestoreSavedState(const QString& stateFile, CountingSettings& settings, Host& host) {
  // A first start has no state file yet: the defaults stand, without a message.
  if (!QFileInfo::exists(stateFile)) return;
  LoadNamedSettings(stateFile, settings, host);
}

bool SaveState(const QString& stateFile, const CountingSettings& settings, Host& host) {
  return SaveNamedSettings(stateFile, settings, host);
}

bool LoadNamedSettings(const QString& path, CountingSettings& settings, Host& host) {
  AnsiString error;
  if (!LoadSettingsFile(PathFromQString(path), settings, error)) {
    Report(host, kSettingsNotLoadedTitle, error);
    return false;
  }
  txbWordsToIgnore_LostFocus(settings, host);
  return true;
}

bool SaveNamedSettings(const QString& path, const CountingSettings& settings, Host& host) {
  AnsiString error;
  if (!SaveSettingsFile(PathFromQString(path), settings, error)) {
    Report(host, kSettingsNotSavedTitle, error);
    return false;
  }
  return true;
}

}  // namespace wordtally::ui
