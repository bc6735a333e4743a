#include "engine/piece_plan.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "input/line_reader.h"

namespace wordtally {
namespace {

// A boundary is looked for with a small block: it is found within a few bytes in real text.
constexpr std::size_t kSearchBlock = 64 << 10;

}  // namespace

PiecePlanner::PiecePlanner(FilePiece range, int64_t pieceBytes)
    : range_(std::move(range)), pieceBytes_(std::max<int64_t>(pieceBytes, 1)),
      next_(range_.begin) {}

std::optional<FilePiece> PiecePlanner::Next() {
  if (next_ >= range_.end) return std::nullopt;
  FilePiece piece{range_.path, next_, LineStartAfter(next_ + pieceBytes_ - 1)};
  next_ = piece.end;
  return piece;
}

// Reads on from offset to the end of the line it is in: the reader ends lines exactly as the
// reader of the whole file does (CR LF split over two blocks included); an over-long line comes
// in several pieces, of which only the last ends the line.
int64_t PiecePlanner::LineStartAfter(int64_t offset) const {
  if (offset >= range_.end) return range_.end;
  LineReader reader(kSearchBlock);
  if (!reader.OpenRange(range_.path, offset, range_.end)) return range_.end;
  std::string_view line;
  do {
    if (!reader.NextLine(line)) return range_.end;
  } while (reader.LineGoesOn());
  return reader.BytesConsumed();
}

}  // namespace wordtally
