#include "engine/piece_merge.h"

#include <string_view>
#include <utility>
#include <vector>

#include "engine/piece_counter.h"
#include "engine/word_counting.h"

namespace wordtally {
namespace {

// A charset declaration in an HTML head switched the decoding to UTF-8 at this point of the run.
void SwitchUtf8On(EngineContext& ctx) {
  if (ctx.settings.chkUTF8 == 1) return;
  ctx.settings.chkUTF8 = 1;
  ctx.host.SettingsChanged();
}

struct ArrivedWord {
  std::string_view word;
  int32_t frequency;
  uint64_t hash;
};

// The store's words with their counts and hashes, indexed by id: the order of arrival.
std::vector<ArrivedWord> WordsByArrival(const WordStore& store) {
  std::vector<ArrivedWord> words(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&words](std::string_view word, int32_t frequency, int32_t id) {
    words[static_cast<size_t>(id)] = {word, frequency, WordHashOf(word)};
  });
  return words;
}

}  // namespace

// Most lookups in the run's store miss the cache when the pieces bring many new words: the slot
// of a word some places ahead is fetched while the words before it are counted.
void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece) {
  constexpr size_t kSlotsAhead = 8;
  const EngineContext& counted = piece.counted->ctx;
  const auto words = WordsByArrival(counted.store);
  for (size_t id = 0; id < words.size(); ++id) {
    if (id + kSlotsAhead < words.size()) ctx.store.PrefetchSlotOf(words[id + kSlotsAhead].hash);
    if (static_cast<int32_t>(id) == piece.utf8SwitchAt) SwitchUtf8On(ctx);
    const ArrivedWord& arrived = words[id];
    bool isNew;
    const int32_t mergedId = ctx.store.CountWord(arrived.word, arrived.hash, isNew, arrived.frequency);
    if (ctx.fileTally != nullptr) ctx.fileTally->Add(mergedId, arrived.frequency);
    if (isNew) AnnounceNewWord(ctx, arrived.word);
  }
  if (piece.exit.IsUtf8()) SwitchUtf8On(ctx);
  ctx.run.lngTotalNumOccurrences += counted.run.lngTotalNumOccurrences;
  ctx.run.lngNumWordsIgnored += counted.run.lngNumWordsIgnored;
}

}  // namespace wordtally
