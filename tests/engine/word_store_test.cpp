#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/engine_context.h"
#include "engine/word_counting.h"
#include "support/run_error.h"
#include "tests/common/scripted_host.h"

namespace wordtally {
namespace {

std::vector<std::string> Words(const WordStore& store) {
  std::vector<std::string> words;
  const auto list = store.WordList();
  for (int32_t i = 1; i <= store.lngNumWords(); ++i) words.push_back(list[i].Word);
  return words;
}

std::string NumberedWord(int i) {  // "waaa", "waab", ...: distinct, in ascending order
  std::string w = "w";
  for (int d : {i / 676, i / 26 % 26, i % 26}) w += static_cast<char>('a' + d);
  return w;
}

TEST(WordStore, KeepsBinaryOrderWhateverTheArrivalOrder) {
  WordStore store;
  for (const char* w : {"pear", "apple", "Apple", "zebra", "apple", "\xE9t\xE9", "\x8A" "ar"}) {
    store.Count(w);
  }
  // Capitals before small letters; "é" (U+00E9) before "Š" (U+0160).
  EXPECT_EQ(Words(store), (std::vector<std::string>{"Apple", "apple", "pear", "zebra", "\xE9t\xE9",
                                                     "\x8A" "ar"}));
  EXPECT_EQ(store.WordList()[2].Frequency, 2);
  EXPECT_TRUE(store.WordList()[2].Included);
  EXPECT_EQ(store.WordList()[2].FreqOrder, 0);

  WordStore descending;
  for (int i = 30; i >= 1; --i) descending.Count(NumberedWord(i));
  descending.Count("wzzz");  // counting goes on after a read
  std::vector<std::string> expected;
  for (int i = 1; i <= 30; ++i) expected.push_back(NumberedWord(i));
  expected.push_back("wzzz");
  EXPECT_EQ(Words(descending), expected);
}

TEST(WordStore, GrowsInStepsOf500) {
  WordStore store;
  EXPECT_EQ(store.UpperBound(), 500);
  for (int i = 0; i < 500; ++i) store.Count(NumberedWord(i));
  EXPECT_EQ(store.UpperBound(), 500);
  store.Count(NumberedWord(500));
  EXPECT_EQ(store.UpperBound(), 1000);
  for (int i = 501; i < 1000; ++i) store.Count(NumberedWord(i));
  store.Count(NumberedWord(0));  // a known word does not grow the store
  EXPECT_EQ(store.UpperBound(), 1000);
  store.Count(NumberedWord(1000));
  EXPECT_EQ(store.UpperBound(), 1500);
  EXPECT_EQ(store.lngNumWords(), 1001);
  store.Reset();
  EXPECT_EQ(store.lngNumWords(), 0);
  EXPECT_EQ(store.UpperBound(), 500);
}

TEST(WordStore, FindWordInListGivesPositionOrInsertionPoint) {
  WordStore store;
  int32_t position = 0;
  EXPECT_FALSE(store.FindWordInList("a", position));
  EXPECT_EQ(position, -1);
  for (const char* w : {"b", "d", "f"}) store.Count(w);
  EXPECT_TRUE(store.FindWordInList("d", position));
  EXPECT_EQ(position, 2);
  EXPECT_TRUE(store.FindWordInList("f", position));
  EXPECT_EQ(position, 3);
  EXPECT_FALSE(store.FindWordInList("a", position));
  EXPECT_EQ(position, -1);
  EXPECT_FALSE(store.FindWordInList("c", position));
  EXPECT_EQ(position, -2);
  EXPECT_FALSE(store.FindWordInList("e", position));
  EXPECT_EQ(position, -3);
  EXPECT_FALSE(store.FindWordInList("g", position));
  EXPECT_EQ(position, -4);
}

TEST(WordStore, SortKeyTransliteratesFoldsAndLowers) {
  EXPECT_EQ(MakeSortKey("Stra\xDF" "e"), "strasse");
  EXPECT_EQ(MakeSortKey("STRASSE"), "strasse");
  EXPECT_EQ(MakeSortKey("\xC9lan"), "elan");
  EXPECT_EQ(MakeSortKey("\xC4rger"), "aerger");
  EXPECT_EQ(MakeSortKey("\x8Cuvre \x9C"), "oeuvre \x9C");  // no rule for the small oe
  EXPECT_EQ(MakeSortKey("\xD0\xF0\x8A\x9F\xDE"), "d\xF0sy\xFE");
}

TEST(WordStore, CountingPastTheLargestCountIsAnOverflow) {
  WordStore store;
  store.Count("word");
  store.WordList()[1].Frequency = INT32_MAX - 1;
  store.Count("word");
  EXPECT_EQ(store.WordList()[1].Frequency, INT32_MAX);
  try {
    store.Count("word");
    FAIL() << "no overflow reported";
  } catch (const RunError& e) {
    EXPECT_EQ(e.Number(), 6);
  }
  EXPECT_EQ(store.WordList()[1].Frequency, INT32_MAX);
}

class AddWordToListTest : public ::testing::Test {
 protected:
  testing::ScriptedHost host;
  CountingSettings settings;
  EngineContext ctx{host, settings};
};

TEST_F(AddWordToListTest, FirstWordReplacesTheTextboxAndNewWordsAreEchoedOnce) {
  host.output = "Now processing input file ...";
  AddWordToList(ctx, "alpha");
  EXPECT_EQ(host.output, "alpha ");
  AddWordToList(ctx, "beta");
  AddWordToList(ctx, "alpha");
  AddWordToList(ctx, "gamma");
  EXPECT_EQ(host.output, "alpha beta gamma ");
  EXPECT_EQ(ctx.store.lngNumWords(), 3);
}

TEST_F(AddWordToListTest, WordsLongerThanTheMaximumAreDroppedInSilence) {
  settings.chkSuppressWords = 1;
  AddWordToList(ctx, std::string(80, 'a') + "b");
  EXPECT_EQ(ctx.store.lngNumWords(), 0);
  AddWordToList(ctx, std::string(79, 'a') + "b");
  EXPECT_EQ(ctx.store.lngNumWords(), 1);
  EXPECT_EQ(host.output, "");
}

TEST_F(AddWordToListTest, EchoStopsWithOneNoticeWhenTheTextboxIsFull) {
  AddWordToList(ctx, "first");
  host.output = std::string(64900, 'x');
  AddWordToList(ctx, "second");  // at 64900 characters there is still room
  EXPECT_EQ(host.output, std::string(64900, 'x') + "second ");
  AddWordToList(ctx, "third");
  const std::string notice = "\r\n\r\n[Suppressing display of words to avoid buffer overflow.]";
  EXPECT_EQ(host.output, std::string(64900, 'x') + "second " + notice);
  EXPECT_EQ(settings.chkSuppressWords, 1);
  EXPECT_TRUE(ctx.run.blnSuppressionNoticeShown);
  AddWordToList(ctx, "fourth");
  EXPECT_EQ(host.output, std::string(64900, 'x') + "second " + notice);
  EXPECT_EQ(ctx.store.lngNumWords(), 4);
  EXPECT_GE(host.settingsChanges, 1);
}

TEST_F(AddWordToListTest, CountLabelIsRepaintedAtEveryTenthNewWord) {
  settings.chkSuppressWords = 1;
  ctx.run.blnReadingWords = true;
  for (int i = 0; i < 25; ++i) AddWordToList(ctx, NumberedWord(i));
  AddWordToList(ctx, NumberedWord(3));
  EXPECT_EQ(host.captionHistory[Control::NumberOfWords],
            (std::vector<AnsiString>{"Number of common words read so far: 10",
                                     "Number of common words read so far: 20"}));
  EXPECT_TRUE(host.Visible(Control::NumberOfWords));
}

}  // namespace
}  // namespace wordtally
