#include "corpus/corpus_counts.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "support/run_error.h"

namespace wordtally {
namespace {

AnsiString Flag(int checkBox) { return checkBox == 1 ? "1" : "0"; }

// The comment-marker pairs in force, "/* */ //", or "off".
AnsiString CommentMarkersValue(const CountingSettings& s) {
  if (s.chkAllowCommentMarkers != 1) return "off";
  AnsiString value;
  for (size_t i = 0; i < s.txbStartComment.size(); ++i) {
    if (s.txbStartComment[i].empty()) continue;
    if (!value.empty()) value += ' ';
    value += s.txbStartComment[i] + (s.txbEndComment[i].empty() ? "" : " " + s.txbEndComment[i]);
  }
  return value.empty() ? "off" : value;
}

// The words to ignore, sorted and blank-separated: the same set in any order is the same setting.
AnsiString WordsToIgnoreValue(const CountingSettings& s) {
  std::istringstream text(s.strWordsToIgnore.Text());
  std::vector<AnsiString> words{std::istream_iterator<AnsiString>(text), {}};
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  AnsiString value;
  for (const AnsiString& word : words) value += (value.empty() ? "" : " ") + word;
  return value;
}

// The common-words file by its content (an FNV-1a digest), so that a copy under another name or
// on another machine is the same setting; "off" when no common words are ignored.
AnsiString CommonWordsValue(const CountingSettings& s) {
  if (s.chkIgnoreCommonWords != 1) return "off";
  std::ifstream file(s.txbCommonWordsFile, std::ios::binary);
  uint64_t digest = 14695981039346656037ull;
  for (std::istreambuf_iterator<char> c(file), end; c != end; ++c) {
    digest = (digest ^ static_cast<unsigned char>(*c)) * 1099511628211ull;
  }
  char hex[17];
  std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(digest));
  return hex;
}

// Appends perFile to to, its file indexes moved offset places on (past the other side's files).
void AppendShifted(std::vector<FileCount>& to, const std::vector<FileCount>& perFile,
                   int32_t offset) {
  for (const FileCount& count : perFile) to.push_back({count.file + offset, count.count});
}

}  // namespace

std::vector<CountSetting> CountSettingsOf(const CountingSettings& s) {
  return {
      {"case sensitive", Flag(s.chkCaseSignificant)},
      {"hyphens", Flag(s.chkAllowWordsWithHyphens)},
      {"apostrophes", Flag(s.chkAllowWordsWithApostrophes)},
      {"numerals", Flag(s.chkAllowWordsWithNumerals)},
      {"singular", Flag(s.chkDropFinalS)},
      {"7-bit ASCII only", Flag(s.chkOnly7bitASCII)},
      {"ignore words without vowels", Flag(s.chkIgnoreNoVowel)},
      {"comment markers", CommentMarkersValue(s)},
      {"modern text", Flag(s.chkModernText)},
      {"words to ignore", WordsToIgnoreValue(s)},
      {"common words", CommonWordsValue(s)},
  };
}

std::vector<std::string> DifferingSettings(const std::vector<CountSetting>& a,
                                           const std::vector<CountSetting>& b) {
  std::vector<std::string> names;
  for (const CountSetting& setting : a) {
    const auto other = std::find_if(b.begin(), b.end(),
                                    [&](const CountSetting& s) { return s.first == setting.first; });
    if (other == b.end() || other->second != setting.second) names.push_back(setting.first);
  }
  for (const CountSetting& setting : b) {
    const auto mine = std::find_if(a.begin(), a.end(),
                                   [&](const CountSetting& s) { return s.first == setting.first; });
    if (mine == a.end()) names.push_back(setting.first);
  }
  return names;
}

void MergeCounts(CorpusCounts& into, const CorpusCounts& from) {
  const auto offset = static_cast<int32_t>(into.files.size());
  CheckedAdd(into.totalOccurrences, from.totalOccurrences);
  CheckedAdd(into.wordsIgnored, from.wordsIgnored);
  into.files.insert(into.files.end(), from.files.begin(), from.files.end());

  std::vector<CorpusWord> merged;
  merged.reserve(std::max(into.words.size(), from.words.size()));
  auto mine = into.words.begin();
  auto theirs = from.words.begin();
  while (mine != into.words.end() || theirs != from.words.end()) {
    if (theirs == from.words.end() ||
        (mine != into.words.end() && LessCodeUnits(mine->word, theirs->word))) {
      merged.push_back(std::move(*mine++));
    } else if (mine == into.words.end() || LessCodeUnits(theirs->word, mine->word)) {
      merged.push_back({theirs->word, theirs->frequency, {}});
      AppendShifted(merged.back().perFile, theirs++->perFile, offset);
    } else {
      CheckedAdd(mine->frequency, theirs->frequency);
      AppendShifted(mine->perFile, theirs++->perFile, offset);
      merged.push_back(std::move(*mine++));
    }
  }
  into.words = std::move(merged);
}

const CorpusWord* FindCorpusWord(const CorpusCounts& counts, std::string_view word) {
  const auto it = std::lower_bound(
      counts.words.begin(), counts.words.end(), word,
      [](const CorpusWord& entry, std::string_view key) { return LessCodeUnits(entry.word, key); });
  return it != counts.words.end() && it->word == word ? &*it : nullptr;
}

}  // namespace wordtally
