#include "engine/word_extraction.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "engine/counting_settings.h"
#include "engine/engine_context.h"
#include "engine/normalisation.h"
#include "engine/word_chunks.h"
#include "engine/word_counting.h"
#include "engine/word_filters.h"
#include "engine/word_store.h"
#include "input/character_entities.h"
#include "support/ansi_text.h"
#include "support/byte_vector.h"
#include "support/run_error.h"

namespace wordtally {

namespace {

constexpr std::string_view kWordsOfNumeralLetters[] = {"DIM", "MID",   "VIM",   "CID",  "LID",
                                                       "LIVID", "VIVID", "CIVIL", "DILL"};

using CharSet = std::array<bool, 256>;

// The letters in either case, so that no word has to be upper-cased to be tested.
constexpr CharSet LettersInEitherCase(std::string_view capitals) {
  CharSet set{};
  for (char c : capitals) {
    set[static_cast<unsigned char>(c)] = true;
    set[static_cast<unsigned char>(c - 'A' + 'a')] = true;
  }
  return set;
}
constexpr CharSet kRomanNumeralLetters = LettersInEitherCase("IVXLCDM");
constexpr CharSet kIvxLetters = LettersInEitherCase("IVX");

bool ConsistsOf(std::string_view word, const CharSet& letters) {
  return std::all_of(word.begin(), word.end(),
                     [&letters](char c) { return letters[static_cast<unsigned char>(c)]; });
}

bool EqualsUpperCased(std::string_view word, std::string_view capitals) {
  return word.size() == capitals.size() &&
         std::equal(word.begin(), word.end(), capitals.begin(), [](char c, char capital) {
           return UpperAnsiChar(static_cast<unsigned char>(c)) == static_cast<unsigned char>(capital);
         });
}

bool IsAcceptedWord(std::string_view word) {
  return word.size() >= 3 && word.size() <= static_cast<size_t>(intMaxPermittedWordLength) &&
         !IsRepeatedChar(word) && !IsRomanNumeral(word, false);
}

// The user's marker pairs with a start marker, moved to the front so that their indices run
// from 0 to count - 1.
CommentMarkerPairs UserCommentMarkers(const CountingSettings& settings) {
  CommentMarkerPairs markers;
  if (settings.chkAllowCommentMarkers != 1) return markers;
  for (size_t i = 0; i < settings.txbStartComment.size(); ++i) {
    if (settings.txbStartComment[i].empty()) continue;
    markers.start[markers.count] = settings.txbStartComment[i];
    markers.end[markers.count] = settings.txbEndComment[i];
    ++markers.count;
  }
  return markers;
}

// What the accept tests of a plain word learn of each of its bytes.
enum ByteKind : unsigned char { kVowelByte = 1, kNotNumeralByte = 2 };

std::array<unsigned char, 256> MakeByteKinds() {
  std::array<unsigned char, 256> kinds{};
  for (int b = 0; b < 256; ++b) {
    const char c = static_cast<char>(b);
    kinds[b] = static_cast<unsigned char>((HasNoVowel({&c, 1}) ? 0 : kVowelByte) |
                                          (kRomanNumeralLetters[b] ? 0 : kNotNumeralByte));
  }
  return kinds;
}

AnsiString WithoutChars(std::string_view text, std::string_view removed) {
  AnsiString kept;
  for (char c : text) {
    if (removed.find(c) == std::string_view::npos) kept += c;
  }
  return kept;
}

}  // namespace

bool IsWordChar(char ch, bool allowDigits, std::string_view extraChars) {
  const unsigned char b = static_cast<unsigned char>(ch);
  if ((b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z')) return true;
  if (b >= '0' && b <= '9' && allowDigits) return true;
  if (b >= 192 && b != 215 && b != 247) return true;
  return extraChars.find(ch) != std::string_view::npos;
}

WordCharTable MakeWordCharTable(bool allowDigits, std::string_view extraChars) {
  WordCharTable table{};
  for (int b = 0; b < 256; ++b) table[b] = IsWordChar(static_cast<char>(b), allowDigits, extraChars);
  return table;
}

namespace {

// Steps over the ASCII letters at the front of [end, limit) eight at a time; the letters are word
// characters whatever the settings, and most words are made of nothing else.
const char* SkipAsciiLetters(const char* end, const char* limit) {
  while (limit - end >= 8) {
    const uint64_t others = ~AsciiLetterBytes(LoadChunk(end)) & kHighBits;
    if (others != 0) return end + FirstMarkedByte(others);
    end += 8;
  }
  return end;
}

}  // namespace

int32_t CountWordChars(std::string_view text, int32_t start, const WordCharTable& wordChars) {
  if (start < 1 || static_cast<size_t>(start) > text.size()) return 0;
  const char* const first = text.data() + (start - 1);
  const char* const limit = first + std::min<size_t>(text.size() - (start - 1), kMaxWordCharRun);
  const char* end = first;
  for (;;) {
    end = SkipAsciiLetters(end, limit);
    if (end == limit || !wordChars[static_cast<unsigned char>(*end)]) break;
    ++end;  // a word character that is not an ASCII letter: a hyphen, an accented letter ...
    if (limit - end < 8) {
      while (end != limit && wordChars[static_cast<unsigned char>(*end)]) ++end;
      break;
    }
  }
  return static_cast<int32_t>(end - first);
}

WordCharRun ScanWordChars(std::string_view text, int32_t start, const WordCharTable& wordChars) {
  WordCharRun run;
  run.length = CountWordChars(text, start, wordChars);
  const size_t after = static_cast<size_t>(start) - 1 + static_cast<size_t>(run.length);
  if (run.length == 0 || after >= text.size()) return run;
  const char next = text[after];
  run.endsAtSemicolon = next == ';';
  run.endsAtFullStop = next == '.';
  run.endsAtDoubleQuote = next == '"';
  run.endsAtTab = next == '\t';
  run.endsAtApostrophe = next == '\'';
  run.endsAtComma = next == ',';
  return run;
}

WordCharRun ScanWordChars(std::string_view text, int32_t start, bool allowDigits,
                          std::string_view extraChars) {
  return ScanWordChars(text, start, MakeWordCharTable(allowDigits, extraChars));
}

bool IsRepeatedChar(std::string_view word) {
  const std::string_view trimmed = TrimBlanks(word);
  return !trimmed.empty() && trimmed.find_first_not_of(trimmed.front()) == std::string_view::npos;
}

bool IsRomanNumeral(std::string_view word, bool onlyIVX) {
  const std::string_view w = TrimBlanks(word);
  // Most words hold some other letter: that settles them before any list is looked at.
  if (!ConsistsOf(w, onlyIVX ? kIvxLetters : kRomanNumeralLetters)) return false;
  if (EqualsUpperCased(w, "I")) return false;
  if (onlyIVX) return true;
  return std::none_of(std::begin(kWordsOfNumeralLetters), std::end(kWordsOfNumeralLetters),
                      [w](std::string_view exception) { return EqualsUpperCased(w, exception); });
}

namespace {

// What CleanLine does with each character: kept, turned into a blank, or removed.
enum class CleanAction : unsigned char { kKeep, kBlank, kRemove };
using CleanActions = std::array<CleanAction, 256>;

constexpr CleanActions MakeCleanActions(bool keepTabs) {
  CleanActions actions{};
  actions['\b'] = CleanAction::kRemove;
  actions['\n'] = actions['\f'] = actions['\r'] = actions[0xA0] = CleanAction::kBlank;
  if (!keepTabs) actions['\t'] = CleanAction::kBlank;
  return actions;
}
constexpr CleanActions kCleanKeepingTabs = MakeCleanActions(true);
constexpr CleanActions kCleanWithoutTabs = MakeCleanActions(false);

// Skips, eight bytes at a time, the leading part of text that holds no byte CleanLine changes
// (every such byte is below 14 or is the no-break space 0xA0). Returns where to look closer.
size_t SkipCleanPrefix(std::string_view text) {
  constexpr uint64_t kOnes = 0x0101010101010101ull, kHighs = 0x8080808080808080ull;
  size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    uint64_t x;
    std::memcpy(&x, text.data() + i, 8);
    const uint64_t below14 = (x - kOnes * 14) & ~x & kHighs;
    const uint64_t y = x ^ (kOnes * 0xA0);
    const uint64_t isA0 = (y - kOnes) & ~y & kHighs;
    if (below14 | isA0) break;
  }
  return i;
}

// True when the size bytes at text may hold a byte that CleanLine, RemoveHtmlComments or
// ReplaceCharacterEntities act on (any below 14, the no-break space, "<", "&"). Reads whole
// vectors: up to 15 bytes past the end, which must not hold such a byte.
bool MayHoldBytesToPrepare(const char* text, size_t size) {
  ByteVector found{};
  for (size_t at = 0; at < size; at += sizeof(ByteVector)) {
    const ByteVector bytes = LoadBytes(text + at);
    found |= static_cast<ByteVector>((bytes < 14) | (bytes == 0xA0) | (bytes == '<') | (bytes == '&'));
  }
  return AnySet(found);
}

}  // namespace

void CleanLine(AnsiString& line, bool keepTabs) {
  const CleanActions& actions = keepTabs ? kCleanKeepingTabs : kCleanWithoutTabs;
  auto actionOf = [&actions](char c) { return actions[static_cast<unsigned char>(c)]; };
  auto first = std::find_if(line.begin() + SkipCleanPrefix(line), line.end(),
                            [&](char c) { return actionOf(c) != CleanAction::kKeep; });
  if (first == line.end()) return;
  auto write = first;
  for (auto read = first; read != line.end(); ++read) {
    const CleanAction action = actionOf(*read);
    if (action == CleanAction::kKeep) *write++ = *read;
    if (action == CleanAction::kBlank) *write++ = ' ';
  }
  line.erase(write, line.end());
}

void RemoveHtmlComments(AnsiString& line) {
  constexpr std::string_view kOpen = "<!--", kClose = "-->";
  size_t open = line.find(kOpen);
  while (open != AnsiString::npos) {
    const size_t close = line.find(kClose, open + kOpen.size());
    if (close == AnsiString::npos) return;
    line.erase(open, close + kClose.size() - open);
    open = line.find(kOpen, open);
  }
}

LineWalker::LineWalker(EngineContext& ctx) : ctx_(ctx) {
  const AnsiString extraChars = SetAllowedExtraChars(ctx.settings);
  wordChars_ = MakeWordCharTable(false, extraChars);
  startChars_ = MakeWordCharTable(false, WithoutChars(extraChars, strProhibitedInitialOrFinalChars));
  markers_ = ctx.run.blnReadingWords ? CommentSyntax("C") : UserCommentMarkers(ctx.settings);
  for (int i = 0; i < markers_.count; ++i) {
    commentStartChars_[static_cast<unsigned char>(markers_.start[i].front())] = true;
  }
  for (int b = 0; b < 256; ++b) skipEnds_[b] = startChars_[b] || commentStartChars_[b];
  skipEnds_[' '] = false;
  blankStartsComment_ = commentStartChars_[' '];
  foldCase_ = ctx.settings.chkCaseSignificant == 0;
  byteKinds_ = MakeByteKinds();
  scratch_.reserve(2 * intMaxPermittedWordLength);
}

void LineWalker::WalkLine(std::string_view line) {
  RunState& run = ctx_.run;
  CopyLine(line);
  // Cleaning, HTML comments and character entities leave a line without the bytes they act on as
  // it is: most lines are only looked over, in their copy.
  if (MayHoldBytesToPrepare(text_.data(), line.size())) {
    AnsiString& cleaned = run.strLine;
    cleaned.assign(line);
    cleaned += ' ';
    CleanLine(cleaned, false);
    if (!run.blnReadingWords) {
      RemoveHtmlComments(cleaned);
      if (run.blnCharacterEntitiesPossible) ReplaceCharacterEntities(cleaned);
    }
    // The passes never take the trailing blank away.
    CopyLine(std::string_view(cleaned).substr(0, cleaned.size() - 1));
  }
  run.blnCommentsPossible = markers_.count >= 1;
  const NormalizationOptions options = MakeNormalizationOptions(ctx_.settings, run);
  // Entity tails and plurals rewrite words, and common words are read without the word tests:
  // those take the full pipeline.
  const bool plainLane =
      !options.blnCharacterEntitiesPossible && !options.dropFinalS && !options.blnReadingWords;
  const bool commentsPossible = run.blnCommentsPossible;
  bool commentGoesOn = commentsPossible && run.comment.intWithinComment >= 0;
  const char* const text = text_.data();
  // The walk ends at the line's last character, its trailing blank.
  const char* const last = text + line_.size() - 1;
  const char* at = text;
  while (at < last) {
    unsigned char c = static_cast<unsigned char>(*at);
    // The comment step is only entered where a comment goes on or a start marker may begin.
    if (commentGoesOn || (commentsPossible && commentStartChars_[c])) {
      commentGoesOn = false;
      if (!CountWordsRead(options)) return;
      ctx_.GiveEventLoopATurn();
      run.lngLP = static_cast<int32_t>(at - text) + 1;
      if (!StepOverComments()) return;
      at = text + run.lngLP - 1;
      c = static_cast<unsigned char>(*at);
    }
    if (startChars_[c]) {
      const size_t shortSize = plainLane ? ReadShortWord(at) : 0;
      if (shortSize != 0) {
        at += shortSize;
        if (wordsReadCount_ == kWordsReadAhead && !CountWordsRead(options)) return;
        // The character after a word is no word character: unless it is a blank that may begin
        // a comment, the skip over punctuation and blanks can start there.
        if (!blankStartsComment_) {
          while (!skipEnds_[static_cast<unsigned char>(*at)]) ++at;
        }
        continue;
      }
      if (!CountWordsRead(options)) return;
      run.lngLP = static_cast<int32_t>(at - text) + 1;
      if (!plainLane || !TakePlainWord(options)) TakeWord(options);
      at = text + run.lngLP - 1;
      ctx_.GiveEventLoopATurn();
      if (run.blnStop) return;
      continue;
    }
    // Punctuation and blanks: on to the next character where a word or a comment may begin (the
    // sentinel after the line ends the search).
    do ++at; while (!skipEnds_[static_cast<unsigned char>(*at)]);
  }
  CountWordsRead(options);
}

void LineWalker::CopyLine(std::string_view line) {
  if (text_.size() < line.size() + kLineSlack) text_.resize(line.size() + kLineSlack);
  std::memcpy(text_.data(), line.data(), line.size());
  text_[line.size()] = ' ';
  std::memset(text_.data() + line.size() + 1, kSentinel, kSentinels);
  line_ = std::string_view(text_.data(), line.size() + 1);
}

bool LineWalker::StepOverComments() {
  RunState& run = ctx_.run;
  const std::string_view line = line_;
  CommentState& state = run.comment;
  auto detect = [&] {
    return commentStartChars_[static_cast<unsigned char>(line[run.lngLP - 1])]
               ? DetectComment(markers_, line, run.lngLP, state)
               : int16_t{-1};
  };
  if (state.intWithinComment == -1) state.intWithinComment = detect();
  while (state.intWithinComment >= 0) {
    SkipComment(markers_, line, run.lngLP, state);
    if (static_cast<size_t>(run.lngLP) > line.size()) return false;
    if (line[run.lngLP - 1] == ' ') break;
    state.intWithinComment = detect();
    ctx_.GiveEventLoopATurn();
  }
  return true;
}

void LineWalker::TakeWord(const NormalizationOptions& options) {
  RunState& run = ctx_.run;
  const int32_t length = CountWordChars(line_, run.lngLP, wordChars_);
  // The word is folded where it stands: the walk never looks back at the line.
  char* start = text_.data() + run.lngLP - 1;
  if (foldCase_) LowerAnsiInPlace(start, static_cast<size_t>(length));
  run.lngLP += length;
  const std::string_view word =
      NormalizeWord(std::string_view(start, static_cast<size_t>(length)), options, scratch_);
  if (IsAcceptedWord(word)) CountAcceptedWord(word, WordHashOf(word));
}

// Most words are made of ASCII letters alone and are at most 16 long: such a word is read and
// folded two chunks at a time, without a pass over its bytes, and set aside with its hash, to be
// counted together with the words read after it. Returns its length, or 0 when the word at start
// is not such a word.
size_t LineWalker::ReadShortWord(const char* start) {
  const ByteVector bytes = LoadBytes(start);
  const auto letters = static_cast<ByteVector>(static_cast<ByteVector>((bytes | 0x20) - 'a') < 26);
  const size_t size = FirstSet(~letters);
  if (size == sizeof(ByteVector)) return 0;  // more than 16 letters
  // Not a letter first, or a word going on with other word characters (the sentinel after the
  // line is one).
  if (size == 0 || wordChars_[static_cast<unsigned char>(start[size])]) return 0;
  // Every byte of the word is a letter: folding sets the lower-case bit of each.
  const uint64_t lowerCaseBits = foldCase_ ? kEveryByte * 0x20 : 0;
  const ChunkPair chunks = FirstBytes(
      {LoadChunk(start) | lowerCaseBits, LoadChunk(start + 8) | lowerCaseBits}, size);
  const uint64_t hash = ShortWordHash(chunks, size);
  ctx_.store.PrefetchSlot(hash);
  ShortWord& read = wordsRead_[wordsReadCount_];
  StoreChunk(read.bytes, chunks.first);
  StoreChunk(read.bytes + 8, chunks.second);
  read.hash = hash;
  read.size = static_cast<uint32_t>(size);
  // A word too short to be counted is written but not kept: no branch on the length.
  wordsReadCount_ += size >= 3 ? 1 : 0;
  return size;
}

// Counts the words set aside, in their order, as the walk would have counted each one as it read
// it: with an event-loop turn after each. The store's reads for the next words are under way
// meanwhile. False when the run is stopped.
bool LineWalker::CountWordsRead(const NormalizationOptions& options) {
  const size_t count = std::exchange(wordsReadCount_, 0);
  // A word accepted before and stored, the common case, is counted here without further ado.
  const bool noExclusions = NoExclusions(ctx_.settings);
  for (size_t i = 0; i < count; ++i) {
    const ShortWord& read = wordsRead_[i];
    const std::string_view word(read.bytes, read.size);
    const int32_t id = ctx_.store.FindShortWord(
        {LoadChunk(read.bytes), LoadChunk(read.bytes + 8)}, read.size, read.hash);
    const bool accepted = id >= 0 && static_cast<size_t>(id) < accepted_.size() && accepted_[id];
    if (accepted && noExclusions) {
      Increment(ctx_.run.lngTotalNumOccurrences);
      CountStoredWord(ctx_, id);
    } else if (accepted || PlainWordAccepted(word, options)) {
      if (id >= 0) RememberAccepted(id);
      CountAcceptedWord(word, read.hash, id);
    }
    ctx_.GiveEventLoopATurn();
    if (ctx_.run.blnStop) return false;
  }
  return true;
}

// A word that normalisation leaves as it is: folded where it stands and counted. A word ending in
// a character that normalisation strips is left to TakeWord.
bool LineWalker::TakePlainWord(const NormalizationOptions& options) {
  RunState& run = ctx_.run;
  const auto length = static_cast<size_t>(CountWordChars(line_, run.lngLP, wordChars_));
  char* const start = text_.data() + run.lngLP - 1;
  const char last = start[length - 1];
  if (last == '-' || last == '"') return false;
  if (foldCase_) LowerAnsiInPlace(start, length);
  run.lngLP += static_cast<int32_t>(length);
  const std::string_view word(start, length);
  if (PlainWordAccepted(word, options)) CountAcceptedWord(word, WordHashOf(word));
  return true;
}

// The accept tests and the apostrophe-fragment drop for a word that normalisation leaves as it is.
bool LineWalker::PlainWordAccepted(std::string_view word,
                                   const NormalizationOptions& options) const {
  if (word.size() < 3 || word.size() > static_cast<size_t>(intMaxPermittedWordLength)) return false;
  unsigned kinds = 0;
  bool differs = false;
  for (char c : word) {
    kinds |= byteKinds_[static_cast<unsigned char>(c)];
    differs |= c != word.front();
  }
  if (options.ignoreNoVowel && (kinds & kVowelByte) == 0) return false;
  if (!differs) return false;  // one character repeated
  // Only a word of numeral letters alone needs the full numeral test.
  if ((kinds & kNotNumeralByte) == 0 && IsRomanNumeral(word, false)) return false;
  return options.allowApostrophes || !IsContractionStem(word);
}

void LineWalker::RememberAccepted(int32_t id) {
  const auto index = static_cast<size_t>(id);
  if (index >= accepted_.size()) accepted_.resize(std::max(index + 1, 2 * accepted_.size()));
  accepted_[index] = 1;
}

void LineWalker::CountAcceptedWord(std::string_view word, uint64_t hash, int32_t storedId) {
  if (ctx_.run.blnReadingWords) {
    AddWordToList(ctx_, word, hash);
    return;
  }
  Increment(ctx_.run.lngTotalNumOccurrences);
  if (!NoExclusions(ctx_.settings)) {
    GetWords2(ctx_, word, hash);
  } else if (storedId >= 0) {
    CountStoredWord(ctx_, storedId);
  } else {
    AddWordToList(ctx_, word, hash);
  }
}

}  // namespace wordtally
