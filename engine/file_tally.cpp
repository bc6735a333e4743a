#include "engine/file_tally.h"

namespace wordtally {

void FileTally::StartFile(int32_t file) { file_ = file; }

void FileTally::Add(int32_t id) {
  // The store hands out ids in order, so a new word is at most one past the end.
  if (static_cast<size_t>(id) >= perWord_.size()) perWord_.resize(static_cast<size_t>(id) + 1);
  std::vector<FileCount>& files = perWord_[static_cast<size_t>(id)];
  if (files.empty() || files.back().file != file_) {
    files.push_back({file_, 1});
  } else {
    ++files.back().count;  // never above the store's own count, which is checked for overflow
  }
}

std::span<const FileCount> FileTally::CountsOf(int32_t id) const {
  if (static_cast<size_t>(id) >= perWord_.size()) return {};
  return perWord_[static_cast<size_t>(id)];
}

void FileTally::Reset() {
  file_ = 0;
  perWord_.clear();
}

}  // namespace wordtally
