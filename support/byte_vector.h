#pragma once
// Sixteen bytes compared at once, through the compiler's vector extension: SSE2 on x86-64, NEON
// on ARM, plain code elsewhere. A comparison gives 0xFF in each byte where it holds, 0 elsewhere.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace wordtally {

using ByteVector = unsigned char __attribute__((vector_size(16)));

inline ByteVector LoadBytes(const char* bytes) {
  ByteVector vector;
  std::memcpy(&vector, bytes, sizeof vector);
  return vector;
}

// True when a comparison held for any of the bytes.
inline bool AnySet(ByteVector marks) {
  uint64_t halves[2];
  std::memcpy(halves, &marks, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

// The index of the first byte (in memory order) where a comparison held, or 16 for none.
inline std::size_t FirstSet(ByteVector marks) {
  uint64_t halves[2];
  std::memcpy(halves, &marks, sizeof halves);
  const auto firstIn = [](uint64_t half) {
    return static_cast<std::size_t>(std::endian::native == std::endian::little
                                        ? std::countr_zero(half)
                                        : std::countl_zero(half)) / 8;
  };
  return halves[0] != 0 ? firstIn(halves[0]) : 8 + firstIn(halves[1]);
}

}  // namespace wordtally
