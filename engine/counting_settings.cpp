#include "engine/counting_settings.h"

#include <algorithm>

#include "input/comment_markers.h"
#include "support/host.h"

namespace wordtally {

const std::string_view kLetterSet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ\x8A\x8C\x9F"
    "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
    "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE"
    "abcdefghijklmnopqrstuvwxyz\x9A\x9C\xFF"
    "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
    "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xDF";

const std::vector<AnsiString>& ThresholdItems() {
  static const std::vector<AnsiString> items = {"2", "3", "4", "5", "6", "7", "8", "9"};
  return items;
}

const std::vector<AnsiString>& WordOrderItems() {
  static const std::vector<AnsiString> items = {"by frequency", "alphabetical"};
  return items;
}

const std::vector<AnsiString>& DisplayFormatItems() {
  static const std::vector<AnsiString> items = {
      "rank frequency word", "rank word frequency", "rank frequency", "rank word",
      "frequency rank",      "frequency word",      "word rank",      "word frequency",
      "word",                "word (+ commas)"};
  return items;
}

int16_t ThresholdFrequency(const CountingSettings& settings) {
  const int index = std::clamp(settings.cboThresholdFrequency, 0,
                               static_cast<int>(ThresholdItems().size()) - 1);
  return static_cast<int16_t>(std::stoi(ThresholdItems()[index]));
}

void SetDefaultValues(CountingSettings& settings) {
  settings.chkCaseSignificant = 0;
  settings.chkAllowWordsWithHyphens = 1;
  settings.chkAllowWordsWithApostrophes = 0;
  settings.chkAllowWordsWithNumerals = 0;
  settings.chkDropFinalS = 0;
  settings.chkOnly7bitASCII = 0;
  settings.chkIgnoreNoVowel = 1;
  settings.chkIgnoreInfrequentWords = 0;
  settings.cboThresholdFrequency = 0;
  settings.chkAllowCommentMarkers = 1;
  const CommentMarkerPairs c = CommentSyntax("C");
  settings.txbStartComment = c.start;
  settings.txbEndComment = c.end;
  settings.chkOutputWithCommas = 0;
  settings.chkWarnOnOverwrite = 0;
  settings.chkSaveStateOnQuit = 0;
  settings.chkModernText = 0;
}

int NumCommentMarkers(const CountingSettings& settings) {
  if (settings.chkAllowCommentMarkers != 1) return 0;
  return static_cast<int>(std::count_if(settings.txbStartComment.begin(),
                                        settings.txbStartComment.end(),
                                        [](const AnsiString& s) { return !s.empty(); }));
}

AnsiString SetAllowedExtraChars(const CountingSettings& settings) {
  AnsiString chars;
  if (settings.chkAllowWordsWithHyphens == 1) chars += '-';
  if (settings.chkAllowWordsWithApostrophes == 1) {
    chars += '\'';
    chars += kLeftSingleQuote;
  }
  if (settings.chkAllowWordsWithNumerals == 1) chars += "0123456789";
  return chars;
}

AnsiString LowerCaseLatin1(std::string_view text) { return LowerAnsi(text); }

namespace {

// Lower case, commas to blanks, single blanks, the words sorted in code-unit order.
AnsiString TidyWordsToIgnore(std::string_view text) {
  AnsiString lowered = LowerCaseLatin1(TrimBlanks(text));
  std::replace(lowered.begin(), lowered.end(), ',', ' ');
  std::vector<AnsiString> words;
  size_t start = 0;
  while (start < lowered.size()) {
    const size_t end = std::min(lowered.find(' ', start), lowered.size());
    if (end > start) words.push_back(lowered.substr(start, end - start));
    start = end + 1;
  }
  std::sort(words.begin(), words.end(), LessCodeUnits);
  AnsiString joined;
  for (const AnsiString& w : words) joined += (joined.empty() ? "" : " ") + w;
  return joined;
}

}  // namespace

void txbWordsToIgnore_LostFocus(CountingSettings& settings, Host& host) {
  const std::string_view trimmed = TrimBlanks(settings.txbWordsToIgnore);
  if (trimmed.empty()) {
    settings.strWordsToIgnore.clear();
    return;
  }
  settings.txbWordsToIgnore = TidyWordsToIgnore(trimmed);
  settings.strWordsToIgnore = " " + settings.txbWordsToIgnore + " ";
  CheckAllowedExtraChars(settings, host);
}

bool CheckAllowedExtraChars(const CountingSettings& settings, Host& host) {
  if (settings.txbWordsToIgnore.empty()) return true;
  const AnsiString allowed = SetAllowedExtraChars(settings);
  for (char c : settings.txbWordsToIgnore) {
    if (c == ' ' || kLetterSet.find(c) != std::string_view::npos ||
        allowed.find(c) != AnsiString::npos) {
      continue;
    }
    const bool neverAllowed = strCharsNeverAllowed.find(c) != std::string_view::npos;
    AnsiString text = AnsiString("The character ") + c + " occurs in some word to ignore\r\n" +
                      "but is not " + (neverAllowed ? "" : "currently set as ") +
                      "a character allowed in a word.";
    if (c == ',') text += "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
    host.ShowMessage({"Character not allowed", text, MessageIcon::Exclamation, MessageButtons::Ok});
    return false;
  }
  return true;
}

}  // namespace wordtally
