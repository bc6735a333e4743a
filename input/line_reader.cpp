#include "input/line_reader.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <utility>

#include "support/ansi_text.h"
#include "support/byte_vector.h"
#include "support/host.h"

namespace wordtally {

LineReader::LineReader(std::size_t blockSize, std::size_t maxLineLength)
    : blockSize_(std::max<std::size_t>(blockSize, 16)),
      maxLineLength_(std::max<std::size_t>(maxLineLength, 1)) {}

void LineReader::Reset() {
  text_.clear();
  data_ = block_.data();
  pos_ = end_ = 0;
  consumedBeforeBuffer_ = 0;
  unread_ = std::numeric_limits<int64_t>::max();
  errorNumber_ = 0;
  lineGoesOn_ = false;
  utf8_ = false;
}

bool LineReader::Open(const std::string& path) {
  const int osError = file_.Open(path);
  block_.resize(BlockSizeFor(file_.Size(), blockSize_));
  Reset();
  if (osError != 0) {
    errorNumber_ = RunErrorNumberOf(osError);
    atEof_ = true;
    size_ = 0;
    return false;
  }
  size_ = file_.Size();
  atEof_ = false;
  return true;
}

bool LineReader::OpenRange(const std::string& path, int64_t begin, int64_t end) {
  if (!Open(path)) return false;
  const int osError = file_.Seek(begin);
  if (osError != 0) {
    errorNumber_ = RunErrorNumberOf(osError);
    atEof_ = true;
    file_.Close();
    return false;
  }
  consumedBeforeBuffer_ = begin;
  unread_ = end - begin;
  atEof_ = unread_ <= 0;
  return true;
}

void LineReader::OpenUtf8Stream(int descriptor) {
  block_.resize(blockSize_);
  Reset();
  file_.Attach(descriptor);
  size_ = file_.Size();
  atEof_ = false;
  utf8_ = true;
}

void LineReader::OpenText(AnsiString text) {
  file_.Close();
  Reset();
  text_ = std::move(text);
  data_ = text_.data();
  end_ = text_.size();
  size_ = static_cast<int64_t>(end_);
  atEof_ = true;
}

std::string LineReader::ErrorDescription() const {
  return errorNumber_ == 0 ? std::string() : RunErrorDescription(errorNumber_);
}

// Moves the unread rest to the front of the block and appends the next bytes of the file.
void LineReader::Refill() {
  std::size_t rest = end_ - pos_;
  if (rest == block_.size()) block_.resize(block_.size() * 2);  // one line fills the block
  std::memmove(block_.data(), block_.data() + pos_, rest);
  consumedBeforeBuffer_ += static_cast<int64_t>(pos_);
  data_ = block_.data();
  pos_ = 0;
  end_ = rest;
  const auto wanted =
      static_cast<std::size_t>(std::min<int64_t>(block_.size() - end_, unread_));
  std::ptrdiff_t got = file_.Read(block_.data() + end_, wanted);
  if (got < 0) {
    errorNumber_ = RunErrorNumberOf(file_.LastError());
    atEof_ = true;
    file_.Close();
    return;
  }
  end_ += static_cast<std::size_t>(got);
  unread_ -= got;
  if (static_cast<std::size_t>(got) < wanted || unread_ == 0) {  // the end of the file or range
    atEof_ = true;
    file_.Close();
  }
}

// The first LF or CR in data_[pos_, end_), or end_. The bytes are compared 16 at a time, a line's
// length in a few steps, so that a line costs no call of a library search.
std::size_t LineReader::NextLineEnd() const {
  std::size_t at = pos_;
  for (; at + sizeof(ByteVector) <= end_; at += sizeof(ByteVector)) {
    const ByteVector bytes = LoadBytes(data_ + at);
    const std::size_t end = FirstSet(static_cast<ByteVector>((bytes == '\n') | (bytes == '\r')));
    if (end != sizeof(ByteVector)) return at + end;
  }
  while (at < end_ && data_[at] != '\n' && data_[at] != '\r') ++at;
  return at;
}

bool LineReader::NextLine(std::string_view& line) {
  if (!NextRawLine(line)) return false;
  if (utf8_) {
    decoded_ = Utf8ToAnsiText(line);
    line = decoded_;
  }
  return true;
}

bool LineReader::NextRawLine(std::string_view& line) {
  for (;;) {
    const std::size_t eol = NextLineEnd();
    const bool crNeedsLookahead = eol + 1 == end_ && data_[eol] == '\r' && !atEof_;
    if (eol - pos_ > maxLineLength_) {
      TakePiece(line);
      return true;
    }
    lineGoesOn_ = false;
    if (eol < end_ && !crNeedsLookahead) {
      std::size_t next = eol + 1;
      if (data_[eol] == '\r' && next < end_ && data_[next] == '\n') ++next;
      line = std::string_view(data_ + pos_, eol - pos_);
      pos_ = next;
      return true;
    }
    if (atEof_) {
      if (pos_ >= end_) return false;
      line = std::string_view(data_ + pos_, end_ - pos_);
      pos_ = end_;
      return true;
    }
    Refill();
  }
}

// The line at pos_ holds more than the maximum: hands out its start up to the last blank or tab
// that leaves at most the maximum before it (the byte after the maximum counts, the blank is
// dropped), or the maximum itself when there is no blank.
void LineReader::TakePiece(std::string_view& line) {
  const char* const start = data_ + pos_;
  const std::size_t window = maxLineLength_ + 1;
  const void* space = ::memrchr(start, ' ', window);
  const void* tab = ::memrchr(start, '\t', window);
  const char* blank = static_cast<const char*>(std::max(space, tab, std::less<>()));
  const std::size_t length =
      blank == nullptr ? maxLineLength_ : static_cast<std::size_t>(blank - start);
  line = std::string_view(start, length);
  pos_ += blank == nullptr ? length : length + 1;
  lineGoesOn_ = true;
}

std::string_view LineReader::Peek(std::size_t count) {
  while (end_ - pos_ < count && !atEof_) Refill();
  return std::string_view(data_ + pos_, std::min(count, end_ - pos_));
}

void ShowReadFailure(Host& host, const LineReader& reader, const std::string& path) {
  Tell(host, "Error", reader.ErrorDescription() + " when processing \r\n" + path,
       MessageIcon::Exclamation);
}

}  // namespace wordtally
