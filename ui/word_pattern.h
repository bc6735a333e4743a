#pragma once
// The filter of the results views: words containing a text, or, when the text holds * or ?, words
// matching it as a wildcard pattern (* any run of characters, ? one character). Letter case is
// ignored. Windows-1252 text, like the words.
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally::ui {

class WordPattern {
 public:
  WordPattern() = default;
  explicit WordPattern(std::string_view text);

  bool MatchesEverything() const { return text_.empty(); }
  bool Matches(std::string_view word) const;

 private:
  AnsiString text_;  // lower case
  bool wildcard_ = false;
};

}  // namespace wordtally::ui
