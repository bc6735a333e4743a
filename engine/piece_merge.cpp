#include "engine/piece_merge.h"

#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/piece_counter.h"
#include "engine/word_counting.h"
#include "engine/word_hash.h"

namespace wordtally {
namespace {

// A charset declaration in an HTML head switched the decoding to UTF-8 at this point of the run.
void SwitchUtf8On(EngineContext& ctx) {
  if (ctx.settings.chkUTF8 == 1) return;
  ctx.settings.chkUTF8 = 1;
  ctx.host.SettingsChanged();
}

// How many words ahead the run's store is asked for the index slot, and then for the entry, of
// the word it will look up: the lookups of a stretch's thousands of words are known in advance,
// and the store is not in this core's cache while the workers count.
constexpr size_t kSlotsAhead = 16;
constexpr size_t kEntriesAhead = 8;

}  // namespace

WordsByArrival WordsInArrivalOrder(const WordStore& store) {
  WordsByArrival words(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&words](std::string_view word, int32_t frequency, int32_t id) {
    words[static_cast<size_t>(id)] = {word, frequency, WordHashOf(word)};
  });
  return words;
}

bool MergesExactly(const EngineContext& ctx, const LinePreparer& here, const LinePreparer& assumed,
                   bool complete, int32_t occurrences) {
  const CommentState& comment = ctx.run.comment;
  const bool outsideComment = comment.intWithinComment == -1 && !comment.startMarkerPending;
  const int64_t total = int64_t{ctx.run.lngTotalNumOccurrences} + occurrences;
  return complete && here.SameStateAs(assumed) && outsideComment &&
         total <= std::numeric_limits<int32_t>::max();
}

void MergeStretch(EngineContext& ctx, const StretchCounts& stretch) {
  const WordsByArrival& words = stretch.words;
  for (size_t id = 0; id < words.size(); ++id) {
    if (id + kSlotsAhead < words.size()) ctx.store.PrefetchSlot(words[id + kSlotsAhead].hash);
    if (id + kEntriesAhead < words.size()) ctx.store.PrefetchEntry(words[id + kEntriesAhead].hash);
    if (static_cast<int32_t>(id) == stretch.utf8SwitchAt) SwitchUtf8On(ctx);
    const ArrivedWord& arrived = words[id];
    bool isNew;
    const int32_t mergedId = ctx.store.CountWord(arrived.word, arrived.hash, isNew,
                                                 arrived.frequency);
    if (ctx.fileTally != nullptr) ctx.fileTally->Add(mergedId, arrived.frequency);
    if (isNew) AnnounceNewWord(ctx, arrived.word);
  }
  if (stretch.exitUtf8) SwitchUtf8On(ctx);
  ctx.run.lngTotalNumOccurrences += stretch.occurrences;
  ctx.run.lngNumWordsIgnored += stretch.wordsIgnored;
}

void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece) {
  const EngineContext& counted = piece.counted->ctx;
  MergeStretch(ctx, {WordsInArrivalOrder(counted.store), counted.run.lngTotalNumOccurrences,
                     counted.run.lngNumWordsIgnored, piece.utf8SwitchAt, piece.exit.IsUtf8()});
}

}  // namespace wordtally
