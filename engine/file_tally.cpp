#include "engine/file_tally.h"

namespace wordtally {

void FileTally::StartFile(int32_t file) {
  EndFile();
  file_ = file;
}

void FileTally::Add(int32_t id, int32_t occurrences) {
  // The store hands out ids in order, so a new word is at most one past the end.
  const auto i = static_cast<size_t>(id);
  if (i >= current_.size()) current_.resize(i + 1, 0);
  // Never above the store's own count, which is checked for overflow.
  if (current_[i] == 0) seen_.push_back(id);
  current_[i] += occurrences;
}

void FileTally::EndFile() {
  for (const int32_t id : seen_) {
    int32_t& count = current_[static_cast<size_t>(id)];
    ended_.push_back({id, {file_, count}});
    count = 0;
  }
  seen_.clear();
}

// A counting sort by word: stable, so each word's files stay in ascending order.
void FileTally::Finish() {
  EndFile();
  starts_.assign(current_.size() + 1, 0);
  for (const WordInFile& entry : ended_) ++starts_[static_cast<size_t>(entry.id) + 1];
  for (size_t i = 1; i < starts_.size(); ++i) starts_[i] += starts_[i - 1];
  grouped_.resize(ended_.size());
  std::vector<size_t> next(starts_.begin(), starts_.end() - 1);
  for (const WordInFile& entry : ended_) {
    grouped_[next[static_cast<size_t>(entry.id)]++] = entry.count;
  }
}

std::span<const FileCount> FileTally::CountsOf(int32_t id) const {
  const auto i = static_cast<size_t>(id);
  if (i + 1 >= starts_.size()) return {};
  return std::span<const FileCount>(grouped_).subspan(starts_[i], starts_[i + 1] - starts_[i]);
}

void FileTally::Reset() { *this = FileTally{}; }

}  // namespace wordtally
