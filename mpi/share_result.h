#pragma once
// What a rank hands on up the reduction tree: the counts of its share and of the shares merged
// into it, the files they skipped, the messages told while counting them, and whether any of
// them failed.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "corpus/corpus_counts.h"

namespace wordtally {

struct ShareResult {
  // The first failure, in input order (a count that failed, a merge that overflowed); the counts
  // are then incomplete. Empty when everything succeeded.
  std::string failure;
  std::string messages;  // as printed on standard error, in input order
  std::string report;    // one line per rank for --verbose: time and memory
  std::vector<std::string> skipped;
  CorpusCounts counts;
  int64_t bytesSent = 0;  // by the merges so far
  int64_t messagesSent = 0;

  // Adds next, the result of the shares that follow this one in input order.
  void Append(ShareResult&& next);
};

// A failure found while counting or merging: the counts are dropped.
void Fail(ShareResult& result, std::string failure);

// The result as the bytes of one message (the counts in the count file's text form), and back;
// Decode throws std::runtime_error when the bytes are not such a message.
std::string Encode(const ShareResult& result);
ShareResult Decode(std::string_view bytes);

}  // namespace wordtally
