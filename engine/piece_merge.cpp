#include "engine/piece_merge.h"

#include <string_view>
#include <utility>
#include <vector>

#include "engine/piece_counter.h"
#include "engine/word_hash.h"
#include "engine/word_counting.h"

namespace wordtally {
namespace {

// A charset declaration in an HTML head switched the decoding to UTF-8 at this point of the run.
void SwitchUtf8On(EngineContext& ctx) {
  if (ctx.settings.chkUTF8 == 1) return;
  ctx.settings.chkUTF8 = 1;
  ctx.host.SettingsChanged();
}

struct PieceWord {
  std::string_view word;
  int32_t frequency;
  uint64_t hash;
};

// The store's words with their counts and hashes, indexed by id: the order of arrival.
std::vector<PieceWord> WordsByArrival(const WordStore& store) {
  std::vector<PieceWord> words(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&words](std::string_view word, int32_t frequency, int32_t id) {
    words[static_cast<size_t>(id)] = {word, frequency, WordHashOf(word)};
  });
  return words;
}

// How many words ahead the run's store is asked for the index slot, and then for the entry, of
// the word it will look up: the lookups of a piece's thousands of words are known in advance, and
// the store is not in this core's cache while the workers count.
constexpr size_t kSlotsAhead = 16;
constexpr size_t kEntriesAhead = 8;

}  // namespace

void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece) {
  const EngineContext& counted = piece.counted->ctx;
  const auto words = WordsByArrival(counted.store);
  for (size_t id = 0; id < words.size(); ++id) {
    if (id + kSlotsAhead < words.size()) ctx.store.PrefetchSlot(words[id + kSlotsAhead].hash);
    if (id + kEntriesAhead < words.size()) ctx.store.PrefetchEntry(words[id + kEntriesAhead].hash);
    if (static_cast<int32_t>(id) == piece.utf8SwitchAt) SwitchUtf8On(ctx);
    const PieceWord& w = words[id];
    bool isNew;
    const int32_t mergedId = ctx.store.CountWord(w.word, w.hash, isNew, w.frequency);
    if (ctx.fileTally != nullptr) ctx.fileTally->Add(mergedId, w.frequency);
    if (isNew) AnnounceNewWord(ctx, w.word);
  }
  if (piece.exit.IsUtf8()) SwitchUtf8On(ctx);
  ctx.run.lngTotalNumOccurrences += counted.run.lngTotalNumOccurrences;
  ctx.run.lngNumWordsIgnored += counted.run.lngNumWordsIgnored;
}

}  // namespace wordtally
