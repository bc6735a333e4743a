#pragma once
// AddWordToList: counts one word in the store and echoes new words into the output textbox.
#include <cstdint>
#include <string_view>

namespace wordtally {

struct EngineContext;

inline constexpr int32_t lngMaxTextboxLength = 65000;
inline constexpr std::string_view kSuppressionNotice =
    "[Suppressing display of words to avoid buffer overflow.]";

// Counts one occurrence of word. A word longer than intMaxPermittedWordLength is dropped in
// silence. Throws RunError 6 on overflow.
void AddWordToList(EngineContext& ctx, std::string_view word);
// The same with the word's hash already made (WordHashOf(word)).
void AddWordToList(EngineContext& ctx, std::string_view word, uint64_t hash);
// AddWordToList for a word known to be stored, by its store id.
void CountStoredWord(EngineContext& ctx, int32_t id);

// What a word new to the store shows, just after it was stored: the first word replaces the
// output text, every tenth the word count, the others are echoed (up to the textbox's limit).
void AnnounceNewWord(EngineContext& ctx, std::string_view word);

}  // namespace wordtally
