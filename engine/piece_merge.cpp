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

// The store's words with their counts, indexed by id: the order of arrival.
std::vector<std::pair<std::string_view, int32_t>> WordsByArrival(const WordStore& store) {
  std::vector<std::pair<std::string_view, int32_t>> words(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&words](std::string_view word, int32_t frequency, int32_t id) {
    words[static_cast<size_t>(id)] = {word, frequency};
  });
  return words;
}

}  // namespace

void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece) {
  const EngineContext& counted = piece.counted->ctx;
  const auto words = WordsByArrival(counted.store);
  for (size_t id = 0; id < words.size(); ++id) {
    if (static_cast<int32_t>(id) == piece.utf8SwitchAt) SwitchUtf8On(ctx);
    bool isNew;
    const int32_t mergedId = ctx.store.CountWord(words[id].first, isNew, words[id].second);
    if (ctx.fileTally != nullptr) ctx.fileTally->Add(mergedId, words[id].second);
    if (isNew) AnnounceNewWord(ctx, words[id].first);
  }
  if (piece.exit.IsUtf8()) SwitchUtf8On(ctx);
  ctx.run.lngTotalNumOccurrences += counted.run.lngTotalNumOccurrences;
  ctx.run.lngNumWordsIgnored += counted.run.lngNumWordsIgnored;
}

}  // namespace wordtally
