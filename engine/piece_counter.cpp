#include "engine/piece_counter.h"

#include <exception>
#include <utility>

#include "engine/piece_counting.h"

namespace wordtally {

void PieceHost::SettingsChanged() {
  if (settingsChangedAt_ < 0) settingsChangedAt_ = ctx_.store.lngNumWords();
}

void PieceHost::ProcessEvents() {
  if (cancel_.load(std::memory_order_relaxed)) ctx_.run.blnStop = true;
}

PieceContext::PieceContext(const EngineContext& run, const std::atomic<bool>& cancel)
    : settings(run.settings), ctx(host, settings), host(cancel, ctx) {
  settings.chkSuppressWords = 1;  // the main thread echoes the words as it merges them
  ctx.commonWords = run.commonWords;
  ctx.run.blnInputIsDocx = run.run.blnInputIsDocx;
  ctx.run.blnStartUpCompleted = true;  // so that the line walk's turns look at cancel
  ctx.threads = 1;  // a piece is read line after line; a part handed to a process sets its own
  ctx.pieceBytes = run.pieceBytes;
}

CountedPiece CountPiece(const FilePiece& piece, const LinePreparer& entry,
                        std::unique_ptr<PieceContext> context, const LineCounting& lines) {
  CountedPiece counted{piece, entry, entry, {}, -1, false, nullptr};
  EngineContext& ctx = context->ctx;
  try {
    LineReader reader;
    CountRange(ctx, lines, piece, reader, counted.exit);
    counted.complete = reader.ErrorNumber() == 0 && !ctx.run.blnStop;
  } catch (const std::exception&) {
    // The main thread counts the piece again itself, and meets the error where a one-thread
    // run would.
  }
  counted.exitComment = ctx.run.comment;
  counted.utf8SwitchAt = context->host.SettingsChangedAt();
  counted.counted = std::move(context);
  return counted;
}

}  // namespace wordtally
