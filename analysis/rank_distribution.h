#pragma once
// The distribution of frequencies over ranks: the Zipf fit and the coverage of the top words.
#include <cstdint>
#include <span>
#include <vector>

namespace wordtally {

struct ZipfFit {
  double exponent = 0;   // s in f(r) = C / r^s
  double intercept = 0;  // ln C
  bool valid = false;    // false for fewer than two ranks
};

// Least squares of ln f on ln r over ranks 1..n, frequenciesByRank[r-1] = f(r); the exponent is
// the negated slope.
ZipfFit FitZipf(std::span<const int32_t> frequenciesByRank);

// Element k-1: the share (0..1) of all instances that the top k words cover.
std::vector<double> CumulativeShares(std::span<const int32_t> frequenciesByRank);

}  // namespace wordtally
