#include "engine/normalisation.h"

#include <algorithm>
#include <array>

#include "engine/counting_settings.h"
#include "engine/run_state.h"
#include "input/character_entities.h"
#include "support/ansi_text.h"

namespace wordtally {

namespace {

constexpr std::string_view kCapitalLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ\x8A\x8C\x9F"
    "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
    "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE";
constexpr std::string_view kVowels =
    "AEIOUaeiou"
    "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
    "\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC"
    "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
    "\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC"
    "Yy";
constexpr std::string_view kTrailingCharsRemoved = "-\"";

using CharTable = std::array<bool, 256>;

constexpr CharTable MakeTable(std::string_view chars) {
  CharTable table{};
  for (char c : chars) table[static_cast<unsigned char>(c)] = true;
  return table;
}

constexpr CharTable kIsCapital = MakeTable(kCapitalLetters);
constexpr CharTable kIsVowel = MakeTable(kVowels);

bool IsCapital(char c) { return kIsCapital[static_cast<unsigned char>(c)]; }

void TrimBlanksInPlace(AnsiString& word) {
  const std::string_view trimmed = TrimBlanks(std::string_view(word));
  if (trimmed.size() != word.size()) word = AnsiString(trimmed);
}

// Rule for "mice" and "lice"; true when it applied.
bool MiceToMouse(AnsiString& word, bool caseSensitive) {
  if (caseSensitive) {
    if (!EqualIgnoringCase(word, "mice") && !EqualIgnoringCase(word, "lice")) return false;
    word.resize(1);
    word += IsCapital(word[0]) ? "OUSE" : "ouse";
    return true;
  }
  if (word != "mice" && word != "lice") return false;
  word.resize(1);
  word += "ouse";
  return true;
}

// Replaces a lower-case ending, or its exact capital form when case is significant.
void ReplaceEndingKeepingCapitals(AnsiString& word, std::string_view ending,
                                  std::string_view capitalEnding, std::string_view replacement,
                                  std::string_view capitalReplacement, bool caseSensitive) {
  if (caseSensitive && EndsWith(word, capitalEnding, true)) {
    ReplaceEnding(word, capitalEnding, capitalReplacement, true);
  } else {
    ReplaceEnding(word, ending, replacement, false);
  }
}

bool IsOesException(std::string_view word, bool caseSensitive) {
  if (caseSensitive) return EqualIgnoringCase(word, "floes");
  return word == "floes" || word == "shoes";
}

// Cuts a trailing character-entity reference that lost its ";" when the word was cut out.
std::string_view CutEntityTail(std::string_view word) {
  const size_t ampersand = word.find('&');
  if (ampersand == std::string_view::npos) return word;
  AnsiString reference(word.substr(ampersand));
  reference += ';';
  return IsCharacterEntity(reference) ? word.substr(0, ampersand) : word;
}

std::string_view StripTrailing(std::string_view word, std::string_view chars) {
  // A plain loop over the few characters: a library search would call out for each word.
  auto removable = [chars](char c) { return std::find(chars.begin(), chars.end(), c) != chars.end(); };
  while (!word.empty() && removable(word.back())) word.remove_suffix(1);
  return word;
}

bool IsApostropheFragment(std::string_view word) {
  if (word.size() == 1) return EqualIgnoringCase(word, "s") || EqualIgnoringCase(word, "t");
  return IsContractionStem(word);
}

}  // namespace

NormalizationOptions MakeNormalizationOptions(const CountingSettings& settings, const RunState& run) {
  NormalizationOptions options;
  options.blnCharacterEntitiesPossible = run.blnCharacterEntitiesPossible;
  options.blnReadingWords = run.blnReadingWords;
  options.dropFinalS = settings.chkDropFinalS == 1;
  options.caseSignificant = settings.chkCaseSignificant == 1;
  options.allowApostrophes = settings.chkAllowWordsWithApostrophes == 1;
  options.ignoreNoVowel = settings.chkIgnoreNoVowel == 1;
  return options;
}

bool EndsWith(std::string_view word, std::string_view ending, bool caseSensitive) {
  if (word.size() < ending.size()) return false;
  const std::string_view tail = word.substr(word.size() - ending.size());
  return caseSensitive ? tail == ending : EqualIgnoringCase(tail, ending);
}

bool ReplaceEnding(AnsiString& word, std::string_view ending, std::string_view replacement,
                   bool caseSensitive) {
  if (!EndsWith(word, ending, caseSensitive)) return false;
  word.resize(word.size() - ending.size());
  word += replacement;
  return true;
}

bool IsAllUpperCase(std::string_view text) {
  for (char c : text) {
    if (!IsCapital(c)) return false;
  }
  return true;
}

void EnglishPluralToSingular(AnsiString& word, bool caseSensitive) {
  TrimBlanksInPlace(word);
  if (word.size() <= 2) return;
  if (EqualIgnoringCase(word, "rights") || EqualIgnoringCase(word, "species")) return;
  if (MiceToMouse(word, caseSensitive)) return;
  if (!EndsWith(word, "aies", false) && !EndsWith(word, "eies", false) &&
      EndsWith(word, "ies", false) && word.size() >= 5) {
    ReplaceEndingKeepingCapitals(word, "ies", "IES", "y", "Y", caseSensitive);
    return;
  }
  if (EndsWith(word, "shes", false) || EndsWith(word, "sses", false) || EndsWith(word, "zzes", false)) {
    word.resize(word.size() - 2);
    return;
  }
  if (EndsWith(word, "oes", false) && !IsOesException(word, caseSensitive)) {
    ReplaceEndingKeepingCapitals(word, "oes", "OES", "o", "O", caseSensitive);
    return;
  }
  if (EndsWith(word, "es", false) && !EndsWith(word, "ees", false) && !EndsWith(word, "aes", false) &&
      !EndsWith(word, "oes", false)) {
    ReplaceEndingKeepingCapitals(word, "es", "ES", "e", "E", caseSensitive);
    return;
  }
  if (!EndsWith(word, "ss", false) && !EndsWith(word, "us", false) && !EndsWith(word, "ics", false) &&
      !EndsWith(word, "is", false) && EndsWith(word, "s", false)) {
    word.pop_back();
  }
}

bool detail::IsContractionStemSearched(std::string_view word) {
  // The lower-cased word and its blank fit in a small buffer whenever they can match at all.
  std::array<char, detail::kContractionStems.size()> probe;
  if (word.size() >= probe.size()) return false;
  std::copy(word.begin(), word.end(), probe.begin());
  LowerAnsiInPlace(probe.data(), word.size());
  probe[word.size()] = ' ';
  return detail::kContractionStems.find(std::string_view(probe.data(), word.size() + 1)) != std::string_view::npos;
}

bool HasNoVowel(std::string_view word) {
  for (char c : word) {
    if (kIsVowel[static_cast<unsigned char>(c)]) return false;
  }
  return true;
}

void StripTrailingChars(AnsiString& word, std::string_view chars) {
  word.resize(StripTrailing(word, chars).size());
}

std::string_view NormalizeWord(std::string_view word, const NormalizationOptions& options,
                               AnsiString& scratch) {
  if (word.empty()) return {};
  if (options.blnCharacterEntitiesPossible) {
    word = CutEntityTail(word);
    if (word.empty()) return {};
  }
  word = StripTrailing(word, kTrailingCharsRemoved);
  if (options.dropFinalS && !options.blnReadingWords) {
    scratch.assign(word);
    EnglishPluralToSingular(scratch, options.caseSignificant);
    word = scratch;
  }
  if (!options.allowApostrophes && !options.blnReadingWords && IsApostropheFragment(word)) {
    return {};
  }
  if (options.ignoreNoVowel && HasNoVowel(word)) return {};
  return word;
}

void NormalizeWord(AnsiString& word, const NormalizationOptions& options) {
  AnsiString scratch;
  word = AnsiString(NormalizeWord(std::string_view(word), options, scratch));
}

}  // namespace wordtally
