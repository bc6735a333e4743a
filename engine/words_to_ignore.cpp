#include "engine/words_to_ignore.h"

#include <algorithm>

namespace wordtally {

// A word never holds a blank, so " word " occurs in the text exactly when the word is one of
// the pieces between its blanks.
WordsToIgnore& WordsToIgnore::operator=(std::string_view prepared) {
  text_.assign(prepared);
  words_.clear();
  const std::string_view text(text_);
  size_t start = 0;
  while (start < text.size()) {
    const size_t end = std::min(text.find(' ', start), text.size());
    if (end > start) words_.emplace(text.substr(start, end - start));
    start = end + 1;
  }
  return *this;
}

}  // namespace wordtally
