#include "cli/listing_spool.h"

#include <algorithm>

namespace wordtally {

void ListingSpool::Append(std::string_view text) {
  empty_ = empty_ && text.empty();
  buffer_ += text;
  if (buffer_.size() >= memoryLimit_ && !noFile_) Spill();
}

// A failed write leaves the buffer in memory from then on; the bytes already spilled stay good.
void ListingSpool::Spill() {
  if (!file_) file_.reset(std::tmpfile());
  if (!file_ || std::fwrite(buffer_.data(), 1, buffer_.size(), file_.get()) != buffer_.size()) {
    noFile_ = true;
    return;
  }
  spilled_ += buffer_.size();
  buffer_.clear();
}

void ListingSpool::WriteTo(std::ostream& out) {
  if (file_) {
    std::rewind(file_.get());
    char block[1 << 16];
    for (std::size_t left = spilled_; left > 0;) {
      const std::size_t got = std::fread(block, 1, std::min(left, sizeof block), file_.get());
      if (got == 0) break;
      out.write(block, static_cast<std::streamsize>(got));
      left -= got;
    }
  }
  out << buffer_;
}

}  // namespace wordtally
