#include "engine/word_filters.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/word_counting.h"
#include "engine/word_extraction.h"
#include "engine/word_store.h"
#include "input/decoding.h"
#include "input/file_vetting.h"
#include "input/line_reader.h"
#include "support/ansi_text.h"
#include "support/file_utils.h"
#include "support/number_format.h"
#include "support/run_error.h"

namespace wordtally {

namespace {

// The word lower-cased. Ordinary words stay in the object's own buffer, so the per-word path
// does not allocate.
class LowerCaseWord {
 public:
  explicit LowerCaseWord(std::string_view word) {
    char* text = inline_.data();
    if (word.size() > inline_.size()) {
      heap_.resize(word.size());
      text = heap_.data();
    }
    std::memcpy(text, word.data(), word.size());
    LowerAnsiInPlace(text, word.size());
    text_ = std::string_view(text, word.size());
  }
  LowerCaseWord(const LowerCaseWord&) = delete;
  LowerCaseWord& operator=(const LowerCaseWord&) = delete;

  std::string_view Word() const { return text_; }

 private:
  std::array<char, 128> inline_;
  std::string heap_;
  std::string_view text_;
};

bool IsCommonWord(const EngineContext& ctx, std::string_view lowerCaseWord) {
  int32_t position = 0;
  return BinarySearchStrings(lowerCaseWord, ctx.commonWords.words, ctx.commonWords.Count(),
                             position, 1);
}

// The load's run state and captions, set for its duration and restored however it ends.
class CommonWordsLoadScope {
 public:
  explicit CommonWordsLoadScope(EngineContext& ctx) : ctx_(ctx) {
    ctx_.store.Reset();
    ctx_.run.blnStop = false;
    ctx_.run.comment = CommentState{};
    ctx_.run.blnReadingWords = true;
    ctx_.host.SetCaption(Control::Status, AnsiString(kReadingCommonWordsStatus));
    ctx_.host.SetCaption(Control::CountButton, AnsiString(texts::kStop));
  }
  ~CommonWordsLoadScope() {
    ctx_.run.blnReadingWords = false;
    ctx_.run.comment = CommentState{};
    ctx_.host.SetCaption(Control::Status, "");
    ctx_.host.SetCaption(Control::CountButton, AnsiString(texts::kCountButtonIdle));
  }
  CommonWordsLoadScope(const CommonWordsLoadScope&) = delete;
  CommonWordsLoadScope& operator=(const CommonWordsLoadScope&) = delete;

 private:
  EngineContext& ctx_;
};

// The busy state of the main window for the duration of a load.
class BusyScope {
 public:
  explicit BusyScope(Host& host) : host_(host) { host_.SetBusy(true); }
  ~BusyScope() { host_.SetBusy(false); }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  Host& host_;
};

// Walks every line of the file; false when reading failed (message shown) or the user stopped.
bool WalkCommonWordsFile(EngineContext& ctx, const std::string& path) {
  LineReader reader;
  if (!reader.Open(path)) {
    ShowReadFailure(ctx.host, reader, path);
    return false;
  }
  CommonWordsLoadScope scope(ctx);
  LineWalker walker(ctx);
  std::string_view line;
  AnsiString lowered;
  while (!ctx.run.blnStop && reader.NextLine(line)) {
    lowered.assign(line);
    Utf8ToAnsiInPlace(lowered);
    LowerAnsiInPlace(lowered);
    ctx.run.comment.lineGoesOn = reader.LineGoesOn();
    walker.WalkLine(lowered);
  }
  if (reader.ErrorNumber() != 0) {
    ShowReadFailure(ctx.host, reader, path);
    return false;
  }
  if (ctx.run.blnStop) {
    ctx.run.blnStop = false;
    return false;
  }
  return true;
}

void CopyStoreToCommonWords(EngineContext& ctx) {
  const auto records = ctx.store.WordList();
  std::vector<AnsiString>& words = ctx.commonWords.words;
  words.clear();
  words.reserve(records.size());
  for (size_t i = 1; i < records.size(); ++i) words.emplace_back(records[i].Word);
}

AnsiString CommonWordsLoadedText(int32_t count, const std::string& path) {
  const AnsiString counted = count == 1 ? AnsiString("One common word")
                                        : FormatWholeNumber(count) + " common words";
  return counted + " loaded from " + path;
}

}  // namespace

bool Is7BitASCII(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

bool BinarySearchStrings(std::string_view key, const std::vector<AnsiString>& list, int32_t count,
                         int32_t& position, int32_t startChar) {
  const size_t offset = startChar > 1 ? static_cast<size_t>(startChar) - 1 : 0;
  auto entry = [&list, offset](int32_t index) {
    const std::string_view text = list[static_cast<size_t>(index) - 1];
    return offset < text.size() ? text.substr(offset) : std::string_view();
  };
  return BinarySearchSorted(key, entry, count, position);
}

void GetWords2(EngineContext& ctx, std::string_view word) {
  GetWords2(ctx, word, WordHashOf(word));
}

void GetWords2(EngineContext& ctx, std::string_view word, uint64_t hash) {
  const CountingSettings& settings = ctx.settings;
  if (settings.chkOnly7bitASCII == 1 && !Is7BitASCII(word)) {
    Increment(ctx.run.lngNumWordsIgnored);
    return;
  }
  const bool ignoreCommonWords = settings.chkIgnoreCommonWords == 1;
  if (!settings.strWordsToIgnore.empty() || ignoreCommonWords) {
    const LowerCaseWord lowered(word);
    if (settings.strWordsToIgnore.Contains(lowered.Word())) {
      Increment(ctx.run.lngNumWordsIgnored);
      return;
    }
    if (ignoreCommonWords && IsCommonWord(ctx, lowered.Word())) return;
  }
  if (!word.empty()) AddWordToList(ctx, word, hash);
}

bool ReadCommonWords(EngineContext& ctx) {
  const std::string path = ctx.commonWords.strCommonWordsFile;
  if (!FileExists(path)) {
    ctx.host.ShowMessage({AnsiString(kCommonWordsNotFoundTitle), AnsiString(kCommonWordsNotFound),
                          MessageIcon::Exclamation, MessageButtons::Ok});
    return false;
  }
  bool isUtf8 = false;
  int16_t classCode = 0;
  if (!CheckInputFile(ctx.host, ctx.blnMacNoticeShown, path, true, isUtf8, classCode, false)) {
    return false;
  }
  if (!WalkCommonWordsFile(ctx, path)) return false;
  CopyStoreToCommonWords(ctx);
  return true;
}

bool AttemptToReadCommonWords(EngineContext& ctx) {
  CommonWordsList& common = ctx.commonWords;
  bool loaded = false;
  {
    const BusyScope busy(ctx.host);
    loaded = ReadCommonWords(ctx);
  }
  if (loaded) {
    common.blnCommonWordsLoaded = true;
    ctx.host.SetCaption(Control::NumberOfWords, "");
    Inform(ctx.host, kCommonWordsLoadedTitle,
           CommonWordsLoadedText(common.Count(), common.strCommonWordsFile));
    ctx.settings.txbCommonWordsFile = common.strCommonWordsFile;
    ctx.settings.chkIgnoreCommonWords = 1;
  } else {
    // A failed load leaves no list behind that could still be taken for the file's.
    common.words.clear();
    common.blnCommonWordsLoaded = false;
    ctx.settings.chkIgnoreCommonWords = 0;
  }
  ctx.host.SettingsChanged();
  return loaded;
}

}  // namespace wordtally
