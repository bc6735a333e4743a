#pragma once
// Merging a counted stretch of a file (a piece counted on a worker thread, or a part counted by
// another process) into the run's store on the main thread, as if its lines had been read there:
// its words are visited in the order they arrived in the stretch, so that a word new to the run's
// store is new in the order a one-thread run finds it, and is echoed then.
#include <cstdint>
#include <string_view>
#include <vector>

namespace wordtally {

struct EngineContext;
struct CountedPiece;
class LinePreparer;
class WordStore;

// A stretch's word with its count and its hash (WordHashOf).
struct ArrivedWord {
  std::string_view word;
  int32_t frequency = 0;
  uint64_t hash = 0;
};
// A stretch's words in the order they arrived.
using WordsByArrival = std::vector<ArrivedWord>;
WordsByArrival WordsInArrivalOrder(const WordStore& store);

// What merging takes from a counted stretch.
struct StretchCounts {
  WordsByArrival words;
  int32_t occurrences = 0;   // the stretch's lngTotalNumOccurrences
  int32_t wordsIgnored = 0;  // its lngNumWordsIgnored
  // The stretch's number of distinct words when its lines switched UTF-8 on; -1: no switch.
  int32_t utf8SwitchAt = -1;
  bool exitUtf8 = false;  // the UTF-8 decision its last line left
};

// True when a stretch counted from the state assumed (comments taken as closed) gives what
// reading it here would: it was read to its end, the state here is the one assumed and outside
// every comment, and its occurrences add to ctx's without passing 2147483647.
bool MergesExactly(const EngineContext& ctx, const LinePreparer& here, const LinePreparer& assumed,
                   bool complete, int32_t occurrences);

// Adds the stretch's words with their counts and its totals to ctx. The caller has checked that
// no count passes 2147483647.
void MergeStretch(EngineContext& ctx, const StretchCounts& stretch);
void MergeCountedPiece(EngineContext& ctx, const CountedPiece& piece);

}  // namespace wordtally
