// A whole counting run of clipboard text under settings taken from the first bytes: the per-line
// walk, the exclusion step, the store, ranking and the listing. The frequencies must add up to
// the occurrences counted, and the listing must hold one line per included word.
#include <cstdlib>
#include <string>

#include "analysis/quiet_host.h"
#include "engine/engine_context.h"
#include "engine/run_driver.h"
#include "fuzz/fuzz_input.h"

namespace {

class ClipboardHost : public wordtally::QuietHost {
 public:
  explicit ClipboardHost(std::u16string text) : text_(std::move(text)) {}
  std::u16string ClipboardText() override { return text_; }

 private:
  std::u16string text_;
};

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

wordtally::CountingSettings SettingsOf(uint8_t a, uint8_t b) {
  using wordtally::fuzz::Bit;
  wordtally::CountingSettings s;
  s.optInFile = false;
  s.chkSuppressWords = 1;
  s.chkCaseSignificant = Bit(a, 0);
  s.chkAllowWordsWithHyphens = Bit(a, 1);
  s.chkAllowWordsWithApostrophes = Bit(a, 2);
  s.chkAllowWordsWithNumerals = Bit(a, 3);
  s.chkDropFinalS = Bit(a, 4);
  s.chkOnly7bitASCII = Bit(a, 5);
  s.chkIgnoreNoVowel = Bit(a, 6);
  s.chkAllowCommentMarkers = Bit(a, 7);
  s.chkIgnoreInfrequentWords = Bit(b, 0);
  s.cboThresholdFrequency = (b >> 1) & 7;
  s.cboWordOrder = Bit(b, 4);
  s.cboDisplayFormat = (b >> 5) % 9;  // format 9 lists all the words on one line
  s.txbWordsToIgnore = Bit(b, 7) ? "the and" : "";
  return s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace wordtally;
  fuzz::FuzzInput input(data, size);
  const uint8_t a = input.TakeByte(), b = input.TakeByte();
  CountingSettings settings = SettingsOf(a, b);
  // Control characters would only make the clipboard's plain-text test refuse the text.
  AnsiString text(input.Rest());
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 32 && c != '\t' && c != '\n' && c != '\r') c = ' ';
  }
  ClipboardHost host(AnsiToUtf16(text));
  EngineContext ctx(host, settings);
  ctx.run.blnStartUpCompleted = true;
  txbWordsToIgnore_LostFocus(settings, host);
  int32_t listingLines = 0;
  ctx.onListingLine = [&listingLines](std::string_view) { ++listingLines; };
  DoIt(ctx);
  if (!ctx.run.blnWordsGot) return 0;

  int64_t stored = 0, included = 0;
  for (const WordListEntry& entry : ctx.store.WordList().subspan(1)) {
    Check(entry.Frequency > 0);
    stored += entry.Frequency;
    if (entry.Included) included += entry.Frequency;
  }
  const ListStatistics& stats = ctx.run.stats;
  Check(stored == ctx.run.lngTotalNumOccurrences - ctx.run.lngNumWordsIgnored);
  Check(included == stats.lngNumOccurrences);
  Check(listingLines == (stats.lngNumWordsIncluded == 0 ? 0 : stats.lngNumWordsIncluded + 1));
  return 0;
}
