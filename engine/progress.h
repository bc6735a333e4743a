#pragma once
// Elapsed time, the running word count, the text progress bar and the Stop request.
#include <cstdint>

namespace wordtally {

struct EngineContext;

inline constexpr int16_t kProgressBarWidth = 37;

void StartClock(EngineContext& ctx);
// The one-second timer tick: elapsed time and the number of different words so far.
void TimerTick(EngineContext& ctx);
// The count button's click while it reads "Stop": only sets blnStop.
void RequestStop(EngineContext& ctx);
void SetTotalNumOccurrencesForFileProgressBar(EngineContext& ctx);
void UpdateProgressBar(EngineContext& ctx, double done, double total, double minimum);
// Hides the run's counters; with concealTime also clears the elapsed time.
void ConcealNumWords(EngineContext& ctx, bool concealTime);

}  // namespace wordtally
