#pragma once
// The exclusion step between word extraction and the word store (the 7-bit test, the words to
// ignore and the common words), and the loading of the common-words list it searches.
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/counting_settings.h"
#include "support/ansi_text.h"

namespace wordtally {

struct EngineContext;

// True when no exclusion step is on, so that every word goes straight to AddWordToList. Inline:
// the per-word path asks it.
inline bool NoExclusions(const CountingSettings& settings) {
  return settings.chkOnly7bitASCII != 1 && settings.strWordsToIgnore.empty() &&
         settings.chkIgnoreCommonWords != 1;
}

// Counts the word through AddWordToList unless it is excluded. Instances excluded by the 7-bit
// test or by the words to ignore are counted in ctx.run.lngNumWordsIgnored.
void GetWords2(EngineContext& ctx, std::string_view word);
// The same with the word's hash already made (WordHashOf(word)).
void GetWords2(EngineContext& ctx, std::string_view word, uint64_t hash);

// True when text is not empty and every character's code is below 128.
bool Is7BitASCII(std::string_view text);

// Binary search of key in list[1..count] (list[i - 1] is entry i), comparing the entries from
// their 1-based character startChar on. Found: true and the entry's index in position; else
// false and the negated insertion index (-1 before entry 1, -(count + 1) after entry count).
bool BinarySearchStrings(std::string_view key, const std::vector<AnsiString>& list, int32_t count,
                         int32_t& position, int32_t startChar);

inline constexpr std::string_view kCommonWordsNotFoundTitle = "File not found";
inline constexpr std::string_view kCommonWordsNotFound = "File for common words not found.";
inline constexpr std::string_view kCommonWordsLoadedTitle = "Common words loaded";
inline constexpr std::string_view kReadingCommonWordsStatus = "Now reading common words ...";

// Reads ctx.commonWords.strCommonWordsFile into ctx.commonWords (sorted, distinct, lower case),
// using the word store as its collector. False, with the message shown, when the file is missing,
// refused by vetting or unreadable, and (silently) when the user stops the load.
bool ReadCommonWords(EngineContext& ctx);

// Loads the common-words file with the controls disabled and tells the user the outcome: on
// success "Common words loaded", txbCommonWordsFile set and chkIgnoreCommonWords 1; on failure
// chkIgnoreCommonWords 0.
bool AttemptToReadCommonWords(EngineContext& ctx);

}  // namespace wordtally
