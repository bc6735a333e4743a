#include "ui/word_pattern.h"

namespace wordtally::ui {
namespace {

bool SameLetter(char patternChar, char wordChar) {
  return patternChar == static_cast<char>(LowerAnsiChar(static_cast<unsigned char>(wordChar)));
}

// Greedy matching with one back-track point: the last * seen takes one more character whenever
// what follows it fails to match.
bool MatchesWildcard(std::string_view pattern, std::string_view word) {
  size_t p = 0, w = 0, starAt = std::string_view::npos, resumeAt = 0;
  while (w < word.size()) {
    if (p < pattern.size() && (pattern[p] == '?' || SameLetter(pattern[p], word[w]))) {
      ++p;
      ++w;
    } else if (p < pattern.size() && pattern[p] == '*') {
      starAt = p++;
      resumeAt = w;
    } else if (starAt != std::string_view::npos) {
      p = starAt + 1;
      w = ++resumeAt;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

bool Contains(std::string_view text, std::string_view word) {
  if (text.size() > word.size()) return false;
  for (size_t start = 0; start + text.size() <= word.size(); ++start) {
    size_t i = 0;
    while (i < text.size() && SameLetter(text[i], word[start + i])) ++i;
    if (i == text.size()) return true;
  }
  return false;
}

}  // namespace

WordPattern::WordPattern(std::string_view text)
    : text_(LowerAnsi(text)), wildcard_(text.find_first_of("*?") != std::string_view::npos) {}

bool WordPattern::Matches(std::string_view word) const {
  if (text_.empty()) return true;
  return wildcard_ ? MatchesWildcard(text_, word) : Contains(text_, word);
}

}  // namespace wordtally::ui
