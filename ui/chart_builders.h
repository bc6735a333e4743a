#pragma once
// The charts of a run's distribution, built from its ranked frequencies: the most frequent words,
// rank against frequency on logarithmic axes with the fitted Zipf exponent, and the coverage of
// the top k words. Long runs are drawn from at most a thousand ranks spread evenly on a
// logarithmic scale, so that two million words draw as fast as two hundred.
#include <QChart>
#include <vector>

#include "ui/results_source.h"

namespace wordtally::ui {

QChart* TopWordsChart(const ResultsSource& results, int count);
QChart* ZipfChart(const std::vector<int32_t>& frequenciesByRank);
QChart* CoverageChart(const std::vector<double>& cumulativeShares);

// 1, ..., n: at most maxPoints distinct ranks, evenly spread over log rank, n always among them.
std::vector<int32_t> SampledRanks(int32_t n, int maxPoints);

}  // namespace wordtally::ui
