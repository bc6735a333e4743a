#include "engine/word_filters.h"

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "support/file_utils.h"
#include "tests/common/scripted_host.h"

namespace wordtally {
namespace {

TEST(Is7BitASCIITest, EmptyAndHighCharacters) {
  EXPECT_FALSE(Is7BitASCII(""));
  EXPECT_TRUE(Is7BitASCII("cafe"));
  EXPECT_FALSE(Is7BitASCII("caf\xE9"));
  EXPECT_FALSE(Is7BitASCII("\x7F\x80"));
}

TEST(BinarySearchStringsTest, FoundAndInsertionPositions) {
  const std::vector<AnsiString> list = {"b", "d", "f"};
  int32_t position = 0;
  EXPECT_FALSE(BinarySearchStrings("a", list, 3, position, 1));
  EXPECT_EQ(position, -1);
  EXPECT_FALSE(BinarySearchStrings("g", list, 3, position, 1));
  EXPECT_EQ(position, -4);
  EXPECT_FALSE(BinarySearchStrings("c", list, 3, position, 1));
  EXPECT_EQ(position, -2);
  EXPECT_FALSE(BinarySearchStrings("e", list, 3, position, 1));
  EXPECT_EQ(position, -3);
  for (int32_t i = 1; i <= 3; ++i) {
    EXPECT_TRUE(BinarySearchStrings(list[i - 1], list, 3, position, 1));
    EXPECT_EQ(position, i);
  }
  EXPECT_FALSE(BinarySearchStrings("b", list, 0, position, 1));
  EXPECT_EQ(position, -1);
  EXPECT_TRUE(BinarySearchStrings("b", list, 1, position, 1));
  EXPECT_EQ(position, 1);

  // Entries compared from their second character on.
  EXPECT_TRUE(BinarySearchStrings("d", {"xb", "xd", "xf"}, 3, position, 2));
  EXPECT_EQ(position, 2);
  // Code-unit order: "Š" (U+0160) comes after "é" (U+00E9) although its byte is smaller.
  EXPECT_TRUE(BinarySearchStrings("\x8A", {"a", "\xE9", "\x8A"}, 3, position, 1));
  EXPECT_EQ(position, 3);
}

class FilterTest : public ::testing::Test {
 protected:
  FilterTest() : ctx(host, settings) {}

  int32_t Frequency(std::string_view word) const {
    int32_t position = 0;
    return ctx.store.FindWordInList(word, position) ? ctx.store.WordList()[position].Frequency : 0;
  }

  testing::ScriptedHost host;
  CountingSettings settings;
  EngineContext ctx;
};

TEST_F(FilterTest, SevenBitTestAndWordsToIgnore) {
  settings.chkOnly7bitASCII = 1;
  GetWords2(ctx, "caf\xE9");
  GetWords2(ctx, "cafe");
  EXPECT_EQ(Frequency("caf\xE9"), 0);
  EXPECT_EQ(Frequency("cafe"), 1);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 1);

  settings.strWordsToIgnore = " a the ";
  GetWords2(ctx, "them");
  GetWords2(ctx, "The");
  GetWords2(ctx, "the");
  EXPECT_EQ(Frequency("them"), 1);
  EXPECT_EQ(Frequency("The"), 0);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 3);
}

TEST_F(FilterTest, CommonWordsIgnoreCaseAndAreNotCountedAsIgnored) {
  ctx.commonWords.words = {"and", "the", "\xE9t\xE9"};
  settings.chkCaseSignificant = 1;
  GetWords2(ctx, "The");
  GetWords2(ctx, "\xC9T\xC9");  // ÉTÉ
  GetWords2(ctx, "then");
  EXPECT_EQ(Frequency("The"), 1);  // the box is not checked yet

  settings.chkIgnoreCommonWords = 1;
  GetWords2(ctx, "The");
  GetWords2(ctx, "\xC9T\xC9");
  GetWords2(ctx, "then");
  EXPECT_EQ(Frequency("The"), 1);
  EXPECT_EQ(Frequency("\xC9T\xC9"), 1);
  EXPECT_EQ(Frequency("then"), 2);
  EXPECT_EQ(ctx.run.lngNumWordsIgnored, 0);
}

// Writes a file in a temporary folder and loads it as the common-words file.
class CommonWordsTest : public FilterTest {
 protected:
  bool Load(const std::string& name, const std::string& content) {
    const std::string path = folder.Path() + "/" + name;
    std::ofstream(path, std::ios::binary) << content;
    return LoadPath(path);
  }
  bool LoadPath(const std::string& path) {
    ctx.commonWords.strCommonWordsFile = path;
    return AttemptToReadCommonWords(ctx);
  }

  TemporaryFolder folder;
};

TEST_F(CommonWordsTest, DuplicatesCommentsAndCaseGiveOneSortedList) {
  ASSERT_TRUE(Load("words.txt",
                   "// common words\r\nThe of and\r\n/* not these:\r\nxyzzy */ the\r\nTHE and\r\n"
                   "zebra caf\xC3\xA9 // nor this\r\n"));
  EXPECT_EQ(ctx.commonWords.words,
            (std::vector<AnsiString>{"and", "caf\xE9", "the", "zebra"}));
  EXPECT_TRUE(ctx.commonWords.blnCommonWordsLoaded);
  EXPECT_EQ(settings.chkIgnoreCommonWords, 1);
  EXPECT_EQ(settings.txbCommonWordsFile, folder.Path() + "/words.txt");
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Common words loaded");
  EXPECT_EQ(host.messages[0].text, "4 common words loaded from " + folder.Path() + "/words.txt");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Information);
  EXPECT_FALSE(ctx.run.blnReadingWords);
  EXPECT_FALSE(host.busy);
  EXPECT_GE(host.settingsChanges, 1);
  EXPECT_THAT(host.captionHistory[Control::Status], ::testing::Contains("Now reading common words ..."));
  EXPECT_THAT(host.captionHistory[Control::CountButton], ::testing::Contains("Stop"));
  EXPECT_EQ(host.Caption(Control::CountButton), texts::kCountButtonIdle);
}

TEST_F(CommonWordsTest, OneLongLineReadsLikeOneWordPerLine) {
  ASSERT_TRUE(Load("line.txt", "those these them their\n"));
  const std::vector<AnsiString> fromOneLine = ctx.commonWords.words;
  ASSERT_TRUE(Load("lines.txt", "those\nthese\nthem\ntheir\n"));
  EXPECT_EQ(ctx.commonWords.words, fromOneLine);
  EXPECT_EQ(fromOneLine, (std::vector<AnsiString>{"their", "them", "these", "those"}));
}

TEST_F(CommonWordsTest, OneWordAndMissingFile) {
  ASSERT_TRUE(Load("one.txt", "solitary solitary\n"));
  EXPECT_EQ(host.messages.back().text, "One common word loaded from " + folder.Path() + "/one.txt");

  EXPECT_FALSE(LoadPath(folder.Path() + "/missing.txt"));
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

TEST_F(CommonWordsTest, EveryBundledFileLoadsWhole) {
  for (const char* name : {"cwds_en.txt", "cwds_de.txt", "cwds_es.txt", "cwds_pt.txt",
                           "cwds_it.txt", "cwds_fr.txt", "cwds_en_de_es_pt_it_fr.txt"}) {
    const std::string path = std::string(WORDTALLY_BIN_DIR) + "/" + name;
    const size_t expected = DistinctWordsInFile(path);
    EXPECT_GT(expected, 100u) << name;
    ASSERT_TRUE(LoadPath(path)) << name;
    EXPECT_EQ(ctx.commonWords.words.size(), expected) << name;
  }
  // The union file, loaded last, holds words of each language.
  int32_t position = 0;
  for (const char* word : {"the", "f\xFCr", "tambi\xE9n", "n\xE3o", "perch\xE9", "tr\xE8s"}) {
    EXPECT_TRUE(BinarySearchStrings(word, ctx.commonWords.words, ctx.commonWords.Count(), position, 1))
        << word;
  }
  // Its count, over a thousand, is written with a thousands separator.
  const std::string unionPath = std::string(WORDTALLY_BIN_DIR) + "/cwds_en_de_es_pt_it_fr.txt";
  const size_t count = DistinctWordsInFile(unionPath);
  ASSERT_GE(count, 1000u);
  const std::string grouped =
      std::to_string(count / 1000) + "," + std::to_string(count % 1000 + 1000).substr(1);
  EXPECT_EQ(host.messages.back().text, grouped + " common words loaded from " + unionPath);
}

}  // namespace
}  // namespace wordtally
