#pragma once
// Significance cut-offs for the log-likelihood G2, which follows the chi-square distribution with
// one degree of freedom when a word is used alike in both counts.
#include <array>
#include <cstdint>

namespace wordtally {

struct SignificanceLevel {
  double p;
  double criticalValue;  // the G2 that p < this p needs
};

// The usual levels: p < 0.05, 0.01, 0.001 and 0.0001.
inline constexpr std::array<SignificanceLevel, 4> kSignificanceLevels{
    {{0.05, 3.84}, {0.01, 6.63}, {0.001, 10.83}, {0.0001, 15.13}}};

// The x with P(X >= x) = p for X chi-square with one degree of freedom: P(X >= x) =
// erfc(sqrt(x / 2)), so x = 2 erfcinv(p)^2. p in (0, 1).
double ChiSquareCriticalValue(double p);

// The critical G2 for p with the Bonferroni correction over comparisons tests: p / comparisons.
double BonferroniCriticalValue(double p, int64_t comparisons);

// The cut-off of a keyword list: a level of kSignificanceLevels, optionally Bonferroni-corrected
// over the number of words compared.
struct KeywordCutoff {
  SignificanceLevel level = kSignificanceLevels[0];
  bool bonferroni = false;
  double CriticalValue(int64_t comparisons) const {
    return bonferroni ? BonferroniCriticalValue(level.p, comparisons) : level.criticalValue;
  }
};

}  // namespace wordtally
