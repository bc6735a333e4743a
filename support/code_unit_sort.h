#pragma once
// Sorting many texts into code-unit order (CompareCodeUnits) without comparing most of them: a
// radix sort on the first eight bytes' ranks, then comparisons only among texts whose first eight
// bytes rank alike. A comparison sort reads two texts, far apart in memory, for every step.
#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "support/ansi_text.h"

namespace wordtally {

struct PrefixedItem {
  uint64_t prefix;  // CodeUnitPrefix of the item's text
  uint32_t item;
};

// The ranks (CodeUnitRank) of the text's first eight bytes, the first in the highest byte, and
// zeros after a shorter text: a smaller prefix means a text earlier in code-unit order.
uint64_t CodeUnitPrefix(std::string_view text);

// Sorts items by prefix, keeping the order of items with equal prefixes (a byte-wise radix sort).
void SortByPrefix(std::vector<PrefixedItem>& items);

// Calls sortRun(run) on every run of two or more items with equal prefixes.
template <typename SortRun>
void ForEachRunOfEqualPrefixes(std::span<PrefixedItem> items, SortRun sortRun) {
  for (auto first = items.begin(); first != items.end();) {
    const auto last = std::find_if(first + 1, items.end(), [first](const PrefixedItem& item) {
      return item.prefix != first->prefix;
    });
    if (last - first > 1) sortRun(std::span<PrefixedItem>(first, last));
    first = last;
  }
}

// The numbers 0..count-1 ordered so that textOf(number) ascends in code-unit order; equal texts
// in ascending order of their numbers. textOf(number) gives a std::string_view.
template <typename TextOf>
std::vector<uint32_t> CodeUnitOrder(uint32_t count, TextOf textOf) {
  std::vector<PrefixedItem> items(count);
  for (uint32_t i = 0; i < count; ++i) items[i] = {CodeUnitPrefix(textOf(i)), i};
  SortByPrefix(items);
  ForEachRunOfEqualPrefixes(items, [&textOf](std::span<PrefixedItem> run) {
    std::sort(run.begin(), run.end(), [&textOf](const PrefixedItem& a, const PrefixedItem& b) {
      const int order = CompareCodeUnits(textOf(a.item), textOf(b.item));
      return order < 0 || (order == 0 && a.item < b.item);
    });
  });
  std::vector<uint32_t> order(count);
  std::transform(items.begin(), items.end(), order.begin(),
                 [](const PrefixedItem& item) { return item.item; });
  return order;
}

}  // namespace wordtally
