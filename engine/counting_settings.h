#pragma once
// The one record of every counting and listing option, with the values derived from it.
// Fields carry the names of the controls that show them; a check box holds 0 or 1.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/text_rules.h"
#include "engine/words_to_ignore.h"
#include "support/ansi_text.h"

namespace wordtally {

class Host;

struct CountingSettings {
  // Settings window.
  int chkCaseSignificant = 0;
  int chkAllowWordsWithHyphens = 1;
  int chkAllowWordsWithApostrophes = 0;
  int chkAllowWordsWithNumerals = 0;
  int chkDropFinalS = 0;
  int chkOnly7bitASCII = 0;
  int chkIgnoreNoVowel = 1;
  int chkIgnoreCommonWords = 0;
  AnsiString txbCommonWordsFile;
  AnsiString txbWordsToIgnore;
  int chkIgnoreInfrequentWords = 0;
  int cboThresholdFrequency = 0;  // index into ThresholdItems(): 0 is "2"
  int chkAllowCommentMarkers = 1;
  std::array<AnsiString, 2> txbStartComment{"/*", "//"};
  std::array<AnsiString, 2> txbEndComment{"*/", ""};
  int chkOutputWithCommas = 0;
  int chkWarnOnOverwrite = 0;
  int chkSaveStateOnQuit = 0;
  int chkModernText = 0;  // the modern text rules (see TextRules) instead of the classic ones

  // Main window.
  bool optInFile = true;  // false: optOnClipboard
  int chkUTF8 = 0;
  int chkSuppressWords = 0;
  int cboWordOrder = 1;      // 0 "by frequency", 1 "alphabetical"
  int cboDisplayFormat = 0;  // index into DisplayFormatItems()
  int chkDisableOutputToFile = 0;
  std::array<AnsiString, 2> txbFile;  // 0: input file, 1: output file

  // Prepared from txbWordsToIgnore by txbWordsToIgnore_LostFocus: " and of the " or "".
  WordsToIgnore strWordsToIgnore;
};

// Derived values shared by the whole engine.
inline constexpr int16_t intMaxPermittedWordLength = 80;
inline constexpr std::string_view strAllPossibleExtraChars = "'0123456789-_@:/.\\";
inline constexpr std::string_view strProhibitedInitialOrFinalChars = "-'.:,()+";
inline constexpr std::string_view strCharsNeverAllowed = "+;<>\"";
// The shared letter set (119 characters, Windows-1252).
extern const std::string_view kLetterSet;
inline constexpr char kLeftSingleQuote = '\x91';  // U+2018 in Windows-1252

// Combo-box items, in the order the index refers to.
const std::vector<AnsiString>& ThresholdItems();      // "2" ... "9"
const std::vector<AnsiString>& WordOrderItems();      // "by frequency", "alphabetical"
const std::vector<AnsiString>& DisplayFormatItems();  // the ten formats
int16_t ThresholdFrequency(const CountingSettings& settings);  // the selected item's number

// Resets the settings-window options to their defaults, including the "C" comment markers;
// leaves chkIgnoreCommonWords, txbCommonWordsFile and txbWordsToIgnore alone.
void SetDefaultValues(CountingSettings& settings);
// The number of comment-marker pairs in force (pairs with a start marker).
int NumCommentMarkers(const CountingSettings& settings);

inline TextRules TextRulesOf(const CountingSettings& s) {
  return s.chkModernText == 1 ? TextRules::Modern : TextRules::Classic;
}

// An output file is named and output to file is not disabled.
inline bool OutputToFileActive(const CountingSettings& s) {
  return s.chkDisableOutputToFile != 1 && !s.txbFile[1].empty();
}

// strAllowedExtraChars: "-", "'" and U+2018, and the digits, as the three options allow.
AnsiString SetAllowedExtraChars(const CountingSettings& settings);

// Lower-cases with the code page's mapping (Œ, Æ and Þ go through the ordinary lower-casing).
AnsiString LowerCaseLatin1(std::string_view text);

// Tidies txbWordsToIgnore (lower case, commas to blanks, single blanks, sorted), writes it back,
// prepares strWordsToIgnore and then runs CheckAllowedExtraChars.
void txbWordsToIgnore_LostFocus(CountingSettings& settings, Host& host);
// True when every character of the words to ignore may occur in a word; otherwise warns
// ("Character not allowed") and returns false.
bool CheckAllowedExtraChars(const CountingSettings& settings, Host& host);

}  // namespace wordtally
