#pragma once
// A word held as 64-bit chunks of its bytes: what the scanner and the word store compare, hash and
// fold eight bytes at a time instead of byte by byte. A chunk holds the bytes in memory order
// (the first byte is the lowest on a little-endian machine, the highest on a big-endian one).
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace wordtally {

inline constexpr uint64_t kEveryByte = 0x0101010101010101ull;
inline constexpr uint64_t kHighBits = kEveryByte * 0x80;

inline uint64_t LoadChunk(const char* bytes) {
  uint64_t chunk;
  std::memcpy(&chunk, bytes, sizeof chunk);
  return chunk;
}

inline void StoreChunk(char* bytes, uint64_t chunk) { std::memcpy(bytes, &chunk, sizeof chunk); }

// The first count bytes (0 to 16) of two chunks that hold 16 bytes of text, the rest cleared.
struct ChunkPair {
  uint64_t first = 0;
  uint64_t second = 0;
  bool operator==(const ChunkPair&) const = default;
};
namespace detail {
// The mask that keeps the first count bytes of a chunk.
constexpr uint64_t FirstBytesMask(size_t count) {
  if (count >= 8) return ~uint64_t{0};
  if (count == 0) return 0;
  if constexpr (std::endian::native == std::endian::little) {
    return (uint64_t{1} << (8 * count)) - 1;
  } else {
    return ~(~uint64_t{0} >> (8 * count));
  }
}
// Looked up rather than computed, so that the word's length costs no branch.
inline constexpr auto kFirstBytesMasks = [] {
  std::array<ChunkPair, 17> masks{};
  for (size_t count = 0; count <= 16; ++count) {
    masks[count] = {FirstBytesMask(count), FirstBytesMask(count > 8 ? count - 8 : 0)};
  }
  return masks;
}();
}  // namespace detail
inline ChunkPair FirstBytes(ChunkPair chunks, size_t count) {
  const ChunkPair& mask = detail::kFirstBytesMasks[count];
  return {chunks.first & mask.first, chunks.second & mask.second};
}

// The byte index of the first byte marked by its high bit in marks (not 0).
inline size_t FirstMarkedByte(uint64_t marks) {
  if constexpr (std::endian::native == std::endian::little) {
    return static_cast<size_t>(std::countr_zero(marks)) / 8;
  } else {
    return static_cast<size_t>(std::countl_zero(marks)) / 8;
  }
}

// The bytes of chunk that are ASCII letters, each marked by its high bit.
inline uint64_t AsciiLetterBytes(uint64_t chunk) {
  const uint64_t folded = (chunk | (kEveryByte * 0x20)) & (kEveryByte * 0x7F);  // A-Z onto a-z
  const uint64_t atLeastA = (folded + kEveryByte * (0x80 - 'a')) & kHighBits;
  const uint64_t beyondZ = (folded + kEveryByte * (0x80 - 'z' - 1)) & kHighBits;
  return ~chunk & atLeastA & ~beyondZ;
}

// The first bytes of a text, up to 16, as two chunks with the bytes beyond its end cleared.
// Reads no byte beyond the text.
inline ChunkPair ChunksOf(const char* text, size_t size) {
  char padded[16] = {};
  std::memcpy(padded, text, size < 16 ? size : 16);
  return {LoadChunk(padded), LoadChunk(padded + 8)};
}

}  // namespace wordtally
