#pragma once
// The word store: the distinct words of one run with their counts.
//
// Records are read as WordList[1..lngNumWords] in ascending binary (code-unit) order of Word,
// element 0 unused. Counting does not keep that order as it goes: a hash index finds a known word
// in O(1) and a new word costs no shift; the sorted records are produced when they are read.
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include <absl/container/flat_hash_map.h>

#include "support/ansi_text.h"

namespace wordtally {

struct WordListEntry {
  AnsiString Word;
  AnsiString SortKey;
  int32_t Frequency = 0;
  int32_t FreqOrder = 0;
  int32_t NextByFreq = 0;
  bool Included = false;
};

// The key for the alphabetical listing: "Œ Ä Æ Ö Ü ä æ ö ü ß" transliterated to two letters,
// accents folded, then lower-cased. "Straße" -> "strasse", "Élan" -> "elan".
AnsiString MakeSortKey(std::string_view word);

// Binary search with the midpoint rules of the store's lookup over list[1..n] (ascending code-unit
// order). Returns true and the index in position when found; otherwise the negated insertion
// index (-1 before element 1, -(n+1) after element n). at(i) gives element i as a string_view.
template <typename At>
bool BinarySearchSorted(std::string_view key, At at, int32_t n, int32_t& position) {
  if (n == 0 || LessCodeUnits(key, at(1))) {
    position = -1;
    return false;
  }
  if (LessCodeUnits(at(n), key)) {
    position = -(n + 1);
    return false;
  }
  if (n == 1) {
    position = 1;
    return true;
  }
  int32_t low = 1, high = n, mid = n / 2;
  for (;;) {
    const int c = CompareCodeUnits(key, at(mid));
    if (c == 0) {
      position = mid;
      return true;
    }
    if (c > 0) {
      if (mid == high) {
        position = -(high + 1);
        return false;
      }
      low = mid + 1;
      mid = mid + (high - mid + 1) / 2;
    } else {
      if (mid == low) {
        position = -low;
        return false;
      }
      high = mid - 1;
      mid = mid - (mid - low + 1) / 2;
    }
  }
}

class WordStore {
 public:
  static constexpr int32_t kGrowthStep = 500;

  WordStore();
  WordStore(const WordStore&) = delete;
  WordStore& operator=(const WordStore&) = delete;

  // Discards every record; the capacity goes back to 500.
  void Reset();

  int32_t lngNumWords() const { return numWords_; }
  // The array's upper bound: 500, then 1000, 1500, ... as words arrive.
  int32_t UpperBound() const { return upperBound_; }

  // Counts one occurrence. Returns true when the word is new (StoreNewWord). Throws RunError 6
  // when a count would pass 2147483647.
  bool Count(std::string_view word);
  // Counts `occurrences` more of word (merging counts made elsewhere). Returns the word's id:
  // 0 for the first distinct word counted since Reset(), 1 for the second, and so on, so that a
  // per-word table beside the store can be a plain array. isNew tells whether it was new.
  int32_t CountWord(std::string_view word, bool& isNew, int32_t occurrences = 1);

  // Calls visit(word, frequency, id) for every word, in no particular order.
  template <typename Visit>
  void ForEachWord(Visit visit) const {
    for (const auto& [key, slot] : counts_) visit(key.View(), slot.frequency, slot.id);
  }

  // The records in ascending binary order of Word, element 0 unused. The mutable view may be
  // reordered and its counts changed (the listing does both); later reads see it as it was left
  // until the next Count() or Reset().
  std::span<WordListEntry> WordList();
  std::span<const WordListEntry> WordList() const;

  // FindWordInList over the sorted records.
  bool FindWordInList(std::string_view key, int32_t& position) const;

 private:
  // While counting, the words and their counts live in the hash index: a known word costs one
  // probe into a compact table. The records are built when they are read.
  enum class State { Counting, Listed, HandedOut };

  // A word as the index holds it: up to 15 bytes inside the key itself, so that finding a known
  // word reads nothing outside the table; a longer word lives in the arena and the key points
  // there. The last byte is the inline length, or kInArena.
  class IndexedWord {
   public:
    static constexpr size_t kInlineSize = 15;
    explicit IndexedWord(std::string_view inlineWord);
    IndexedWord(const char* arenaWord, size_t size);
    std::string_view View() const;

   private:
    static constexpr unsigned char kInArena = 0xFF;
    char raw_[kInlineSize + 1];
  };

  struct WordHash {
    using is_transparent = void;
    size_t operator()(std::string_view s) const;
    size_t operator()(const IndexedWord& w) const { return (*this)(w.View()); }
  };
  struct WordEq {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
    bool operator()(const IndexedWord& a, std::string_view b) const { return (*this)(a.View(), b); }
    bool operator()(std::string_view a, const IndexedWord& b) const { return (*this)(a, b.View()); }
    bool operator()(const IndexedWord& a, const IndexedWord& b) const {
      return (*this)(a.View(), b.View());
    }
  };

  IndexedWord Keep(std::string_view word);
  void BuildRecords() const;
  void CountAgainFromRecords();

  std::vector<std::unique_ptr<char[]>> arena_;
  char* arenaNext_ = nullptr;
  size_t arenaLeft_ = 0;
  struct Slot {
    int32_t frequency;
    int32_t id;
  };
  absl::flat_hash_map<IndexedWord, Slot, WordHash, WordEq> counts_;
  mutable std::vector<WordListEntry> records_;
  mutable State state_ = State::Counting;
  int32_t numWords_ = 0;
  int32_t upperBound_ = kGrowthStep;
};

}  // namespace wordtally
