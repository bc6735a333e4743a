#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "engine/word_counting.h"
#include "support/run_error.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
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

std::vector<std::string> NumberedWords(int first, int last) {
  std::vector<std::string> words;
  for (int i = first; i <= last; ++i) words.push_back(NumberedWord(i));
  return words;
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
  std::vector<std::string> expected = NumberedWords(1, 30);
  expected.push_back("wzzz");
  EXPECT_EQ(Words(descending), expected);

  // Words on either side of 15 characters, which the store keeps in two different ways.
  WordStore lengths;
  const std::string w15(15, 'm'), w16(16, 'm'), w14x = std::string(14, 'm') + "x";
  for (const std::string& w : {w16, w15, w14x, w16, w15, w16}) lengths.Count(w);
  EXPECT_EQ(Words(lengths), (std::vector<std::string>{w15, w16, w14x}));
  EXPECT_EQ(lengths.WordList()[1].Frequency, 2);
  EXPECT_EQ(lengths.WordList()[2].Frequency, 3);
  EXPECT_EQ(lengths.WordList()[3].Frequency, 1);
}

TEST(WordStore, GrowsInStepsOf500WithAscendingWords) {
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
  EXPECT_EQ(Words(store), NumberedWords(0, 1000));
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
  for (const auto& [word, found, at] : {std::tuple{"a", false, -1}, {"b", true, 1}, {"c", false, -2},
                                        {"d", true, 2}, {"e", false, -3}, {"f", true, 3},
                                        {"g", false, -4}}) {
    EXPECT_EQ(store.FindWordInList(word, position), found) << word;
    EXPECT_EQ(position, at) << word;
  }
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

using AddWordToListTest = WholeRunTest;

TEST_F(AddWordToListTest, NewWordsAreEchoedOnceUntilTheTextboxIsFull) {
  host.output = "Now processing input file ...";
  for (const char* w : {"first", "second", "first", "third"}) AddWordToList(ctx, w);
  EXPECT_EQ(host.output, "first second third ");  // the first word replaces the textbox
  host.output = std::string(64900, 'x');
  AddWordToList(ctx, "fourth");  // at 64900 characters there is still room
  EXPECT_EQ(host.output, std::string(64900, 'x') + "fourth ");
  const std::string full = std::string(64900, 'x') + "fourth " +
                           "\r\n\r\n[Suppressing display of words to avoid buffer overflow.]";
  AddWordToList(ctx, "fifth");
  EXPECT_EQ(host.output, full);
  EXPECT_EQ(settings.chkSuppressWords, 1);
  EXPECT_TRUE(ctx.run.blnSuppressionNoticeShown);
  EXPECT_GE(host.settingsChanges, 1);
  AddWordToList(ctx, "sixth");
  EXPECT_EQ(host.output, full);  // the notice is shown once
  EXPECT_EQ(ctx.store.lngNumWords(), 6);
}

TEST_F(AddWordToListTest, LongWordsAreDroppedAndTheLabelRepaintedAtEveryTenthNewWord) {
  settings.chkSuppressWords = 1;
  AddWordToList(ctx, std::string(80, 'a') + "b");  // 81 characters: dropped in silence
  EXPECT_EQ(ctx.store.lngNumWords(), 0);
  AddWordToList(ctx, std::string(79, 'a') + "b");
  EXPECT_EQ(ctx.store.lngNumWords(), 1);
  EXPECT_EQ(host.output, "");

  ctx.store.Reset();
  ctx.run.blnReadingWords = true;
  for (int i = 0; i < 25; ++i) AddWordToList(ctx, NumberedWord(i));
  AddWordToList(ctx, NumberedWord(3));
  EXPECT_EQ(host.captionHistory[Control::NumberOfWords],
            (std::vector<AnsiString>{"Number of common words read so far: 10",
                                     "Number of common words read so far: 20"}));
  EXPECT_TRUE(host.Visible(Control::NumberOfWords));
}

}  // namespace
}  // namespace wordtally::testing
