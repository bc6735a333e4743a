#include "corpus/corpus_run.h"

#include <algorithm>

#include "corpus/count_file.h"
#include "engine/file_counting.h"
#include "engine/run_messages.h"
#include "support/file_utils.h"
#include "support/number_format.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

constexpr std::string_view kNotCountedTitle = "File not counted";
constexpr std::string_view kOtherSettingsTitle = "Count file made under other settings";

// The output file may not be any of the inputs (nor the common-words file, nor a docx file).
bool OutputSparesInputs(EngineContext& ctx, const std::vector<CorpusInput>& inputs) {
  return std::all_of(inputs.begin(), inputs.end(), [&](const CorpusInput& input) {
    return OutputFileAcceptable(ctx, input.path, true);
  });
}

std::vector<CorpusTextFile> WithSizes(const std::vector<std::string>& paths) {
  std::vector<CorpusTextFile> files;
  files.reserve(paths.size());
  for (const std::string& path : paths) {
    files.push_back({path, std::max<int64_t>(FileSize(path), 0)});
  }
  return files;
}

int64_t TotalSize(const std::vector<CorpusTextFile>& files) {
  int64_t total = 0;
  for (const CorpusTextFile& file : files) total += file.size;
  return total;
}

// Reads the count files; those that are damaged or made under settings other than the run's are
// told and skipped.
std::vector<CorpusCounts> ReadCountFiles(EngineContext& ctx, const std::vector<std::string>& paths,
                                         std::vector<std::string>& skipped) {
  const std::vector<CountSetting> settings = CountSettingsOf(ctx.settings);
  std::vector<CorpusCounts> accepted;
  for (const std::string& path : paths) {
    CorpusCounts counts;
    std::string error;
    if (!ReadCountFile(path, counts, error)) {
      Warn(ctx.host, kNotCountedTitle, error);
      skipped.push_back(path);
      continue;
    }
    const std::vector<std::string> differing = DifferingSettings(settings, counts.settings);
    if (differing.empty()) {
      accepted.push_back(std::move(counts));
      continue;
    }
    AnsiString names;
    for (const std::string& name : differing) names += (names.empty() ? "" : ", ") + name;
    Warn(ctx.host, kOtherSettingsTitle,
         path + "\r\nwas made under other settings than this run: " + names + ".");
    skipped.push_back(path);
  }
  return accepted;
}

// Counts one file of the corpus, its progress reported on top of the files before it. A file
// that cannot be opened is refused like one that vetting refuses.
FileOutcome CountCorpusFile(EngineContext& ctx, const std::vector<CorpusTextFile>& files,
                            size_t i, EncodingAnswers& answers, int64_t& bytesDone,
                            int64_t bytesTotal) {
  const std::string& path = files[i].path;
  const int64_t size = files[i].size;
  Host::CorpusProgress progress{static_cast<int32_t>(i + 1), static_cast<int32_t>(files.size()),
                                path, bytesDone, bytesTotal};
  ctx.host.ShowCorpusProgress(progress);
  OneFileOptions options;
  options.encodingAnswers = &answers;
  options.onProgress = [&](int64_t consumed) {
    progress.bytesDone = bytesDone + std::min(consumed, size);
    ctx.host.ShowCorpusProgress(progress);
  };
  bytesDone += size;
  try {
    return CountOneFile(ctx, path, options);
  } catch (const RunError& e) {
    if (e.Number() == kErrOverflow || e.Number() == kErrOutOfMemory) throw;
    Warn(ctx.host, kNotCountedTitle, path + "\r\n" + e.what());
    return FileOutcome::Refused;
  }
}

// Every word of the store with its per-file counts, in ascending code-unit order.
std::vector<CorpusWord> WordsOf(const WordStore& store, const FileTally& tally) {
  std::vector<CorpusWord> words;
  words.reserve(static_cast<size_t>(store.lngNumWords()));
  store.ForEachWord([&](std::string_view word, int32_t frequency, int32_t id) {
    const std::span<const FileCount> perFile = tally.CountsOf(id);
    words.push_back({AnsiString(word), frequency, {perFile.begin(), perFile.end()}});
  });
  std::sort(words.begin(), words.end(), [](const CorpusWord& a, const CorpusWord& b) {
    return LessCodeUnits(a.word, b.word);
  });
  return words;
}

// Counts made elsewhere join the store and the run's totals as if their files had been read.
void LoadIntoStore(EngineContext& ctx, const CorpusCounts& counts) {
  bool isNew;
  for (const CorpusWord& word : counts.words) ctx.store.CountWord(word.word, isNew, word.frequency);
  CheckedAdd(ctx.run.lngTotalNumOccurrences, counts.totalOccurrences);
  CheckedAdd(ctx.run.lngNumWordsIgnored, counts.wordsIgnored);
}

void ShowFilesStatistic(Host& host, int32_t counted, size_t skipped) {
  host.SetCaption(Control::StatFiles, "Files counted: " + FormatWholeNumber(counted) +
                                          ", skipped: " + FormatWholeNumber(
                                                              static_cast<int64_t>(skipped)));
  host.SetVisible(Control::StatFiles, true);
}

}  // namespace

CorpusRun::CorpusRun(std::vector<std::string> inputs) : inputs_(std::move(inputs)) {}

void CorpusRun::Attach(EngineContext& ctx) {
  ctx.countCorpus = [this](EngineContext& c) { return Count(c); };
}

void CorpusRun::Detach(EngineContext& ctx) {
  ctx.countCorpus = nullptr;
  ctx.fileTally = nullptr;
  ctx.host.SetCaption(Control::StatFiles, "");
  ctx.host.SetVisible(Control::StatFiles, false);
}

bool CorpusRun::Count(EngineContext& ctx) {
  counts_ = CorpusCounts{};
  skipped_.clear();
  readInPart_.clear();
  tally_.Reset();
  const std::vector<CorpusInput> inputs = ExpandCorpusInputs(inputs_);
  std::vector<std::string> textFiles, countFiles;
  for (const CorpusInput& input : inputs) {
    (input.isCountFile ? countFiles : textFiles).push_back(input.path);
  }
  if (!OutputSparesInputs(ctx, inputs)) return false;
  const std::vector<CorpusCounts> madeElsewhere = ReadCountFiles(ctx, countFiles, skipped_);
  const std::vector<CorpusTextFile> sized = WithSizes(textFiles);
  if (!OfferOutputFileForLargeInput(ctx, TotalSize(sized))) return false;

  ResetStoreForCounting(ctx);
  ctx.host.SetOutputText(AnsiString(kProcessingInputFile));
  if (!CountOrTakeTextFiles(ctx, sized)) return false;
  if (!ctx.run.blnStop) {
    for (const CorpusCounts& counts : madeElsewhere) {
      MergeCounts(counts_, counts);
      LoadIntoStore(ctx, counts);
    }
  }
  ShowFilesStatistic(ctx.host, FilesCounted(), skipped_.size());
  return true;
}

bool CorpusRun::CountOrTakeTextFiles(EngineContext& ctx,
                                     const std::vector<CorpusTextFile>& files) {
  if (textFileSource_) {
    std::vector<std::string> paths;
    for (const CorpusTextFile& file : files) paths.push_back(file.path);
    TextFileCounts made = textFileSource_(ctx, paths);
    LoadIntoStore(ctx, made.counts);
    counts_ = std::move(made.counts);
    skipped_.insert(skipped_.end(), made.skipped.begin(), made.skipped.end());
    return true;
  }
  if (!CountTextFiles(ctx, files)) return false;
  counts_.settings = CountSettingsOf(ctx.settings);
  counts_.totalOccurrences = ctx.run.lngTotalNumOccurrences;
  counts_.wordsIgnored = ctx.run.lngNumWordsIgnored;
  counts_.words = WordsOf(ctx.store, tally_);
  return true;
}

bool CorpusRun::CountTextFiles(EngineContext& ctx, const std::vector<CorpusTextFile>& files) {
  EncodingAnswers answers;
  const int64_t bytesTotal = TotalSize(files);
  int64_t bytesDone = 0;
  ctx.fileTally = &tally_;
  for (size_t i = 0; i < files.size() && !ctx.run.blnStop; ++i) {
    tally_.StartFile(FilesCounted());
    const FileOutcome outcome = CountCorpusFile(ctx, files, i, answers, bytesDone, bytesTotal);
    if (outcome == FileOutcome::Cancelled) {
      ctx.fileTally = nullptr;
      return false;
    }
    const std::string& path = files[i].path;
    if (outcome == FileOutcome::Refused) {
      skipped_.push_back(path);
      continue;
    }
    // A file read in part is listed too: its words are in the store under its index.
    counts_.files.push_back({path, files[i].size, ModifiedSeconds(path)});
    if (outcome == FileOutcome::ReadInPart) readInPart_.push_back(path);
  }
  tally_.Finish();
  ctx.fileTally = nullptr;
  return true;
}

}  // namespace wordtally
