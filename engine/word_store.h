#pragma once
// The word store: the distinct words of one run with their counts.
//
// Records are read as WordList[1..lngNumWords] in ascending binary (code-unit) order of Word,
// element 0 unused. Counting does not keep that order as it goes: a hash index finds a known word
// in O(1) and a new word costs no shift; the sorted records are produced when they are read. Each
// distinct word costs its bytes, a 16-byte entry and about 8 to 16 bytes of index while counting,
// and a 48-byte record once listed.
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/text_arena.h"
#include "engine/word_chunks.h"
#include "engine/word_hash.h"
#include "support/run_error.h"
#include "support/ansi_text.h"

namespace wordtally {

// One record of the listing. The texts are views of the store's own copies, valid until the
// store is reset.
struct WordListEntry {
  std::string_view Word;
  std::string_view SortKey;
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
  // The same with the word's hash already made (WordHashOf(word)).
  int32_t CountWord(std::string_view word, uint64_t hash, bool& isNew, int32_t occurrences = 1) {
    const uint64_t wanted = SlotOf(hash, -1);  // the hash bits, no id
    size_t index;
    const int32_t id = Probe(wanted, index, [word](const Entry& entry) {
      return entry.size == word.size() && SameBytes(entry.text, word.data(), word.size());
    });
    isNew = id < 0;
    if (isNew) return AddWord(word, wanted, index, occurrences);
    CountStoredWord(id, occurrences);
    return id;
  }

  // The id of a stored word of at most 16 bytes, given as its chunks (cleared beyond its end),
  // its size and ShortWordHash; -1 when it is not stored. Inline: the line walk finds almost every
  // word it reads this way, with one probe and one comparison of two chunks.
  int32_t FindShortWord(ChunkPair chunks, uint32_t size, uint64_t hash) {
    size_t index;
    return Probe(SlotOf(hash, -1), index, [chunks, size](const Entry& entry) {
      return entry.size == size &&
             FirstBytes({LoadChunk(entry.text), LoadChunk(entry.text + 8)}, size) == chunks;
    });
  }

  // Read ahead for a lookup of a word with this hash (FindShortWord, CountWord): the index slot
  // where the search begins, and, once that is in, the entry it names.
  void PrefetchSlot(uint64_t hash) const {
    if (!slots_.empty()) __builtin_prefetch(&slots_[HomeOf(SlotOf(hash, -1))]);
  }
  void PrefetchEntry(uint64_t hash) const {
    if (slots_.empty()) return;
    const uint64_t slot = slots_[HomeOf(SlotOf(hash, -1))];
    if (slot != 0) __builtin_prefetch(&EntryOf(static_cast<int32_t>((slot & 0xFFFFFFFFu) - 1)));
  }

  // Counts occurrences more of the stored word id. Throws RunError 6 when the count would pass
  // 2147483647.
  void CountStoredWord(int32_t id, int32_t occurrences = 1) {
    Add(EntryOf(id).frequency, occurrences);
  }

  // Calls visit(word, frequency, id) for every word, in no particular order.
  template <typename Visit>
  void ForEachWord(Visit visit) const {
    for (int32_t id = 0; id < numWords_; ++id) {
      const Entry& entry = EntryOf(id);
      visit(std::string_view(entry.text, entry.size), entry.frequency, id);
    }
  }

  // The records in ascending binary order of Word, element 0 unused. The mutable view may be
  // reordered and its counts changed (the listing does both); later reads see it as it was left
  // until the next Count() or Reset().
  std::span<WordListEntry> WordList();
  std::span<const WordListEntry> WordList() const;

  // FindWordInList over the sorted records.
  bool FindWordInList(std::string_view key, int32_t& position) const;

 private:
  // While counting, the words and their counts live in per-id entries found through an
  // open-addressing index; the sorted records are built when they are read, and the index is
  // given back meanwhile (it is rebuilt if counting goes on).
  enum class State { Counting, Listed, HandedOut };

  struct Entry {
    const char* text;
    uint32_t size;
    int32_t frequency;
  };
  // Entries sit in pages that never move, so that growing costs no copy of the entries.
  static constexpr int kPageBits = 16;
  using Pages = std::vector<std::unique_ptr<Entry[]>>;
  // A writable entry also where the store is const (building the records moves the texts).
  static Entry& EntryIn(Pages& pages, int32_t id) {
    return pages[id >> kPageBits][id & ((1 << kPageBits) - 1)];
  }
  Entry& EntryOf(int32_t id) { return EntryIn(pages_, id); }
  const Entry& EntryOf(int32_t id) const { return EntryIn(pages_, id); }

  // A slot of the index: 32 bits of the word's mixed hash (which also give its home slot), and
  // below them the word's id + 1; 0 is an empty slot.
  static uint64_t SlotOf(uint64_t hash, int32_t id) {
    const uint64_t mixed = (hash ^ (hash >> 32)) * 0x9E3779B97F4A7C15ull;
    return (mixed & 0xFFFFFFFF00000000ull) | (static_cast<uint64_t>(id) + 1);
  }
  // Words are short: from 2 to 16 bytes they are compared through two overlapping fixed-size
  // loads each, without a library call.
  template <typename Chunk>
  static bool SameEnds(const char* a, const char* b, size_t size) {
    Chunk x, y, u, v;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    std::memcpy(&u, a + size - sizeof u, sizeof u);
    std::memcpy(&v, b + size - sizeof v, sizeof v);
    return ((x ^ y) | (u ^ v)) == 0;
  }
  static bool SameBytes(const char* a, const char* b, size_t size) {
    if (size >= 8 && size <= 16) return SameEnds<uint64_t>(a, b, size);
    if (size >= 4 && size < 8) return SameEnds<uint32_t>(a, b, size);
    if (size >= 2 && size < 4) return SameEnds<uint16_t>(a, b, size);
    return std::memcmp(a, b, size) == 0;
  }
  size_t HomeOf(uint64_t slot) const { return static_cast<size_t>(slot >> 32) >> homeShift_; }
  // The id of the word whose hash bits are wanted and whose entry is the same as the word looked
  // for; -1 when there is none, with index at the empty slot where the word would go.
  template <typename Same>
  int32_t Probe(uint64_t wanted, size_t& index, Same same) {
    if (state_ != State::Counting) ResumeCounting();
    const size_t mask = slots_.size() - 1;
    for (index = HomeOf(wanted);; index = (index + 1) & mask) {
      const uint64_t slot = slots_[index];
      if (slot == 0) return -1;
      if ((slot ^ wanted) >> 32 != 0) continue;
      const auto id = static_cast<int32_t>((slot & 0xFFFFFFFFu) - 1);
      if (same(EntryOf(id))) return id;
    }
  }
  void ResizeIndex(size_t capacity);
  void RebuildIndex();
  // Adds a new word, whose hash bits are wanted, in the empty slot at index; returns its id.
  int32_t AddWord(std::string_view word, uint64_t wanted, size_t index, int32_t occurrences);
  void ResumeCounting();
  void KeepWordsInOrder(std::span<const uint32_t> order) const;
  void FillRecords(std::span<const uint32_t> order) const;
  void BuildRecords() const;

  // Building the records, also on a const store, keeps the texts again in the records' order
  // and points the entries there: no word or count changes.
  mutable TextArena words_;
  mutable Pages pages_;
  std::vector<uint64_t> slots_;
  int homeShift_ = 0;
  mutable TextArena sortKeys_;
  mutable std::vector<WordListEntry> records_;
  mutable State state_ = State::Counting;
  int32_t numWords_ = 0;
  int32_t upperBound_ = kGrowthStep;
};

}  // namespace wordtally
