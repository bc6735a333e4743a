#pragma once
// Word normalisation: turns a candidate word cut from a line into the word that is counted
// (entity tail cut, trailing "-" and '"' removed, English plural made singular, apostrophe
// fragments and words without a vowel dropped). A dropped word comes out empty.
#include <array>
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

struct CountingSettings;
struct RunState;

// What the pipeline reads from the settings and the run, gathered once so that the per-word
// path does not chase them.
struct NormalizationOptions {
  bool blnCharacterEntitiesPossible = false;
  bool blnReadingWords = false;
  bool dropFinalS = false;        // chkDropFinalS
  bool caseSignificant = false;   // chkCaseSignificant
  bool allowApostrophes = false;  // chkAllowWordsWithApostrophes
  bool ignoreNoVowel = true;      // chkIgnoreNoVowel
};
NormalizationOptions MakeNormalizationOptions(const CountingSettings& settings, const RunState& run);

// The word pipeline on a view of the candidate word: the word to count, or "" when it is dropped.
// Most steps only shorten the view; the plural rules rewrite the word into scratch, and the result
// then lives there. Nothing is allocated once scratch has grown.
std::string_view NormalizeWord(std::string_view word, const NormalizationOptions& options,
                               AnsiString& scratch);
// The same pipeline on a word of its own.
void NormalizeWord(AnsiString& word, const NormalizationOptions& options);

// True when word ends in ending; without caseSensitive both are compared lower-cased.
bool EndsWith(std::string_view word, std::string_view ending, bool caseSensitive);
// Replaces the ending by replacement when EndsWith(word, ending, caseSensitive); true if it did.
bool ReplaceEnding(AnsiString& word, std::string_view ending, std::string_view replacement,
                   bool caseSensitive);
// True when every character is a capital letter (A-Z, Š Œ Ÿ and À-Þ but ×); true for "".
bool IsAllUpperCase(std::string_view text);
// The English plural rules, in place: "cities" -> "city", "wishes" -> "wish", "trees" -> "tree".
void EnglishPluralToSingular(AnsiString& word, bool caseSensitive);
namespace detail {
inline constexpr std::string_view kContractionStems =
    "aren couldn didn doesn hadn hasn isn shouldn wasn weren wouldn ";
// The characters that come just before a blank in the stems.
inline constexpr std::array<bool, 256> kPrecedesStemBlank = [] {
  std::array<bool, 256> table{};
  for (size_t i = 1; i < kContractionStems.size(); ++i) {
    if (kContractionStems[i] == ' ') table[static_cast<unsigned char>(kContractionStems[i - 1])] = true;
  }
  return table;
}();
bool IsContractionStemSearched(std::string_view word);
}  // namespace detail

// True when the lower-cased word and a blank occur in the stems of negative contractions
// ("couldn", and so any ending of one such as "n" or "en"). Inline: only a word whose last
// character comes just before a blank in the stems can match, and that test settles almost every
// word on the per-word path.
inline bool IsContractionStem(std::string_view word) {
  if (!word.empty() &&
      !detail::kPrecedesStemBlank[LowerAnsiChar(static_cast<unsigned char>(word.back()))]) {
    return false;
  }
  return detail::IsContractionStemSearched(word);
}
// True when the word is empty or holds no vowel, "y" or "Y".
bool HasNoVowel(std::string_view word);
// Removes characters of chars from the end of the word while there are any.
void StripTrailingChars(AnsiString& word, std::string_view chars);

}  // namespace wordtally
