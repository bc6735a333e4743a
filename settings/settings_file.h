#pragma once
// Settings files: the state file kept between sessions and the named settings files the user
// saves and loads. Both hold the whole CountingSettings record in the format of
// settings_format.h.
#include <string>
#include <string_view>

#include "engine/counting_settings.h"
#include "support/ansi_text.h"

namespace wordtally {

// The state file's name; the desktop program keeps it in the user's configuration folder.
inline constexpr std::string_view kStateFileName = "qzl.usr";
// The extension of named settings files.
inline constexpr std::string_view kSettingsFileExtension = "qzl";

// Paths are file-system names as the system spells them (UTF-8 here); error texts are
// Windows-1252 with CR LF line breaks, ready for a message box.

// Writes the record to path through a temporary file beside it, so that a failed save leaves
// the old file as it was. Creates the folder when it is missing.
bool SaveSettingsFile(const std::string& path, const CountingSettings& settings, AnsiString& error);

// Reads the record from path. A missing, unreadable, foreign or damaged file, or one of an
// unsupported version, is refused with an error text and changes nothing in settings.
// strWordsToIgnore is left alone: the caller prepares it from the loaded txbWordsToIgnore
// with txbWordsToIgnore_LostFocus.
bool LoadSettingsFile(const std::string& path, CountingSettings& settings, AnsiString& error);

}  // namespace wordtally
