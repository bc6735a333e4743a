#include "input/line_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "support/host.h"

namespace wordtally {

LineReader::LineReader(std::size_t blockSize) : block_(std::max<std::size_t>(blockSize, 16)) {}

bool LineReader::Open(const std::string& path) {
  text_.clear();
  data_ = block_.data();
  pos_ = end_ = 0;
  cachesValid_ = false;
  consumedBeforeBuffer_ = 0;
  errorNumber_ = 0;
  int osError = file_.Open(path);
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

void LineReader::OpenText(AnsiString text) {
  file_.Close();
  text_ = std::move(text);
  data_ = text_.data();
  pos_ = 0;
  end_ = text_.size();
  size_ = static_cast<int64_t>(end_);
  cachesValid_ = false;
  consumedBeforeBuffer_ = 0;
  errorNumber_ = 0;
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
  cachesValid_ = false;
  std::ptrdiff_t got = file_.Read(block_.data() + end_, block_.size() - end_);
  if (got < 0) {
    errorNumber_ = RunErrorNumberOf(file_.LastError());
    atEof_ = true;
    file_.Close();
    return;
  }
  end_ += static_cast<std::size_t>(got);
  if (end_ < block_.size()) {  // a short read is the end of the file
    atEof_ = true;
    file_.Close();
  }
}

// Each line-end character is searched for once per block, so CR-only or LF-only files cost no
// repeated scans of the rest of the block.
std::size_t LineReader::NextInBuffer(char wanted, std::size_t& cached) {
  if (!cachesValid_ || cached < pos_) {
    const void* hit = std::memchr(data_ + pos_, wanted, end_ - pos_);
    cached = hit ? static_cast<std::size_t>(static_cast<const char*>(hit) - data_) : end_;
  }
  return cached;
}

bool LineReader::NextLine(std::string_view& line) {
  for (;;) {
    if (pos_ < end_) {
      std::size_t lf = NextInBuffer('\n', nextLf_);
      std::size_t cr = NextInBuffer('\r', nextCr_);
      cachesValid_ = true;
      std::size_t eol = std::min(lf, cr);
      bool crNeedsLookahead = eol == cr && cr + 1 == end_ && !atEof_;
      if (eol < end_ && !crNeedsLookahead) {
        std::size_t next = eol + 1;
        if (data_[eol] == '\r' && next < end_ && data_[next] == '\n') ++next;
        line = std::string_view(data_ + pos_, eol - pos_);
        pos_ = next;
        return true;
      }
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

void ShowReadFailure(Host& host, const LineReader& reader, const std::string& path) {
  Tell(host, "Error", reader.ErrorDescription() + " when processing \r\n" + path,
       MessageIcon::Exclamation);
}

}  // namespace wordtally
