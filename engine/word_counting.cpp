#include "engine/word_counting.h"

#include <string>

#include "engine/engine_context.h"

namespace wordtally {
namespace {

void EchoNewWord(EngineContext& ctx, std::string_view word) {
  if (ctx.settings.chkSuppressWords == 1) return;
  if (ctx.host.OutputLength() <= static_cast<size_t>(lngMaxTextboxLength - 100)) {
    std::string echo(word);
    echo += ' ';
    ctx.host.AppendOutput(echo);
    return;
  }
  if (!ctx.run.blnSuppressionNoticeShown) {
    ctx.host.AppendOutput(std::string("\r\n\r\n").append(kSuppressionNotice));
  }
  ctx.run.blnSuppressionNoticeShown = true;
  ctx.settings.chkSuppressWords = 1;
  ctx.host.SettingsChanged();
}

void ShowWordCount(EngineContext& ctx, int32_t numWords) {
  if (ctx.run.blnReadingWords) {
    ctx.host.SetCaption(Control::NumberOfWords,
                        "Number of common words read so far: " + std::to_string(numWords));
  }
  ctx.host.SetVisible(Control::NumberOfWords, true);
}

}  // namespace

void AnnounceNewWord(EngineContext& ctx, std::string_view word) {
  const int32_t numWords = ctx.store.lngNumWords();
  if (numWords == 1) {
    if (ctx.settings.chkSuppressWords != 1) ctx.host.SetOutputText(std::string(word) + ' ');
    return;
  }
  if (numWords % 10 == 0) ShowWordCount(ctx, numWords);
  EchoNewWord(ctx, word);
}

void AddWordToList(EngineContext& ctx, std::string_view word) {
  AddWordToList(ctx, word, WordHashOf(word));
}

void AddWordToList(EngineContext& ctx, std::string_view word, uint64_t hash) {
  if (word.size() > static_cast<size_t>(intMaxPermittedWordLength)) return;
  bool isNew;
  const int32_t id = ctx.store.CountWord(word, hash, isNew);
  if (ctx.fileTally != nullptr) ctx.fileTally->Add(id);
  if (isNew) AnnounceNewWord(ctx, word);
}

void CountStoredWord(EngineContext& ctx, int32_t id) {
  ctx.store.CountStoredWord(id);
  if (ctx.fileTally != nullptr) ctx.fileTally->Add(id);
}

}  // namespace wordtally
