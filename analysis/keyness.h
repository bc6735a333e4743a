#pragma once
// Keywords: which words a target count uses more or less than a reference count.
// The log-likelihood G2 (Dunning 1993, in the two-corpus form of Rayson and Garside 2000) says how
// sure the difference is; the log ratio (Hardie 2014) says how large it is.
#include <cstdint>
#include <span>
#include <vector>

#include "analysis/significance.h"
#include "analysis/word_frequencies.h"

namespace wordtally {

// G2 = 2 * sum over the two counts of O ln(O/E), with E_i = N_i (O1 + O2) / (N1 + N2); a zero O
// adds nothing. o1, o2: the word's frequencies; n1, n2: the sizes of the two counts.
double LogLikelihood(int64_t o1, int64_t n1, int64_t o2, int64_t n2);

// log2 of the ratio of the relative frequencies, (o1/n1) / (o2/n2); a frequency of 0 is taken as
// 0.5 so that a word missing from one count still gets a finite ratio. Positive: over-used in 1.
double LogRatio(int64_t o1, int64_t n1, int64_t o2, int64_t n2);

struct Keyword {
  AnsiString word;
  int64_t frequency = 0;           // in the target
  int64_t referenceFrequency = 0;  // in the reference
  double logLikelihood = 0;
  double logRatio = 0;
  bool OverUsed() const { return logRatio > 0; }
};

// Every word of either count whose G2 reaches the cut-off's critical value (corrected over the
// number of distinct words in the two counts), by falling G2, equal values in ascending
// code-unit order of the word. Each count's size is the sum of its frequencies.
std::vector<Keyword> CompareCounts(std::span<const WordFrequency> target,
                                   std::span<const WordFrequency> reference,
                                   const KeywordCutoff& cutoff);

}  // namespace wordtally
