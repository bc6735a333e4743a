#include "engine/word_filters.h"

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/program_texts.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

TEST(FilterHelpers, SevenBitTestAndBinarySearch) {
  EXPECT_FALSE(Is7BitASCII(""));
  EXPECT_TRUE(Is7BitASCII("cafe"));
  EXPECT_FALSE(Is7BitASCII("caf\xE9"));
  EXPECT_FALSE(Is7BitASCII("\x7F\x80"));

  const std::vector<AnsiString> list = {"b", "d", "f"};
  int32_t position = 0;
  for (const auto& [word, count, found, at] :
       {std::tuple{"a", 3, false, -1}, {"b", 3, true, 1}, {"c", 3, false, -2}, {"d", 3, true, 2},
        {"e", 3, false, -3}, {"f", 3, true, 3}, {"g", 3, false, -4}, {"b", 0, false, -1},
        {"b", 1, true, 1}}) {
    EXPECT_EQ(BinarySearchStrings(word, list, count, position, 1), found) << word << count;
    EXPECT_EQ(position, at) << word << count;
  }
  // Entries compared from their second character on.
  EXPECT_TRUE(BinarySearchStrings("d", {"xb", "xd", "xf"}, 3, position, 2));
  EXPECT_EQ(position, 2);
  // Code-unit order: "Š" (U+0160) comes after "é" (U+00E9) although its byte is smaller.
  EXPECT_TRUE(BinarySearchStrings("\x8A", {"a", "\xE9", "\x8A"}, 3, position, 1));
  EXPECT_EQ(position, 3);
}

class FilterTest : public WholeRunTest {
 protected:
  int32_t Frequency(std::string_view word) const {
    int32_t position = 0;
    return ctx.store.FindWordInList(word, position) ? ctx.store.WordList()[position].Frequency : 0;
  }
  void Count(std::initializer_list<const char*> words) {
    for (const char* word : words) GetWords2(ctx, word);
  }
  bool Load(const std::string& path) {
    ctx.commonWords.strCommonWordsFile = path;
    return AttemptToReadCommonWords(ctx);
  }
};

TEST_F(FilterTest, SevenBitOnlyAndWordsToIgnore) {
  settings.chkOnly7bitASCII = 1;
  Count({"caf\xE9", "cafe"});
  EXPECT_EQ(Frequency("caf\xE9"), 0);
  EXPECT_EQ(Frequency("cafe"), 1);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 1);

  settings.strWordsToIgnore = " a the ";
  Count({"them", "The", "the"});
  EXPECT_EQ(Frequency("them"), 1);
  EXPECT_EQ(Frequency("The"), 0);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 3);
}

TEST_F(FilterTest, CommonWordsIgnoreCaseAndAreNotCountedAsIgnored) {
  ctx.commonWords.words = {"and", "the", "\xE9t\xE9"};
  settings.chkCaseSignificant = 1;
  Count({"The", "\xC9T\xC9", "then"});  // ÉTÉ
  EXPECT_EQ(Frequency("The"), 1);  // the box is not checked yet
  settings.chkIgnoreCommonWords = 1;
  Count({"The", "\xC9T\xC9", "then"});
  EXPECT_EQ(Frequency("The"), 1);
  EXPECT_EQ(Frequency("\xC9T\xC9"), 1);
  EXPECT_EQ(Frequency("then"), 2);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 0);
}

TEST_F(FilterTest, CommonWordsFileDuplicatesCommentsAndCaseGiveOneSortedList) {
  const std::string path = WriteFile(
      "words.txt", "// common words\r\nThe of and\r\n/* not these:\r\nxyzzy */ the\r\nTHE and\r\n"
                   "zebra caf\xC3\xA9 // nor this\r\n");
  ctx.run.blnStartUpCompleted = false;
  ASSERT_TRUE(Load(path));
  EXPECT_EQ(ctx.commonWords.words, (std::vector<AnsiString>{"and", "caf\xE9", "the", "zebra"}));
  EXPECT_TRUE(ctx.commonWords.blnCommonWordsLoaded);
  EXPECT_EQ(settings.chkIgnoreCommonWords, 1);
  EXPECT_EQ(settings.txbCommonWordsFile, path);
  ExpectOneMessage("Common words loaded", "4 common words loaded from " + path,
                   MessageButtons::Ok, MessageIcon::Information);
  EXPECT_FALSE(ctx.run.blnReadingWords);
  EXPECT_GE(host.settingsChanges, 1);
  EXPECT_THAT(host.captionHistory[Control::Status],
              ::testing::Contains("Now reading common words ..."));
  EXPECT_THAT(host.captionHistory[Control::CountButton], ::testing::Contains("Stop"));
  ExpectIdle();

  // One long line reads like one word per line; a word twice on its only line is one word.
  ASSERT_TRUE(Load(WriteFile("line.txt", "those these them their\n")));
  const std::vector<AnsiString> fromOneLine = ctx.commonWords.words;
  ASSERT_TRUE(Load(WriteFile("lines.txt", "those\nthese\nthem\ntheir\n")));
  EXPECT_EQ(ctx.commonWords.words, fromOneLine);
  EXPECT_EQ(fromOneLine, (std::vector<AnsiString>{"their", "them", "these", "those"}));
  ASSERT_TRUE(Load(WriteFile("one.txt", "solitary solitary\n")));
  EXPECT_EQ(host.messages.back().text, "One common word loaded from " + PathOf("one.txt"));

  EXPECT_FALSE(Load(PathOf("missing.txt")));
  EXPECT_EQ(host.messages.back().title, "File not found");
  EXPECT_EQ(host.messages.back().text, "File for common words not found.");
  EXPECT_EQ(settings.chkIgnoreCommonWords, 0);
  EXPECT_FALSE(ctx.commonWords.blnCommonWordsLoaded);
  EXPECT_TRUE(ctx.commonWords.words.empty());
}

// The distinct words of a bundled file, counted straight from its text: the files hold "//"
// comment lines and blank-separated words, all lower case.
size_t DistinctWordsInFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::set<std::string> words;
  std::string line;
  while (std::getline(in, line)) {
    if (line.rfind("//", 0) == 0) continue;
    std::istringstream split(line);
    words.insert(std::istream_iterator<std::string>(split), std::istream_iterator<std::string>());
  }
  return words.size();
}

TEST_F(FilterTest, EveryBundledCommonWordsFileLoadsWhole) {
  std::string path;
  size_t expected = 0;
  for (const char* name : {"cwds_en.txt", "cwds_de.txt", "cwds_es.txt", "cwds_pt.txt",
                           "cwds_it.txt", "cwds_fr.txt", "cwds_en_de_es_pt_it_fr.txt"}) {
    path = std::string(WORDTALLY_BIN_DIR) + "/" + name;
    expected = DistinctWordsInFile(path);
    EXPECT_GT(expected, 100u) << name;
    ASSERT_TRUE(Load(path)) << name;
    EXPECT_EQ(ctx.commonWords.words.size(), expected) << name;
  }
  // The union file, loaded last, holds words of each language.
  int32_t position = 0;
  for (const char* word : {"the", "f\xFCr", "tambi\xE9n", "n\xE3o", "perch\xE9", "tr\xE8s"}) {
    EXPECT_TRUE(BinarySearchStrings(word, ctx.commonWords.words, ctx.commonWords.Count(), position,
                                    1)) << word;
  }
  // Its count, over a thousand, is written with a thousands separator.
  ASSERT_GE(expected, 1000u);
  const std::string grouped =
      std::to_string(expected / 1000) + "," + std::to_string(expected % 1000 + 1000).substr(1);
  EXPECT_EQ(host.messages.back().text, grouped + " common words loaded from " + path);
}

}  // namespace
}  // namespace wordtally::testing
