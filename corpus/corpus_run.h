#pragma once
// A corpus run: many files, folders and count files counted into one store through the engine's
// one-file reading, with per-file counts, then listed as one run.
#include <functional>
#include <string>
#include <vector>

#include "corpus/corpus_counts.h"
#include "corpus/corpus_files.h"
#include "engine/engine_context.h"
#include "engine/file_tally.h"

namespace wordtally {

// The counts of a corpus's text files made elsewhere (by other processes), with the files that
// were not counted there, in input order.
struct TextFileCounts {
  CorpusCounts counts;
  std::vector<std::string> skipped;
};
// Called where the run would read its text files (given in input order); it may tell the host
// what happened to them and throws a RunError when their counting failed.
using TextFileSource = std::function<TextFileCounts(EngineContext&,
                                                    const std::vector<std::string>& files)>;

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
  // Makes the run take its text files' counts from source instead of reading the files; they are
  // loaded into the store as the counts of count files are.
  void TakeTextFileCountsFrom(TextFileSource source) { textFileSource_ = std::move(source); }

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
  // Counts the text files here, or takes their counts from textFileSource_, into counts_ and
  // skipped_; false when a question was cancelled.
  bool CountOrTakeTextFiles(EngineContext& ctx, const std::vector<CorpusTextFile>& files);

  std::vector<std::string> inputs_;
  FileTally tally_;
  CorpusCounts counts_;
  std::vector<std::string> skipped_;
  std::vector<std::string> readInPart_;
  TextFileSource textFileSource_;
};

}  // namespace wordtally
