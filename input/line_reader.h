#pragma once
// Reads a text file (or a stream, or a text held in memory) line by line. The input is read in
// large blocks and each line is handed out as a view into the block, so no line is copied; memory
// stays at one block whatever the input's size (a line longer than a block widens the block to
// hold it, up to the longest line handed out whole). A file smaller than a block gets a block of
// its own size. CR LF, LF and CR each end a line, also when a
// CR ends one block and its LF begins the next.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/byte_file.h"
#include "support/ansi_text.h"

namespace wordtally {

class LineReader {
 public:
  static constexpr std::size_t kBlockSize = 1 << 20;
  // A longer line is handed out in pieces, so that neither memory nor 32-bit positions grow
  // with it.
  static constexpr std::size_t kMaxLineLength = 16 << 20;

  explicit LineReader(std::size_t blockSize = kBlockSize,
                      std::size_t maxLineLength = kMaxLineLength);

  // Opens a file; false on failure, with ErrorNumber() 70 (permission denied), 53 (not found)
  // or 75 (any other failure, a folder given as a file among them).
  bool Open(const std::string& path);
  // Opens a file to read only its bytes [begin, end), for a piece of it that begins at a line
  // start; BytesConsumed() counts from the file's start and Size() is the whole file's size.
  bool OpenRange(const std::string& path, int64_t begin, int64_t end);
  // Reads a stream of UTF-8 text on an open descriptor (standard input) as it arrives, taking
  // the descriptor over; each line is translated into the code page ("?" for a character
  // outside it). Its size is unknown: Size() is 0.
  void OpenUtf8Stream(int descriptor);
  // Serves the lines of text, which the reader keeps.
  void OpenText(AnsiString text);

  // The next line without its line end; false at the end of the input or after a read error
  // (ErrorNumber() tells them apart). The view is valid until the next call. A line longer than
  // the maximum comes in pieces: each ends before the last blank or tab within the maximum
  // length (the blank is dropped; words are never cut), or at the maximum length itself where
  // there is none, and LineGoesOn() tells that the next piece continues the same line.
  bool NextLine(std::string_view& line);
  bool LineGoesOn() const { return lineGoesOn_; }

  // The unread bytes as they stand in the input (not translated), after reading on until at
  // least count of them are in or the input ends; fewer than count only at the end.
  std::string_view Peek(std::size_t count);

  int ErrorNumber() const { return errorNumber_; }
  std::string ErrorDescription() const;
  int64_t BytesConsumed() const { return consumedBeforeBuffer_ + static_cast<int64_t>(pos_); }
  int64_t Size() const { return size_; }

 private:
  void Reset();
  void Refill();
  std::size_t NextLineEnd() const;
  bool NextRawLine(std::string_view& line);
  void TakePiece(std::string_view& line);

  ByteFile file_;
  std::size_t blockSize_;
  std::vector<char> block_;
  std::size_t maxLineLength_;
  bool utf8_ = false;           // lines are translated from UTF-8 into decoded_
  AnsiString decoded_;
  AnsiString text_;             // the in-memory input
  const char* data_ = nullptr;  // block_ or text_
  std::size_t pos_ = 0;         // start of the next line in data_
  std::size_t end_ = 0;         // end of the valid bytes in data_
  bool atEof_ = true;
  bool lineGoesOn_ = false;
  int64_t consumedBeforeBuffer_ = 0;
  int64_t unread_ = 0;  // bytes of the file (or of its range) not yet read into the block
  int64_t size_ = 0;
  int errorNumber_ = 0;
};

class Host;
// Tells the user that the input could not be read: the error, " when processing " and, on the
// next line, the file's name, under the title "Error".
void ShowReadFailure(Host& host, const LineReader& reader, const std::string& path);

}  // namespace wordtally
