#include "engine/progress.h"

#include <cmath>
#include <string>

#include "engine/engine_context.h"
#include "support/number_format.h"

namespace wordtally {

void StartClock(EngineContext& ctx) {
  ctx.host.SetVisible(Control::TimeElapsed, true);
  ctx.host.SetCaption(Control::TimeElapsed, "Time elapsed: 0s");
  ctx.run.blnElapsedTimeRunning = true;
  ctx.run.lngSecondsElapsed = 0;
  ctx.host.StartTimer();
}

void TimerTick(EngineContext& ctx) {
  if (!ctx.run.blnElapsedTimeRunning) return;
  ++ctx.run.lngSecondsElapsed;
  ctx.host.SetCaption(Control::TimeElapsed,
                      "Time elapsed: " + FormatElapsedTime(ctx.run.lngSecondsElapsed));
  ctx.host.SetCaption(Control::NumberOfWords, "Number of different words found so far: " +
                                                  FormatWholeNumber(ctx.store.lngNumWords()));
  // The busy indicator turns a quarter at each tick; the run's end sets it to a blank.
  constexpr std::string_view kTwirl = "|/-\\";
  ctx.host.SetCaption(Control::Twirler, AnsiString(1, kTwirl[ctx.run.lngSecondsElapsed % 4]));
}

void RequestStop(EngineContext& ctx) { ctx.run.blnStop = true; }

void SetTotalNumOccurrencesForFileProgressBar(EngineContext& ctx) {
  ctx.run.intProgressBarPosition = 0;
  ctx.host.SetCaption(Control::TotalNumOccurrences,
                      "[" + std::string(kProgressBarWidth, ' ') + "]");
  ctx.host.SetVisible(Control::TotalNumOccurrences, true);
}

void UpdateProgressBar(EngineContext& ctx, double done, double total, double minimum) {
  if (total < minimum) return;
  const auto p = static_cast<int16_t>(std::lround(kProgressBarWidth * done / total));
  ctx.run.intProgressBarPosition = p;
  std::string bar = "[";
  if (p <= 0) {
    bar += ">" + std::string(kProgressBarWidth, ' ');
  } else {
    // Past the full width the bar overruns rather than being clipped.
    bar += std::string(p - 1, '-') + ">";
    if (p < kProgressBarWidth) bar += std::string(kProgressBarWidth - p, ' ');
  }
  ctx.host.SetCaption(Control::TotalNumOccurrences, bar + "]");
}

void ConcealNumWords(EngineContext& ctx, bool concealTime) {
  for (Control c : {Control::NumberOfWords, Control::NumWordsExcluded, Control::NumOccurrences,
                    Control::TotalNumOccurrences}) {
    ctx.host.SetVisible(c, false);
  }
  if (concealTime) ctx.host.SetCaption(Control::TimeElapsed, "");
}

}  // namespace wordtally
