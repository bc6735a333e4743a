#pragma once
// The desktop program's side of settings persistence: where the state file lives, and the
// messages when a settings file cannot be read or written. The file format is the settings module's.
#include <QString>

#include "engine/counting_settings.h"
#include "support/host.h"

namespace wordtally::ui {

inline constexpr std::string_view kSettingsNotLoadedTitle = "Settings not loaded";
inline constexpr std::string_view kSettingsNotSavedTitle = "Settings not saved";

// "qzl.usr" in the user's configuration folder.
QString DefaultStateFilePath();

// Restores the state file when there is one; a damaged one is reported and changes nothing.
void RestoreSavedState(const QString& stateFile, CountingSettings& settings, Host& host);
// Saves to the state file; a failure is reported.
bool SaveState(const QString& stateFile, const CountingSettings& settings, Host& host);

// A named settings file; false after telling the user why not. A loaded file's words to ignore
// are prepared again.
bool LoadNamedSettings(const QString& path, CountingSettings& settings, Host& host);
bool SaveNamedSettings(const QString& path, const CountingSettings& settings, Host& host);

}  // namespace wordtally::ui
