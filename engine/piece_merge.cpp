#include "engine/piece_merge.h"

#include <limits>
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

}  // namespace

WordsByArrival WordsInArrivalOrder(const WordStore& store) {
  WordsByArrival words(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&words](std::string_view word, int32_t frequency, int32_t id) {
    words[static_cast<size_t>(id)] = {word, frequency};
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
    if (static_cast<int32_t>(id) == stretch.utf8SwitchAt) SwitchUtf8On(ctx);
    bool isNew;
    const int32_t mergedId = ctx.store.CountWord(words[id].first, isNew, words[id].second);
    if (ctx.fileTally != nullptr) ctx.fileTally->Add(mergedId, words[id].second);
    if (isNew) AnnounceNewWord(ctx, words[id].first);
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
