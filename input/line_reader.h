#pragma once
// Reads a text file (or a text held in memory) line by line. The file is read in large blocks and
// each line is handed out as a view into the block, so no line is copied; memory stays at one
// block whatever the file's size (a single line longer than a block widens the block to hold it).
// CR LF, LF and CR each end a line, also when a CR ends one block and its LF begins the next.
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

  explicit LineReader(std::size_t blockSize = kBlockSize);

  // Opens a file; false on failure, with ErrorNumber() 70 (permission denied), 53 (not found)
  // or 75 (any other failure, a folder given as a file among them).
  bool Open(const std::string& path);
  // Serves the lines of text, which the reader keeps.
  void OpenText(AnsiString text);

  // The next line without its line end; false at the end of the input or after a read error
  // (ErrorNumber() tells them apart). The view is valid until the next call.
  bool NextLine(std::string_view& line);

  int ErrorNumber() const { return errorNumber_; }
  std::string ErrorDescription() const;
  int64_t BytesConsumed() const { return consumedBeforeBuffer_ + static_cast<int64_t>(pos_); }
  int64_t Size() const { return size_; }

 private:
  void Refill();
  std::size_t NextInBuffer(char wanted, std::size_t& cached);

  ByteFile file_;
  std::vector<char> block_;
  AnsiString text_;             // the in-memory input
  const char* data_ = nullptr;  // block_ or text_
  std::size_t pos_ = 0;         // start of the next line in data_
  std::size_t end_ = 0;         // end of the valid bytes in data_
  std::size_t nextLf_ = 0;      // cached position of the next LF / CR at or after pos_
  std::size_t nextCr_ = 0;
  bool cachesValid_ = false;
  bool atEof_ = true;
  int64_t consumedBeforeBuffer_ = 0;
  int64_t size_ = 0;
  int errorNumber_ = 0;
};

class Host;
// Tells the user that the input could not be read: the error, " when processing " and, on the
// next line, the file's name, under the title "Error".
void ShowReadFailure(Host& host, const LineReader& reader, const std::string& path);

}  // namespace wordtally
