#include "engine/word_store.h"

#include <algorithm>
#include <array>
#include <cstring>

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

}  // namespace

AnsiString MakeSortKey(std::string_view word) {
  static const std::array<std::string, 256> table = MakeSortKeyTable();
  AnsiString key;
  key.reserve(word.size() + 2);
  for (char c : word) key += table[static_cast<unsigned char>(c)];
  return key;
}

namespace {

uint64_t Load64(const char* p) {
  uint64_t v;
  std::memcpy(&v, p, 8);
  return v;
}

uint32_t Load32(const char* p) {
  uint32_t v;
  std::memcpy(&v, p, 4);
  return v;
}

// The last n < 8 bytes as one number, through overlapping fixed-size loads: given n, distinct
// bytes give distinct numbers.
uint64_t TailBytes(const char* p, size_t n) {
  if (n >= 4) return (uint64_t{Load32(p)} << 32) | Load32(p + n - 4);
  if (n == 0) return 0;
  const auto byte = [p](size_t i) { return uint64_t{static_cast<unsigned char>(p[i])}; };
  return (byte(0) << 16) | (byte(n / 2) << 8) | byte(n - 1);
}

}  // namespace

// A fast hash for short words: eight bytes at a time, multiply and fold.
size_t WordStore::WordHash::operator()(std::string_view s) const {
  const char* p = s.data();
  size_t n = s.size();
  uint64_t h = 0x9E3779B97F4A7C15ull ^ n;
  for (; n >= 8; p += 8, n -= 8) {
    h = (h ^ Load64(p)) * 0xBF58476D1CE4E5B9ull;
    h ^= h >> 29;
  }
  h = (h ^ TailBytes(p, n)) * 0x94D049BB133111EBull;
  return h ^ (h >> 32);
}

// Short words, the common case, are compared through the same fixed-size loads as the hash.
bool WordStore::WordEq::operator()(std::string_view a, std::string_view b) const {
  if (a.size() != b.size()) return false;
  size_t n = a.size();
  const char* x = a.data();
  const char* y = b.data();
  for (; n >= 8; x += 8, y += 8, n -= 8) {
    if (Load64(x) != Load64(y)) return false;
  }
  return TailBytes(x, n) == TailBytes(y, n);
}

WordStore::WordStore() { Reset(); }

void WordStore::Reset() {
  arena_.clear();
  arenaNext_ = nullptr;
  arenaLeft_ = 0;
  counts_.clear();
  records_.assign(1, WordListEntry{});  // element 0 is never used
  state_ = State::Counting;
  numWords_ = 0;
  upperBound_ = kGrowthStep;
}

WordStore::IndexedWord::IndexedWord(std::string_view inlineWord) {
  std::memcpy(raw_, inlineWord.data(), inlineWord.size());
  raw_[kInlineSize] = static_cast<char>(inlineWord.size());
}

WordStore::IndexedWord::IndexedWord(const char* arenaWord, size_t size) {
  const auto size32 = static_cast<uint32_t>(size);
  std::memcpy(raw_, &arenaWord, sizeof arenaWord);
  std::memcpy(raw_ + sizeof arenaWord, &size32, sizeof size32);
  raw_[kInlineSize] = static_cast<char>(kInArena);
}

std::string_view WordStore::IndexedWord::View() const {
  const auto inlineSize = static_cast<unsigned char>(raw_[kInlineSize]);
  if (inlineSize != kInArena) return {raw_, inlineSize};
  const char* data;
  uint32_t size;
  std::memcpy(&data, raw_, sizeof data);
  std::memcpy(&size, raw_ + sizeof data, sizeof size);
  return {data, size};
}

// A short word is kept in its key; a longer one is copied into the arena, whose blocks never
// move, so that the key can point into it.
WordStore::IndexedWord WordStore::Keep(std::string_view word) {
  constexpr size_t kBlock = 64 * 1024;
  if (word.size() <= IndexedWord::kInlineSize) return IndexedWord(word);
  if (word.size() > arenaLeft_) {
    arenaLeft_ = std::max(kBlock, word.size());
    arena_.push_back(std::make_unique<char[]>(arenaLeft_));
    arenaNext_ = arena_.back().get();
  }
  char* kept = arenaNext_;
  std::memcpy(kept, word.data(), word.size());
  arenaNext_ += word.size();
  arenaLeft_ -= word.size();
  return IndexedWord(kept, word.size());
}

bool WordStore::Count(std::string_view word) {
  bool isNew;
  CountWord(word, isNew);
  return isNew;
}

int32_t WordStore::CountWord(std::string_view word, bool& isNew, int32_t occurrences) {
  if (state_ == State::HandedOut) CountAgainFromRecords();
  state_ = State::Counting;
  if (const auto it = counts_.find(word); it != counts_.end()) {
    Add(it->second.frequency, occurrences);
    isNew = false;
    return it->second.id;
  }
  if (numWords_ == INT32_MAX) ThrowOverflow();
  if (numWords_ == upperBound_) upperBound_ += kGrowthStep;
  const int32_t id = numWords_;
  counts_.emplace(Keep(word), Slot{occurrences, id});
  ++numWords_;
  isNew = true;
  return id;
}

// The records, from the index, in ascending binary order of the words.
void WordStore::BuildRecords() const {
  records_.resize(1);
  records_.reserve(counts_.size() + 1);
  for (const auto& [key, slot] : counts_) {
    const std::string_view word = key.View();
    WordListEntry& entry = records_.emplace_back();
    entry.Word = word;
    entry.SortKey = MakeSortKey(word);
    entry.Frequency = slot.frequency;
    entry.Included = true;
  }
  std::sort(records_.begin() + 1, records_.end(), [](const WordListEntry& a, const WordListEntry& b) {
    return LessCodeUnits(a.Word, b.Word);
  });
}

// The records handed out may have been changed: counting goes on from what they say.
void WordStore::CountAgainFromRecords() {
  for (auto it = records_.begin() + 1; it != records_.end(); ++it) {
    counts_.find(std::string_view(it->Word))->second.frequency = it->Frequency;
  }
}

std::span<WordListEntry> WordStore::WordList() {
  if (state_ == State::Counting) BuildRecords();
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
      key, [&list](int32_t i) { return std::string_view(list[i].Word); }, lngNumWords(), position);
}

}  // namespace wordtally
