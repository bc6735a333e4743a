// The words to ignore: a word is ignored exactly when its lower-cased form is one of the listed
// words, and a long list costs no more per word than a short one.
#include <chrono>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "engine/word_filters.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

class WordsToIgnoreTest : public WholeRunTest {
 protected:
  void Ignore(std::string_view words) {
    settings.txbWordsToIgnore = AnsiString(words);
    txbWordsToIgnore_LostFocus(settings, host);
  }
  bool Ignored(std::string_view word) {
    const int32_t before = ctx.run.lngNumWordsIgnored;
    GetWords2(ctx, word);
    return ctx.run.lngNumWordsIgnored > before;
  }
};

TEST_F(WordsToIgnoreTest, WholeWordsInAnyCase) {
  const std::string longWord(130, 'q');
  Ignore("The, of  caf\xE9 " + longWord + " \xC9T\xC9");  // ÉTÉ is listed as été
  for (const auto& [word, ignored] :
       {std::tuple{"the", true}, {"THE", true}, {"The", true}, {"of", true}, {"CAF\xC9", true},
        {"\xE9t\xE9", true}, {"them", false}, {"he", false}, {"th", false}, {"caf", false},
        {"the of", false}, {"", false}}) {
    EXPECT_EQ(Ignored(word), ignored) << word;
  }
  EXPECT_TRUE(Ignored(std::string(130, 'Q')));
  EXPECT_FALSE(Ignored(std::string(129, 'q')));
  Ignore("");
  EXPECT_FALSE(Ignored("the"));
}

TEST_F(WordsToIgnoreTest, ALongListIsLookedUpNotSearched) {
  // 300,000 listed words "xaaaa" ...; every other word of the text is one of them.
  auto word = [](int i) {
    std::string w = "x";
    for (int n = i, k = 0; k < 4; ++k, n /= 26) w += static_cast<char>('a' + n % 26);
    return w + static_cast<char>('a' + i / 456976);
  };
  std::string list;
  for (int i = 0; i < 300000; ++i) list += word(i) + " ";
  Ignore(list);
  const auto start = std::chrono::steady_clock::now();
  int ignored = 0;
  for (int i = 0; i < 40000; ++i) ignored += Ignored(i % 2 ? word(i * 7) : "y" + word(i));
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(ignored, 20000);
  EXPECT_LT(took.count(), 5.0);  // searching the 1.8 MB list for each word takes minutes
}

}  // namespace
}  // namespace wordtally::testing
