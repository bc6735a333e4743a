#pragma once
// Word extraction: which characters make words, the shape tests that reject non-words, and the
// walk that cuts the words out of one line and hands them on to be counted.
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/word_chunks.h"
#include "input/comment_markers.h"
#include "support/ansi_text.h"

namespace wordtally {

struct EngineContext;
struct NormalizationOptions;

// The longest run of word characters the scanner takes in one piece.
inline constexpr int32_t kMaxWordCharRun = 65000;

// A-Z, a-z and the Latin-1 letters (192-255 without × and ÷) are word characters; a digit only
// with allowDigits; any other character only when it occurs in extraChars.
bool IsWordChar(char ch, bool allowDigits, std::string_view extraChars);

// IsWordChar answered for all 256 characters at once.
using WordCharTable = std::array<bool, 256>;
WordCharTable MakeWordCharTable(bool allowDigits, std::string_view extraChars);

// A run of word characters and what the character after it is (all false at the end of the text).
struct WordCharRun {
  int32_t length = 0;
  bool endsAtSemicolon = false;
  bool endsAtFullStop = false;
  bool endsAtDoubleQuote = false;
  bool endsAtTab = false;
  bool endsAtApostrophe = false;
  bool endsAtComma = false;
};
// Counts the word characters of text from 1-based position start on, at most kMaxWordCharRun.
int32_t CountWordChars(std::string_view text, int32_t start, const WordCharTable& wordChars);
// The same count with the description of the character that ends the run.
WordCharRun ScanWordChars(std::string_view text, int32_t start, const WordCharTable& wordChars);
WordCharRun ScanWordChars(std::string_view text, int32_t start, bool allowDigits,
                          std::string_view extraChars);

// True when the word, without surrounding blanks, is one character repeated ("aaaa", "---").
bool IsRepeatedChar(std::string_view word);
// True for "II", "XIV", "MCM"...; never for "I" nor for the real words "DIM", "MID", "VIM",
// "CID", "LID", "LIVID", "VIVID", "CIVIL" and "DILL". Letter case does not matter.
bool IsRomanNumeral(std::string_view word, bool onlyIVX);

// Backspaces removed; line feed, form feed, carriage return, no-break space (and tab unless
// keepTabs) turned into blanks.
void CleanLine(AnsiString& line, bool keepTabs);
// Removes every "<!--" ... "-->" that begins and ends in the line.
void RemoveHtmlComments(AnsiString& line);

// Walks a line and hands every word found on: to the exclusion step and the word store during a
// run, straight to the word store while common words are read.
// Built once per run or load: the character tables and comment markers come from the settings
// at construction (the "C" markers when ctx.run.blnReadingWords is already set), and the settings
// stay as they are while it walks.
class LineWalker {
 public:
  explicit LineWalker(EngineContext& ctx);

  // Walks line followed by one blank (cleaned first, in ctx.run.strLine, when it holds a byte the
  // cleaning acts on). Returns at the end of the line, or at once when ctx.run.blnStop is set
  // after a word.
  void WalkLine(std::string_view line);

 private:
  // The line is walked in a copy of its own, with its blank, followed by sentinels, so that the
  // scans need no bounds test at each byte and may read a word's bytes 16 at a time.
  static constexpr size_t kLineSlack = 32;
  // "ÿ", a word character but no ASCII letter: it ends the skip over blanks and stops a short
  // word's letters at the line's end. As many as a read of 16 bytes may pass the line's end by.
  static constexpr char kSentinel = '\xFF';
  static constexpr size_t kSentinels = 16;
  void CopyLine(std::string_view line);
  // Steps over comments at lngLP; false when the rest of the line is comment.
  bool StepOverComments();
  // Takes the word at lngLP and counts it when it is accepted.
  void TakeWord(const NormalizationOptions& options);
  // The quick lanes for a word that normalisation leaves as it is. ReadShortWord reads a word of
  // at most 16 ASCII letters and sets it aside for CountWordsRead (false: the run is stopped);
  // TakePlainWord takes any other, or returns false when normalisation would change it.
  size_t ReadShortWord(const char* start);
  bool CountWordsRead(const NormalizationOptions& options);
  bool TakePlainWord(const NormalizationOptions& options);
  bool PlainWordAccepted(std::string_view word, const NormalizationOptions& options) const;
  void RememberAccepted(int32_t id);
  // Counts an accepted word; storedId is its id when it is known to be stored, else -1.
  void CountAcceptedWord(std::string_view word, uint64_t hash, int32_t storedId = -1);

  EngineContext& ctx_;
  WordCharTable wordChars_{};
  WordCharTable startChars_{};
  std::array<bool, 256> commentStartChars_{};
  // Where a skip over punctuation and blanks ends: a word or a comment may begin there.
  std::array<bool, 256> skipEnds_{};
  std::array<unsigned char, 256> byteKinds_{};  // what the accept tests learn of each byte
  CommentMarkerPairs markers_;
  bool foldCase_ = false;
  bool blankStartsComment_ = false;  // a comment marker begins with a blank
  std::vector<char> text_;  // the line walked, with its sentinel and spare bytes
  std::string_view line_;   // the line walked within text_
  // A word read by ReadShortWord: its bytes, folded and cleared beyond its end, and its hash.
  struct ShortWord {
    char bytes[16];
    uint64_t hash;
    uint32_t size;
  };
  static constexpr size_t kWordsReadAhead = 64;
  std::array<ShortWord, kWordsReadAhead> wordsRead_;
  size_t wordsReadCount_ = 0;
  // By store id, the words of at most 16 letters that passed the accept tests in this walk.
  std::vector<unsigned char> accepted_;
  AnsiString scratch_;  // the plural rules' rewritten word
};

}  // namespace wordtally
