#include "engine/text_arena.h"

#include <algorithm>
#include <cstring>

namespace wordtally {

char* TextArena::Allocate(std::size_t size) {
  if (size > left_) {
    left_ = std::max(kBlockSize, size);
    // Spare bytes after the last text of the block, cleared, for the reads past a text's end.
    blocks_.push_back(std::make_unique<char[]>(left_ + kReadableBytes));
    next_ = blocks_.back().get();
  }
  char* room = next_;
  next_ += size;
  left_ -= size;
  return room;
}

std::string_view TextArena::Keep(std::string_view text) {
  char* kept = Allocate(text.size());
  if (!text.empty()) std::memcpy(kept, text.data(), text.size());
  return {kept, text.size()};
}

void TextArena::Clear() {
  blocks_.clear();
  next_ = nullptr;
  left_ = 0;
}

}  // namespace wordtally
