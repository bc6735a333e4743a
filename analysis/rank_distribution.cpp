#include "analysis/rank_distribution.h"

#include <cmath>

namespace wordtally {

ZipfFit FitZipf(std::span<const int32_t> frequenciesByRank) {
  const size_t n = frequenciesByRank.size();
  if (n < 2) return {};
  double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
  for (size_t i = 0; i < n; ++i) {
    const double x = std::log(static_cast<double>(i + 1));
    const double y = std::log(static_cast<double>(frequenciesByRank[i]));
    sumX += x;
    sumY += y;
    sumXX += x * x;
    sumXY += x * y;
  }
  const double count = static_cast<double>(n);
  const double slope = (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
  return {-slope, (sumY - slope * sumX) / count, true};
}

std::vector<double> CumulativeShares(std::span<const int32_t> frequenciesByRank) {
  std::vector<double> shares;
  shares.reserve(frequenciesByRank.size());
  int64_t total = 0;
  for (const int32_t f : frequenciesByRank) total += f;
  int64_t covered = 0;
  for (const int32_t f : frequenciesByRank) {
    covered += f;
    shares.push_back(static_cast<double>(covered) / static_cast<double>(total));
  }
  return shares;
}

}  // namespace wordtally
