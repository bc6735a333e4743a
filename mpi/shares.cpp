#include "mpi/shares.h"

#include <algorithm>
#include <numeric>

#include "mpi/byte_codec.h"

namespace wordtally {

std::vector<Share> DivideIntoShares(const std::vector<std::string>& files,
                                    const std::vector<int64_t>& sizes, int ranks) {
  std::vector<Share> shares(static_cast<size_t>(ranks));
  const int64_t total = std::accumulate(sizes.begin(), sizes.end(), int64_t{0});
  int64_t before = 0;
  for (size_t i = 0; i < files.size(); ++i) {
    // Twice the middle byte over twice the total keeps the arithmetic whole.
    const int64_t rank = total > 0 ? (2 * before + sizes[i]) * ranks / (2 * total)
                                   : static_cast<int64_t>(i) * ranks /
                                         static_cast<int64_t>(files.size());
    shares[static_cast<size_t>(std::min<int64_t>(rank, ranks - 1))].push_back(files[i]);
    before += sizes[i];
  }
  return shares;
}

std::vector<Round> PlanRounds(const std::vector<std::string>& files,
                              const std::vector<int64_t>& sizes, int ranks, int64_t pieceBytes) {
  const int64_t total = std::accumulate(sizes.begin(), sizes.end(), int64_t{0});
  auto isLarge = [&](int64_t size) {
    return ranks > 1 && size > pieceBytes && size * ranks >= total;
  };
  std::vector<Round> rounds;
  std::vector<std::string> between;
  std::vector<int64_t> betweenSizes;
  auto shareOut = [&] {
    if (between.empty()) return;
    rounds.push_back({DivideIntoShares(between, betweenSizes, ranks), {}});
    between.clear();
    betweenSizes.clear();
  };
  for (size_t i = 0; i < files.size(); ++i) {
    if (isLarge(sizes[i])) {
      shareOut();
      rounds.push_back({{}, files[i]});
    } else {
      between.push_back(files[i]);
      betweenSizes.push_back(sizes[i]);
    }
  }
  shareOut();
  // Without text files, one round of empty shares all the same: the counts carry the settings.
  if (rounds.empty()) rounds.push_back({DivideIntoShares({}, {}, ranks), {}});
  return rounds;
}

std::string EncodeShares(const std::vector<Share>& shares) {
  ByteWriter writer;
  writer.Number(shares.size());
  for (const Share& share : shares) {
    writer.Number(share.size());
    for (const std::string& file : share) writer.Text(file);
  }
  return writer.Take();
}

Share DecodeShare(std::string_view bytes, int rank) {
  ByteReader reader(bytes);
  const uint64_t ranks = reader.Number();
  Share mine;
  for (uint64_t r = 0; r < ranks && r <= static_cast<uint64_t>(rank); ++r) {
    const uint64_t count = reader.Number();
    mine.clear();
    for (uint64_t i = 0; i < count; ++i) mine.push_back(reader.Text());
  }
  return ranks > static_cast<uint64_t>(rank) ? mine : Share{};
}

}  // namespace wordtally
