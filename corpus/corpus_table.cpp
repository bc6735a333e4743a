#include "corpus/corpus_table.h"

#include <fstream>

#include "corpus/corpus_files.h"

namespace wordtally {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// A field as RFC 4180 wants it: quoted when it holds a comma, a quote, CR or LF, with its quotes
// doubled.
void AppendField(std::string& row, std::string_view field) {
  if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
    row.append(field);
    return;
  }
  row += '"';
  for (char c : field) row.append(c == '"' ? 2 : 1, c);
  row += '"';
}

std::string HeaderRow(const CorpusCounts& counts) {
  std::vector<std::string> paths;
  for (const CountedFile& file : counts.files) paths.push_back(file.path);
  std::string row = "Rank,Word,Frequency,Range";
  for (const std::string& column : PathsBelowCommonFolder(paths)) {
    row += ',';
    AppendField(row, column);
  }
  return row + "\r\n";
}

// The row of one listed word: its rank and frequency as listed, its range and its count in each
// file (0 where it does not occur).
void AppendRow(std::string& out, const WordListEntry& entry, const CorpusCounts& counts) {
  const CorpusWord* word = FindCorpusWord(counts, entry.Word);
  out += std::to_string(entry.FreqOrder) + ',';
  AppendField(out, AnsiToUtf8(entry.Word));
  out += ',' + std::to_string(entry.Frequency) + ',' +
         std::to_string(word != nullptr ? word->Range() : 0);
  auto occurs = word != nullptr ? word->perFile.begin() : std::vector<FileCount>::const_iterator();
  for (int32_t file = 0; file < static_cast<int32_t>(counts.files.size()); ++file) {
    const bool here = word != nullptr && occurs != word->perFile.end() && occurs->file == file;
    out += ',' + std::to_string(here ? occurs++->count : 0);
  }
  out += "\r\n";
}

}  // namespace

bool WriteCorpusTable(const std::string& path, std::span<const WordListEntry> WordList,
                      const ListStatistics& stats, int wordOrder, const CorpusCounts& counts,
                      std::string& error) {
  std::string out(kByteOrderMark);
  out += HeaderRow(counts);
  if (wordOrder == 0) {
    int32_t index = stats.lngFirstFreq;
    for (int32_t n = 0; n < stats.lngNumWordsIncluded && index != 0; ++n) {
      AppendRow(out, WordList[static_cast<size_t>(index)], counts);
      index = WordList[static_cast<size_t>(index)].NextByFreq;
    }
  } else {
    for (size_t index = 1; index < WordList.size(); ++index) {
      if (WordList[index].Included) AppendRow(out, WordList[index], counts);
    }
  }
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (file.write(out.data(), static_cast<std::streamsize>(out.size())) && file.flush()) return true;
  error = "The corpus table " + path + " could not be written.";
  return false;
}

}  // namespace wordtally
