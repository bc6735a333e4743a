#pragma once
// Cutting a file into pieces that begin and end at line starts, so that each piece reads exactly
// the lines that a reader of the whole file would hand out for that stretch of it.
#include <cstdint>
#include <optional>
#include <string>

namespace wordtally {

// Bytes [begin, end) of the file at path.
struct FilePiece {
  std::string path;
  int64_t begin = 0;
  int64_t end = 0;
};

class PiecePlanner {
 public:
  // Pieces of at least pieceBytes (the last one may be shorter) of range, which begins and ends
  // at line starts (or the file's ends).
  PiecePlanner(FilePiece range, int64_t pieceBytes);

  // The next piece; none after the last.
  std::optional<FilePiece> Next();

 private:
  // The first line start after offset (a line is longer than a piece: the piece grows).
  int64_t LineStartAfter(int64_t offset) const;

  FilePiece range_;
  int64_t pieceBytes_;
  int64_t next_;
};

}  // namespace wordtally
