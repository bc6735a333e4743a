// The statistics over finished counts, checked against values worked out by hand with a
// calculator (ln 2 = 0.693147, ln 1.5 = 0.405465, ln 0.2 = -1.609438, ln 1.8 = 0.587787).
#include <fstream>

#include <gtest/gtest.h>

#include "analysis/keyness.h"
#include "analysis/keywords_csv.h"
#include "analysis/rank_distribution.h"
#include "analysis/reference_count.h"
#include "analysis/significance.h"
#include "support/csv_text.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

struct KeynessCase {
  int64_t o1, n1, o2, n2;
  double logLikelihood, logRatio;
};

// G2 = 2 (O1 ln(O1/E1) + O2 ln(O2/E2)), E_i = N_i (O1+O2) / (N1+N2).
TEST(Keyness, LogLikelihoodAndLogRatio) {
  const KeynessCase cases[] = {
      // E = 5, 5: 2 (10 ln 2 + 0) = 13.86294; log2((10/1000) / (0.5/1000)) = log2 20.
      {10, 1000, 0, 1000, 13.86294, 4.32193},
      // E = 20, 20: 2 (30 ln 1.5 + 10 ln 0.5) = 2 (12.16395 - 6.93147) = 10.46496; log2 3.
      {30, 1000, 10, 1000, 10.46496, 1.58496},
      // E = 10, 30: 2 (20 ln 2 + 20 ln(2/3)) = 2 (13.86294 - 8.10930) = 11.50728; log2 3.
      {20, 1000, 20, 3000, 11.50728, 1.58496},
      // E = 25, 25: 2 (5 ln 0.2 + 45 ln 1.8) = 2 (-8.04719 + 26.45041) = 36.80644; log2(1/9).
      {5, 1000, 45, 1000, 36.80644, -3.16993},
      // Equal relative frequencies: no difference at all.
      {7, 700, 3, 300, 0.0, 0.0},
  };
  for (const KeynessCase& c : cases) {
    EXPECT_NEAR(LogLikelihood(c.o1, c.n1, c.o2, c.n2), c.logLikelihood, 1e-4) << c.o1;
    EXPECT_NEAR(LogRatio(c.o1, c.n1, c.o2, c.n2), c.logRatio, 1e-4) << c.o1;
  }
}

// Target 1000 instances, reference 1000: w and x 10 to 0 (G2 13.86 each), y 30 to 10 (10.46),
// z 950 to 990 (E 970: 2 (950 ln(950/970) + 990 ln(990/970)) = 0.83).
TEST(Keyness, CompareCountsCutsAndOrders) {
  const std::vector<WordFrequency> target = {{"z", 950}, {"y", 30}, {"x", 10}, {"w", 10}};
  const std::vector<WordFrequency> reference = {{"z", 990}, {"y", 10}};
  const std::tuple<int, bool, std::vector<std::string>> cases[] = {
      {0, false, {"w", "x", "y"}}, {2, false, {"w", "x"}}, {3, false, {}},
      // p < 0.001 / 4 needs 13.41 (z = 3.6623 for 0.000125 in each tail).
      {2, true, {"w", "x"}}};
  for (const auto& [level, bonferroni, expected] : cases) {
    std::vector<std::string> words;
    for (const Keyword& k : CompareCounts(target, reference, {kSignificanceLevels[level], bonferroni})) {
      words.push_back(k.word);
    }
    EXPECT_EQ(words, expected) << level;
  }
  const Keyword y = CompareCounts(target, reference, {})[2];
  EXPECT_EQ(y.frequency, 30);
  EXPECT_EQ(y.referenceFrequency, 10);
  EXPECT_TRUE(y.OverUsed());
}

// Chi-square with one degree of freedom, upper tail: the values of the printed tables.
TEST(Significance, CriticalValues) {
  const std::pair<double, double> cases[] = {{0.05, 3.841459},  {0.01, 6.634897},
                                             {0.001, 10.827566}, {0.0001, 15.136705},
                                             {0.005, 7.879439},  {1e-8, 32.841253}};
  for (const auto& [p, critical] : cases) {
    EXPECT_NEAR(ChiSquareCriticalValue(p), critical, 1e-5) << p;
  }
  EXPECT_NEAR(BonferroniCriticalValue(0.05, 10), 7.879439, 1e-5);
}

// Exact power laws give back their exponent and ln C; [4, 1, 1] by hand: x = 0, ln 2, ln 3 and
// y = ln 4, 0, 0 give slope (0 - 1.791759 * 1.386294) / (3 * 1.687402 - 1.791759^2) = -1.34134
// and ln C = (1.386294 + 1.34134 * 1.791759) / 3 = 1.26322.
TEST(RankDistribution, ZipfFit) {
  const std::tuple<std::vector<int32_t>, double, double> cases[] = {
      {{100, 25}, 2.0, 4.60517}, {{120, 60, 40}, 1.0, 4.78749}, {{4, 1, 1}, 1.34134, 1.26322}};
  for (const auto& [frequencies, exponent, intercept] : cases) {
    const ZipfFit fit = FitZipf(frequencies);
    EXPECT_TRUE(fit.valid);
    EXPECT_NEAR(fit.exponent, exponent, 1e-4);
    EXPECT_NEAR(fit.intercept, intercept, 1e-4);
  }
  EXPECT_FALSE(FitZipf(std::vector<int32_t>{9}).valid);
}

TEST(RankDistribution, Coverage) {
  EXPECT_EQ(CumulativeShares(std::vector<int32_t>{5, 3, 2}), (std::vector<double>{0.5, 0.8, 1.0}));
}

TEST(KeywordsCsv, QuotesFieldsAndConvertsToUtf8) {
  EXPECT_EQ(CsvRecord({"a", "b,c", "say \"hi\""}), "a,\"b,c\",\"say \"\"hi\"\"\"\r\n");
  const std::vector<Keyword> keywords = {{"caf\xE9", 12, 3, 5.0, -0.126}};
  EXPECT_EQ(KeywordsCsvText(keywords),
            "\xEF\xBB\xBFRank,Word,Frequency,Reference frequency,Log-likelihood,Log ratio\r\n"
            "1,caf\xC3\xA9,12,3,5.00,-0.13\r\n");
}

// A folder of two files, counted with the target's words to ignore: beta 2 + 1, alpha 1.
TEST(ReferenceCount, CountsAFolderWithTheTargetsSettings) {
  const TemporaryFolder folder;
  std::ofstream(folder.Path() + "/one.txt") << "Beta alpha BETA\r\nthe the the\r\n";
  std::ofstream(folder.Path() + "/two.txt") << "beta the\r\n";
  CountingSettings settings;
  settings.strWordsToIgnore = " the ";  // as the settings window leaves it
  std::string error;
  const auto words = CountReference({folder.Path()}, settings, {}, error);
  ASSERT_EQ(words.size(), 2u) << error;
  EXPECT_EQ(words[0].word + " " + words[1].word, "beta alpha");
  EXPECT_EQ(words[0].frequency, 3);
  EXPECT_TRUE(CountReference({folder.Path() + "/missing.txt"}, settings, {}, error).empty());
  EXPECT_FALSE(error.empty());
}

}  // namespace
}  // namespace wordtally
