#pragma once
// The prepared words to ignore: the text " and of the " (or "" when there are none) and, built
// from it, the set of its words, so that the exclusion step looks a word up in constant time
// however long the list is.
#include <string_view>

#include <absl/container/flat_hash_set.h>

#include "support/ansi_text.h"

namespace wordtally {

class WordsToIgnore {
 public:
  // Takes the prepared text: lower-case words separated by single blanks, with one blank
  // before the first and after the last.
  WordsToIgnore& operator=(std::string_view prepared);

  const AnsiString& Text() const { return text_; }
  bool empty() const { return text_.empty(); }
  void clear() { *this = std::string_view(); }

  // True when lowerCaseWord is one of the words, exactly as " " + word + " " occurs in Text().
  bool Contains(std::string_view lowerCaseWord) const {
    return words_.contains(absl::string_view(lowerCaseWord.data(), lowerCaseWord.size()));
  }

  friend bool operator==(const WordsToIgnore& a, std::string_view b) { return a.text_ == b; }

 private:
  AnsiString text_;
  absl::flat_hash_set<AnsiString> words_;
};

}  // namespace wordtally
