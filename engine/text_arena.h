#pragma once
// Keeps copies of many short texts in large blocks that never move, so that a view of a kept text
// stays valid until Clear() and each text costs only its bytes. Every kept text may be read
// kReadableBytes from its start, also past its end, so that short texts can be compared a fixed
// number of bytes at a time.
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace wordtally {

class TextArena {
 public:
  static constexpr std::size_t kReadableBytes = 16;

  // A copy of text that lives until Clear().
  std::string_view Keep(std::string_view text);
  // Room for size bytes that live until Clear(), to be written by the caller.
  char* Allocate(std::size_t size);
  // Forgets every text and gives the blocks back.
  void Clear();

 private:
  static constexpr std::size_t kBlockSize = 256 * 1024;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace wordtally
