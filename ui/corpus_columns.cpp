#include "ui/corpus_columns.h"

#include "corpus/corpus_files.h"
#include "ui/qt_text.h"

namespace wordtally::ui {

PerFileCounts PerFileCountsOf(const CorpusCounts& counts) {
  std::vector<std::string> paths;
  for (const CountedFile& file : counts.files) paths.push_back(file.path);
  PerFileCounts columns;
  for (const std::string& name : PathsBelowCommonFolder(paths)) {
    columns.fileNames << PathToQString(name);
  }
  columns.countsOf = [&counts](std::string_view word) {
    const CorpusWord* found = FindCorpusWord(counts, word);
    return found ? std::span<const FileCount>(found->perFile) : std::span<const FileCount>();
  };
  return columns;
}

}  // namespace wordtally::ui
