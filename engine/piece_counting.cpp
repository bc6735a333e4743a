#include "engine/piece_counting.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <future>
#include <memory>

#include "engine/piece_merge.h"
#include "engine/worker_pool.h"

namespace wordtally {
namespace {

// How long the main thread waits for a piece before it gives the event loop a turn.
constexpr std::chrono::milliseconds kTurnInterval{20};
// The opening of a file whose decisions (markup kind, the HTML head and its charset) predict
// those of the rest: in nearly every file they are all taken there.
constexpr int64_t kOpeningBytes = 64 << 10;

void GiveTurn(EngineContext& ctx) {
  if (ctx.run.blnStartUpCompleted) ctx.host.ProcessEvents();
}

class PieceRun {
 public:
  PieceRun(EngineContext& ctx, const LineCounting& lines, const FilePiece& range,
           LineReader& reader, LinePreparer& preparer, int threads)
      : ctx_(ctx), lines_(lines), reader_(reader), preparer_(preparer),
        size_(reader.Size()), planner_(range, ctx.pieceBytes),
        window_(2 * static_cast<size_t>(threads)), pool_(threads) {
    predicted_ = PredictedRest(preparer_, range.path, size_);
  }
  // The workers still counting see cancel and end soon; the pool waits for them.
  ~PieceRun() { cancel_ = true; }

  void Run() {
    Fill(preparer_);  // the first piece begins where the file does
    while (!inFlight_.empty()) {
      CountedPiece piece = Await(inFlight_.front());
      inFlight_.pop_front();
      if (!Take(piece)) return;
      Fill(predicted_);
    }
  }

 private:
  // Hands out pieces until the window is full; the first from entry, the others from the state
  // predicted now.
  void Fill(const LinePreparer& entry) {
    const LinePreparer* start = &entry;
    while (inFlight_.size() < window_) {
      const std::optional<FilePiece> piece = planner_.Next();
      if (!piece) return;
      auto task = std::make_shared<std::packaged_task<CountedPiece()>>(
          [piece = *piece, from = *start, lines = lines_,
           context = std::make_unique<PieceContext>(ctx_, cancel_)]() mutable {
            return CountPiece(piece, from, std::move(context), lines);
          });
      inFlight_.push_back(task->get_future());
      pool_.Submit([task] { (*task)(); });
      start = &predicted_;
    }
  }

  // Waits for a piece, giving the event loop turns meanwhile, so that the window stays live.
  CountedPiece Await(std::future<CountedPiece>& counted) {
    while (counted.wait_for(kTurnInterval) != std::future_status::ready) GiveTurn(ctx_);
    return counted.get();
  }

  // Merges the piece, or reads it again here; then the progress and the Stop request. A Stop
  // pressed while the piece was awaited is served first: the run then ends where the pieces
  // taken so far end. False: reading ends (a stop, or a read error left in reader_).
  bool Take(const CountedPiece& piece) {
    if (ctx_.run.blnStop && !lines_.serveProgressAndStop(ctx_, piece.piece.begin, size_)) {
      return false;
    }
    if (Mergeable(piece)) {
      MergeCountedPiece(ctx_, piece);
      preparer_ = piece.exit;
      ctx_.run.comment = piece.exitComment;
    } else if (!ReadAgain(piece.piece)) {
      return false;
    }
    predicted_ = preparer_.Resting();
    GiveTurn(ctx_);
    return lines_.serveProgressAndStop(ctx_, piece.piece.end, size_);
  }

  bool Mergeable(const CountedPiece& piece) const {
    return MergesExactly(ctx_, preparer_, piece.entry, piece.complete,
                         piece.counted->ctx.run.lngTotalNumOccurrences);
  }

  // The one-thread line loop over the piece, from the real state, straight into ctx.
  bool ReadAgain(const FilePiece& piece) {
    if (!reader_.OpenRange(piece.path, piece.begin, piece.end)) return false;
    lines_.countLines(ctx_, reader_, preparer_);
    return reader_.ErrorNumber() == 0 && !ctx_.run.blnStop;
  }

  EngineContext& ctx_;
  const LineCounting lines_;
  LineReader& reader_;
  LinePreparer& preparer_;  // the real state after the pieces taken so far
  const int64_t size_;
  PiecePlanner planner_;
  LinePreparer predicted_{"", false, false};
  const size_t window_;
  std::atomic<bool> cancel_{false};
  WorkerPool pool_;
  std::deque<std::future<CountedPiece>> inFlight_;
};

}  // namespace

LinePreparer PredictedRest(const LinePreparer& preparer, const std::string& path, int64_t size) {
  LinePreparer predicted = preparer;
  if (predicted.Decisions().firstLinePending) {
    LineReader reader(kOpeningBytes);
    std::string_view line;
    if (reader.OpenRange(path, 0, std::min(size, kOpeningBytes))) {
      while (predicted.NextLine(reader, line)) {
      }
    }
  }
  return predicted.Resting();
}

bool CountRangeInPieces(EngineContext& ctx, const LineCounting& lines, const FilePiece& range,
                        LineReader& reader, LinePreparer& preparer) {
  const int threads = ThreadsToUse(ctx.threads);
  if (threads < 2 || range.end - range.begin <= ctx.pieceBytes) return false;
  PieceRun(ctx, lines, range, reader, preparer, threads).Run();
  return true;
}

void CountRange(EngineContext& ctx, const LineCounting& lines, const FilePiece& range,
                LineReader& reader, LinePreparer& preparer) {
  if (CountRangeInPieces(ctx, lines, range, reader, preparer)) return;
  if (reader.OpenRange(range.path, range.begin, range.end)) lines.countLines(ctx, reader, preparer);
}

}  // namespace wordtally
