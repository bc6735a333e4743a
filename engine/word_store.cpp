#include "engine/word_store.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "support/code_unit_sort.h"
#include "support/freed_memory.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

// Per byte: the text it contributes to a sort key (transliteration, accent folding, lower case).
std::array<std::string, 256> MakeSortKeyTable() {
  std::array<std::string, 256> table;
  for (int b = 0; b < 256; ++b) {
    table[b] = std::string(1, static_cast<char>(LowerAnsiChar(static_cast<unsigned char>(b))));
  }
  const std::string_view capitals =
      "\x8A\x9F\xC0\xC1\xC2\xC3\xC4\xC5\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF\xD0\xD1\xD2\xD3\xD4"
      "\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD";
  const std::string_view capitalBases = "syaaaaaaceeeeiiiidnoooooouuuuy";
  const std::string_view smalls =
      "\x9A\xFF\xE0\xE1\xE2\xE3\xE4\xE5\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF\xF1\xF2\xF3\xF4\xF5"
      "\xF6\xF8\xF9\xFA\xFB\xFC\xFD";
  const std::string_view smallBases = "syaaaaaaceeeeiiiinoooooouuuuy";
  for (size_t i = 0; i < capitals.size(); ++i) {
    table[static_cast<unsigned char>(capitals[i])] = std::string(1, capitalBases[i]);
  }
  for (size_t i = 0; i < smalls.size(); ++i) {
    table[static_cast<unsigned char>(smalls[i])] = std::string(1, smallBases[i]);
  }
  // Transliterations come first and win over the folding (there is none for the small "œ").
  const std::pair<unsigned char, const char*> twoLetters[] = {
      {0x8C, "oe"}, {0xC4, "ae"}, {0xC6, "ae"}, {0xD6, "oe"}, {0xDC, "ue"},
      {0xE4, "ae"}, {0xE6, "ae"}, {0xF6, "oe"}, {0xFC, "ue"}, {0xDF, "ss"}};
  for (const auto& [byte, text] : twoLetters) table[byte] = text;
  return table;
}

const std::array<std::string, 256>& SortKeyTable() {
  static const std::array<std::string, 256> table = MakeSortKeyTable();
  return table;
}

// Per byte: whether its key is the byte itself.
std::array<bool, 256> MakeKeysAsItselfTable() {
  const auto& keys = SortKeyTable();
  std::array<bool, 256> table;
  for (int b = 0; b < 256; ++b) table[b] = keys[b] == std::string(1, static_cast<char>(b));
  return table;
}

// The sort key of word as a view: the word itself when every byte keys as itself (plain small
// letters, the common case), else a key kept in keys.
std::string_view SortKeyView(std::string_view word, TextArena& keys) {
  static const std::array<bool, 256> keysAsItself = MakeKeysAsItselfTable();
  const bool wordIsKey = std::all_of(word.begin(), word.end(), [](char c) {
    return keysAsItself[static_cast<unsigned char>(c)];
  });
  return wordIsKey ? word : keys.Keep(MakeSortKey(word));
}

}  // namespace

AnsiString MakeSortKey(std::string_view word) {
  const auto& table = SortKeyTable();
  AnsiString key;
  key.reserve(word.size() + 2);
  for (char c : word) key += table[static_cast<unsigned char>(c)];
  return key;
}

WordStore::WordStore() { Reset(); }

void WordStore::Reset() {
  words_.Clear();
  pages_.clear();
  numWords_ = 0;
  slots_.clear();
  ResizeIndex(1024);
  sortKeys_.Clear();
  records_.assign(1, WordListEntry{});  // element 0 is never used
  state_ = State::Counting;
  upperBound_ = kGrowthStep;
}

// An empty index of capacity slots (a power of two) holding the words counted so far.
void WordStore::ResizeIndex(size_t capacity) {
  std::vector<uint64_t> old = std::move(slots_);
  slots_.assign(capacity, 0);
  homeShift_ = 32 - std::countr_zero(capacity);
  const size_t mask = capacity - 1;
  for (uint64_t slot : old) {
    if (slot == 0) continue;
    size_t i = HomeOf(slot);
    while (slots_[i] != 0) i = (i + 1) & mask;
    slots_[i] = slot;
  }
}

void WordStore::RebuildIndex() {
  slots_.clear();
  ResizeIndex(std::bit_ceil(std::max<size_t>(1024, (static_cast<size_t>(numWords_) * 4 + 2) / 3)));
  const size_t mask = slots_.size() - 1;
  ForEachWord([&](std::string_view word, int32_t, int32_t id) {
    const uint64_t slot = SlotOf(WordHashOf(word), id);
    size_t i = HomeOf(slot);
    while (slots_[i] != 0) i = (i + 1) & mask;
    slots_[i] = slot;
  });
}

bool WordStore::Count(std::string_view word) {
  bool isNew;
  CountWord(word, isNew);
  return isNew;
}

int32_t WordStore::CountWord(std::string_view word, bool& isNew, int32_t occurrences) {
  return CountWord(word, WordHashOf(word), isNew, occurrences);
}

// Keeps a copy of the new word in the next entry and indexes it.
int32_t WordStore::AddWord(std::string_view word, uint64_t wanted, size_t index,
                           int32_t occurrences) {
  if (numWords_ == INT32_MAX) ThrowOverflow();
  if (numWords_ == upperBound_) upperBound_ += kGrowthStep;
  const int32_t id = numWords_;
  if ((id & ((1 << kPageBits) - 1)) == 0) {
    pages_.push_back(std::make_unique_for_overwrite<Entry[]>(size_t{1} << kPageBits));
  }
  const std::string_view kept = words_.Keep(word);
  EntryOf(id) = Entry{kept.data(), static_cast<uint32_t>(kept.size()), occurrences};
  ++numWords_;
  slots_[index] = wanted + static_cast<uint64_t>(id) + 1;
  // At most three quarters full, so that probes stay short.
  if (static_cast<size_t>(numWords_) * 4 > slots_.size() * 3) ResizeIndex(slots_.size() * 2);
  return id;
}

// Counting goes on after a read of the records: the index comes back, and the records handed
// out may have been changed, so the counts go on from what they say.
void WordStore::ResumeCounting() {
  const bool handedOut = state_ == State::HandedOut;
  state_ = State::Counting;
  if (!handedOut) return;
  RebuildIndex();
  for (auto it = records_.begin() + 1; it != records_.end(); ++it) {
    bool isNew;
    EntryOf(CountWord(it->Word, isNew, 0)).frequency = it->Frequency;
  }
}

// Keeps the texts again in the given order of ids and points the entries there, so that whoever
// reads the words in that order reads consecutive memory. The entries are read far from the order
// of arrival: each, and its text, is fetched ahead of its turn.
void WordStore::KeepWordsInOrder(std::span<const uint32_t> order) const {
  constexpr size_t kEntriesAhead = 16, kTextsAhead = 8;
  const auto entryAt = [this, order](size_t k) -> Entry& {
    return EntryIn(pages_, static_cast<int32_t>(order[k]));
  };
  TextArena wordsInOrder;
  for (size_t k = 0; k < order.size(); ++k) {
    if (k + kEntriesAhead < order.size()) __builtin_prefetch(&entryAt(k + kEntriesAhead));
    if (k + kTextsAhead < order.size()) __builtin_prefetch(entryAt(k + kTextsAhead).text);
    Entry& entry = entryAt(k);
    entry.text = wordsInOrder.Keep({entry.text, entry.size}).data();
  }
  words_ = std::move(wordsInOrder);
  // The old texts' blocks lie between the entries' pages, where nothing the listing allocates fits.
  ReturnFreedMemory();
}

// The records in the given order of ids.
void WordStore::FillRecords(std::span<const uint32_t> order) const {
  constexpr size_t kEntriesAhead = 16;
  records_.reserve(order.size() + 1);
  for (size_t k = 0; k < order.size(); ++k) {
    if (k + kEntriesAhead < order.size()) {
      __builtin_prefetch(&EntryOf(static_cast<int32_t>(order[k + kEntriesAhead])));
    }
    const Entry& entry = EntryOf(static_cast<int32_t>(order[k]));
    const std::string_view word(entry.text, entry.size);
    records_.push_back({word, SortKeyView(word, sortKeys_), entry.frequency, 0, 0, true});
  }
}

// The records, from the entries, in ascending binary order of the words. The texts are moved into
// that order first, before the records take their room beside them.
void WordStore::BuildRecords() const {
  records_.resize(1);
  records_.shrink_to_fit();
  sortKeys_.Clear();
  {
    const std::vector<uint32_t> order =
        CodeUnitOrder(static_cast<uint32_t>(numWords_), [this](uint32_t id) {
          const Entry& entry = EntryOf(static_cast<int32_t>(id));
          return std::string_view(entry.text, entry.size);
        });
    KeepWordsInOrder(order);
    FillRecords(order);
  }
  ReturnFreedMemory();  // the order's room, which may lie below the texts kept since
}

// The listing takes the records over: the index is given back first, so that it and the records
// are never held at once.
std::span<WordListEntry> WordStore::WordList() {
  if (state_ == State::Counting) {
    slots_.clear();
    slots_.shrink_to_fit();
    BuildRecords();
  }
  state_ = State::HandedOut;
  return records_;
}

std::span<const WordListEntry> WordStore::WordList() const {
  if (state_ == State::Counting) {
    BuildRecords();
    state_ = State::Listed;
  }
  return records_;
}

bool WordStore::FindWordInList(std::string_view key, int32_t& position) const {
  const auto list = WordList();
  return BinarySearchSorted(
      key, [&list](int32_t i) { return list[i].Word; }, lngNumWords(), position);
}

}  // namespace wordtally
