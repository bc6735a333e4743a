#include "analysis/keyness.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <absl/container/flat_hash_map.h>

namespace wordtally {
namespace {

double ObservedTerm(double observed, double expected) {
  return observed > 0 ? observed * std::log(observed / expected) : 0.0;
}

int64_t SizeOf(std::span<const WordFrequency> words) {
  return std::accumulate(words.begin(), words.end(), int64_t{0},
                         [](int64_t sum, const WordFrequency& w) { return sum + w.frequency; });
}

}  // namespace

double LogLikelihood(int64_t o1, int64_t n1, int64_t o2, int64_t n2) {
  const double both = static_cast<double>(o1 + o2) / static_cast<double>(n1 + n2);
  return 2.0 * (ObservedTerm(static_cast<double>(o1), static_cast<double>(n1) * both) +
                ObservedTerm(static_cast<double>(o2), static_cast<double>(n2) * both));
}

double LogRatio(int64_t o1, int64_t n1, int64_t o2, int64_t n2) {
  const double f1 = o1 > 0 ? static_cast<double>(o1) : 0.5;
  const double f2 = o2 > 0 ? static_cast<double>(o2) : 0.5;
  return std::log2((f1 / static_cast<double>(n1)) / (f2 / static_cast<double>(n2)));
}

std::vector<Keyword> CompareCounts(std::span<const WordFrequency> target,
                                   std::span<const WordFrequency> reference,
                                   const KeywordCutoff& cutoff) {
  absl::flat_hash_map<std::string_view, Keyword> byWord;
  for (const WordFrequency& w : target) byWord[w.word].frequency = w.frequency;
  for (const WordFrequency& w : reference) byWord[w.word].referenceFrequency = w.frequency;
  const int64_t n1 = SizeOf(target), n2 = SizeOf(reference);
  std::vector<Keyword> keywords;
  if (n1 == 0 || n2 == 0) return keywords;
  const double criticalValue = cutoff.CriticalValue(static_cast<int64_t>(byWord.size()));
  for (auto& [word, k] : byWord) {
    k.logLikelihood = LogLikelihood(k.frequency, n1, k.referenceFrequency, n2);
    if (k.logLikelihood < criticalValue) continue;
    k.word = AnsiString(word);
    k.logRatio = LogRatio(k.frequency, n1, k.referenceFrequency, n2);
    keywords.push_back(std::move(k));
  }
  std::sort(keywords.begin(), keywords.end(), [](const Keyword& a, const Keyword& b) {
    if (a.logLikelihood != b.logLikelihood) return a.logLikelihood > b.logLikelihood;
    return LessCodeUnits(a.word, b.word);
  });
  return keywords;
}

}  // namespace wordtally
