#include "support/code_unit_sort.h"

#include <array>
#include <cstddef>

namespace wordtally {
namespace {

constexpr int kPrefixBytes = 8;
constexpr int kBuckets = 256;
using ByteCounts = std::array<std::array<size_t, kBuckets>, kPrefixBytes>;

unsigned ByteOf(uint64_t prefix, int byte) {
  return static_cast<unsigned>(prefix >> (8 * byte)) & 0xFFu;
}

// How many prefixes hold each value in each byte, all counted in one pass.
ByteCounts CountBytes(const std::vector<PrefixedItem>& items) {
  ByteCounts counts{};
  for (const PrefixedItem& item : items) {
    for (int byte = 0; byte < kPrefixBytes; ++byte) ++counts[byte][ByteOf(item.prefix, byte)];
  }
  return counts;
}

// Moves items to to, in ascending order of their byte and, within one value, in their order.
void DistributeByByte(const std::vector<PrefixedItem>& items, int byte,
                      const std::array<size_t, kBuckets>& counts, std::vector<PrefixedItem>& to) {
  std::array<size_t, kBuckets> next;
  size_t start = 0;
  for (int value = 0; value < kBuckets; ++value) {
    next[value] = start;
    start += counts[value];
  }
  for (const PrefixedItem& item : items) to[next[ByteOf(item.prefix, byte)]++] = item;
}

}  // namespace

uint64_t CodeUnitPrefix(std::string_view text) {
  uint64_t prefix = 0;
  const size_t n = std::min<size_t>(text.size(), kPrefixBytes);
  for (size_t i = 0; i < n; ++i) {
    prefix |= uint64_t{CodeUnitRank(static_cast<unsigned char>(text[i]))}
              << (8 * (kPrefixBytes - 1 - i));
  }
  return prefix;
}

// Least significant byte first; a byte in which every prefix holds the same value moves nothing
// and is skipped (words of one length and first letters leave several such bytes).
void SortByPrefix(std::vector<PrefixedItem>& items) {
  if (items.size() < 2) return;
  const ByteCounts counts = CountBytes(items);
  std::vector<PrefixedItem> moved;
  for (int byte = 0; byte < kPrefixBytes; ++byte) {
    if (counts[byte][ByteOf(items.front().prefix, byte)] == items.size()) continue;
    moved.resize(items.size());
    DistributeByByte(items, byte, counts[byte], moved);
    items.swap(moved);
  }
}

}  // namespace wordtally
