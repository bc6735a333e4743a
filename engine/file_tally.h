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
  // One more occurrence of the store's word id in the current file.
  void Add(int32_t id);
  // The per-file counts of word id, in ascending file order. Valid until the next Add.
  std::span<const FileCount> CountsOf(int32_t id) const;
  // Forgets everything.
  void Reset();

 private:
  int32_t file_ = 0;
  // Per word id, the files it occurs in: a word seen in the current file has it last.
  std::vector<std::vector<FileCount>> perWord_;
};

}  // namespace wordtally
