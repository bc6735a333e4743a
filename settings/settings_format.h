#pragma once
// The text of a settings file: a header line, a format version and one key=value line per
// option of CountingSettings, keyed by the field's name. Numbers stand bare, texts in double
// quotes (see quoted_text.h); the file is UTF-8. For example:
//
//   [Wordtally settings]
//   # Text values stand in double quotes; \\ \" \r \n \t and \xHH are escapes.
//   version=1
//   chkCaseSignificant=0
//   ...
//   txbWordsToIgnore="and of the"
//   txbStartComment0="/*"
//   ...
//   txbFile0="/home/ann/Books/Café.txt"
//
// Blank lines and lines starting with '#' or ';' are comments. Blanks around keys and values are
// not significant. Unknown keys are ignored; a missing key keeps the record's value, except for
// options added after the first version (chkModernText), which are written only when on and are
// off when missing.
// strWordsToIgnore is not stored: it is derived from txbWordsToIgnore, and whoever loads a file
// prepares it again with txbWordsToIgnore_LostFocus.
#include <string>
#include <string_view>

#include "engine/counting_settings.h"
#include "support/ansi_text.h"

namespace wordtally {

inline constexpr std::string_view kSettingsHeader = "[Wordtally settings]";
inline constexpr int kSettingsFormatVersion = 1;

enum class SettingsVerdict {
  Accepted,
  Foreign,             // not a settings file of this program (no header)
  UnsupportedVersion,  // detail: the version text found
  Damaged,             // detail: "line N: ..." saying what is wrong
};

struct SettingsParseResult {
  SettingsVerdict verdict = SettingsVerdict::Accepted;
  AnsiString detail;
};

// The whole file text, lines ended by "\n".
std::string FormatSettings(const CountingSettings& settings);

// Reads a file text into settings. Anything but Accepted leaves settings exactly as they were.
SettingsParseResult ParseSettings(std::string_view text, CountingSettings& settings);

}  // namespace wordtally
