#pragma once
// The word store's hash of a word. It is made from the word's bytes 16 at a time, as two chunks
// cleared beyond the word's end, so that a scanner holding a short word in two chunks hashes it
// with one multiplication and no pass over its bytes.
#include <cstdint>
#include <string_view>

#include "engine/word_chunks.h"

namespace wordtally {

namespace detail {
inline constexpr uint64_t kWordHashSeed = 0x243F6A8885A308D3ull;
inline constexpr uint64_t kWordHashKey = 0x9E3779B97F4A7C15ull;
// Takes 16 more bytes into the hash: a 64 x 64 -> 128-bit product folded to 64 bits mixes every
// bit of both chunks into every bit of the result.
inline uint64_t TakeChunks(uint64_t hash, ChunkPair chunks) {
  const unsigned __int128 product =
      static_cast<unsigned __int128>(chunks.first ^ hash) * (chunks.second ^ kWordHashKey);
  return static_cast<uint64_t>(product) ^ static_cast<uint64_t>(product >> 64);
}
}  // namespace detail

// The hash of a word of at most 16 bytes, given as its chunks (FirstBytes of them).
inline uint64_t ShortWordHash(ChunkPair chunks, size_t size) {
  return detail::TakeChunks(detail::kWordHashSeed ^ size, chunks);
}

// The hash of any word; the same as ShortWordHash for a word of at most 16 bytes.
inline uint64_t WordHashOf(std::string_view word) {
  uint64_t hash = detail::kWordHashSeed ^ word.size();
  size_t at = 0;
  do {
    hash = detail::TakeChunks(hash, ChunksOf(word.data() + at, word.size() - at));
    at += 16;
  } while (at < word.size());
  return hash;
}

}  // namespace wordtally
