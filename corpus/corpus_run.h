#pragma once
// A corpus run: many files, folders and count files counted into one store through the engine's
// one-file reading, with per-file counts, then listed as one run.
#include <string>
#include <vector>

#include "corpus/corpus_counts.h"
#include "corpus/corpus_files.h"
#include "engine/engine_context.h"
#include "engine/file_tally.h"

namespace wordtally {

// A text file of a corpus with its size, taken once before counting (for the progress, the
// large-input question and the count file's record).
struct CorpusTextFile {
  std::string path;
  int64_t size = 0;
};

class CorpusRun {
 public:
  // inputs as the user gave them (files, folders, count files).
  explicit CorpusRun(std::vector<std::string> inputs);
  CorpusRun(const CorpusRun&) = delete;
  CorpusRun& operator=(const CorpusRun&) = delete;

  // Makes the next DoIt(ctx) count this corpus. Detach undoes it.
  void Attach(EngineContext& ctx);
  void Detach(EngineContext& ctx);

  // After DoIt: the counts of the run (every counted file, then the files of each count file),
  // the files counted, the inputs skipped (refused by vetting, unreadable, or count files made
  // under other settings; each was told in a message of its own) and the files counted only up
  // to a read failure (counted and listed, and told).
  const CorpusCounts& Counts() const { return counts_; }
  int32_t FilesCounted() const { return static_cast<int32_t>(counts_.files.size()); }
  const std::vector<std::string>& Skipped() const { return skipped_; }
  const std::vector<std::string>& ReadInPart() const { return readInPart_; }

 private:
  bool Count(EngineContext& ctx);
  // Counts the text files into the store and the tally; false when a question was cancelled.
  bool CountTextFiles(EngineContext& ctx, const std::vector<CorpusTextFile>& files);

  std::vector<std::string> inputs_;
  FileTally tally_;
  CorpusCounts counts_;
  std::vector<std::string> skipped_;
  std::vector<std::string> readInPart_;
};

}  // namespace wordtally
