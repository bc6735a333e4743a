#pragma once
// Per-file counts beside the word store: while a corpus is counted, every occurrence the store
// counts is also counted for the file being read. Kept sparse: memory grows with the (word, file)
// pairs that occur, not with words x files.
#include <cstdint>
#include <span>
#include <vector>

namespace wordtally {

struct FileCount {
  int32_t file = 0;   // index into the run's list of counted files
  int32_t count = 0;
};

class FileTally {
 public:
  // Starts counting for file (files are started in ascending index order).
  void StartFile(int32_t file);
  // occurrences more of the store's word id in the current file.
  void Add(int32_t id, int32_t occurrences = 1);
  // Ends the last file and groups the counts by word, for CountsOf.
  void Finish();
  // The per-file counts of word id, in ascending file order, as of the last Finish.
  std::span<const FileCount> CountsOf(int32_t id) const;
  // Forgets everything.
  void Reset();

 private:
  struct WordInFile {
    int32_t id;
    FileCount count;
  };
  void EndFile();

  int32_t file_ = 0;
  // An occurrence touches only the current file's count of its word, a small array that stays
  // in cache; the words seen are kept, so that ending a file costs its distinct words, not the
  // store's size.
  std::vector<int32_t> current_;
  std::vector<int32_t> seen_;
  std::vector<WordInFile> ended_;  // the counts of the files ended, file after file
  // After Finish: the counts grouped by word, those of word id from starts_[id] to starts_[id + 1].
  std::vector<FileCount> grouped_;
  std::vector<size_t> starts_;
};

}  // namespace wordtally
