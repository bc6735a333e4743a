#include "engine/part_counting.h"

#include <atomic>
#include <memory>

#include "engine/piece_counting.h"
#include "engine/piece_merge.h"
#include "engine/word_hash.h"

namespace wordtally {
namespace {

std::vector<FilePiece> CutIntoParts(const FilePiece& whole, int count) {
  PiecePlanner planner(whole, (whole.end - whole.begin + count - 1) / count);
  std::vector<FilePiece> parts;
  while (const std::optional<FilePiece> part = planner.Next()) parts.push_back(*part);
  return parts;
}

// Merges part when it was counted from the real state, else reads it again here.
void TakePart(EngineContext& ctx, const LineCounting& lines, const FilePiece& piece,
              const CountedPart& part, LineReader& reader, LinePreparer& preparer) {
  const bool mergeable =
      part.exit && MergesExactly(ctx, preparer, LinePreparer(piece.path, part.entry),
                                 part.complete, part.occurrences);
  if (!mergeable) {
    CountRange(ctx, lines, piece, reader, preparer);
    return;
  }
  StretchCounts stretch{{}, part.occurrences, part.wordsIgnored, part.utf8SwitchAt,
                        part.exit->isUtf8};
  stretch.words.reserve(part.words.size());
  for (const auto& [word, frequency] : part.words) {
    stretch.words.push_back({word, frequency, WordHashOf(word)});
  }
  MergeStretch(ctx, stretch);
  preparer = LinePreparer(piece.path, *part.exit);
  ctx.run.comment = part.exitComment;
}

bool ReadingGoesOn(EngineContext& ctx, const LineCounting& lines, const LineReader& reader,
                   int64_t done) {
  return reader.ErrorNumber() == 0 && !ctx.run.blnStop &&
         lines.serveProgressAndStop(ctx, done, reader.Size());
}

}  // namespace

bool CountFileWithHelpers(EngineContext& ctx, const LineCounting& lines, const FilePiece& whole,
                          LineReader& reader, LinePreparer& preparer) {
  PartHelpers* helpers = ctx.partHelpers;
  if (helpers == nullptr || helpers->Count() == 0 || whole.end - whole.begin <= ctx.pieceBytes) {
    return false;
  }
  const std::vector<FilePiece> parts = CutIntoParts(whole, helpers->Count() + 1);
  const std::vector<FilePiece> handed(parts.begin() + 1, parts.end());
  helpers->Hand(ctx, handed, PredictedRest(preparer, whole.path, reader.Size()).Decisions());
  CountRange(ctx, lines, parts.front(), reader, preparer);
  bool reading = ReadingGoesOn(ctx, lines, reader, parts.front().end);
  for (size_t i = 0; i < handed.size(); ++i) {
    // Taken even after a stop or a read failure, so that no helper is left waiting to hand it.
    const CountedPart part = helpers->Take(static_cast<int>(i));
    if (!reading) continue;
    TakePart(ctx, lines, handed[i], part, reader, preparer);
    reading = ReadingGoesOn(ctx, lines, reader, handed[i].end);
  }
  return true;
}

CountedPart CountPartHere(const EngineContext& run, const FilePiece& part,
                          const PreparerDecisions& entry, const LineCounting& lines) {
  const std::atomic<bool> never{false};
  auto context = std::make_unique<PieceContext>(run, never);
  context->ctx.threads = run.threads;
  const CountedPiece counted =
      CountPiece(part, LinePreparer(part.path, entry), std::move(context), lines);
  const EngineContext& ctx = counted.counted->ctx;
  CountedPart result;
  result.entry = entry;
  if (counted.exit.AtRest()) result.exit = counted.exit.Decisions();
  result.exitComment = counted.exitComment;
  for (const ArrivedWord& arrived : WordsInArrivalOrder(ctx.store)) {
    result.words.emplace_back(arrived.word, arrived.frequency);
  }
  result.occurrences = ctx.run.lngTotalNumOccurrences;
  result.wordsIgnored = ctx.run.lngNumWordsIgnored;
  result.utf8SwitchAt = counted.utf8SwitchAt;
  result.complete = counted.complete;
  return result;
}

}  // namespace wordtally
