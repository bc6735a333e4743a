// Folder expansion, merging, count files and the corpus table on small cases worked out by hand.
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "corpus/corpus_files.h"
#include "corpus/corpus_table.h"
#include "corpus/count_file.h"
#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// "files | totals | word frequency file:count ... ; ...": counts in one line, for comparing.
std::string Describe(const CorpusCounts& counts) {
  std::string text;
  for (const CountedFile& file : counts.files) text += file.path + " ";
  text += "| " + std::to_string(counts.totalOccurrences) + " " +
          std::to_string(counts.wordsIgnored) + " |";
  for (const CorpusWord& word : counts.words) {
    text += " " + word.word + " " + std::to_string(word.frequency);
    for (const FileCount& c : word.perFile) {
      text += " " + std::to_string(c.file) + ":" + std::to_string(c.count);
    }
    text += " ;";
  }
  return text;
}

TEST(CorpusFiles, FolderGivesItsCountedFilesSortedWithoutHiddenOnes) {
  const TemporaryFolder folder;
  const std::string root = folder.Path() + "/root";
  for (const char* sub : {"/sub", "/.git"}) std::filesystem::create_directories(root + sub);
  for (const char* name : {"/b.txt", "/a.htm", "/Z.TXT", "/sub/c.docx", "/sub/d.jpg",
                           "/sub/notes.php", "/.hidden.txt", "/.git/e.txt"}) {
    std::ofstream(root + name) << "words\n";
  }
  for (const char* name : {"/counts.log", "/saved.counts"}) {
    std::ofstream(root + name) << "#wordtally-counts 1\n";
  }
  std::ofstream(root + "/notes.counts") << "words\n";
  const std::vector<CorpusInput> inputs =
      ExpandCorpusInputs({root + "/sub/d.jpg", root, root + "/missing.txt"});
  std::vector<std::string> described;
  for (const CorpusInput& input : inputs) {
    described.push_back(input.path.substr(root.size()) + (input.isCountFile ? " (counts)" : ""));
  }
  EXPECT_THAT(described, ::testing::ElementsAre("/sub/d.jpg", "/Z.TXT", "/a.htm", "/b.txt",
                                                "/counts.log (counts)", "/notes.counts",
                                                "/saved.counts (counts)", "/sub/c.docx",
                                                "/sub/notes.php", "/missing.txt"));
  EXPECT_FALSE(IsCorpusRun({root + "/b.txt"}));
  EXPECT_TRUE(IsCorpusRun({root + "/counts.log"}));
  EXPECT_TRUE(IsCorpusRun({root + "/sub"}));
}

CorpusCounts MakeCounts(std::vector<std::string> paths, int32_t total, int32_t ignored,
                        std::vector<CorpusWord> words) {
  CorpusCounts counts;
  for (std::string& path : paths) counts.files.push_back({std::move(path), 10, 1700000000});
  counts.totalOccurrences = total;
  counts.wordsIgnored = ignored;
  counts.words = std::move(words);
  return counts;
}

TEST(CorpusCounts, MergeAppendsFilesAndSumsWordsAndTotalsAndCountFilesKeepIt) {
  CorpusCounts into = MakeCounts({"p"}, 5, 1, {{"and", 2, {{0, 2}}}, {"the", 3, {{0, 3}}}});
  const CorpusCounts from =
      MakeCounts({"q\tx", "r\\y"}, 5, 0, {{"caf\xE9", 1, {{1, 1}}}, {"the", 4, {{0, 1}, {1, 3}}}});
  MergeCounts(into, from);
  const std::string merged = "p q\tx r\\y | 10 1 | and 2 0:2 ; caf\xE9 1 2:1 ; the 7 0:3 1:1 2:3 ;";
  EXPECT_EQ(Describe(into), merged);
  EXPECT_EQ(FindCorpusWord(into, "caf\xE9"), &into.words[1]);
  EXPECT_EQ(FindCorpusWord(into, "cat"), nullptr);

  const TemporaryFolder folder;
  const std::string path = folder.Path() + "/any name.txt";
  into.settings = {{"words to ignore", "a\tb"}};
  std::string error;
  ASSERT_TRUE(WriteCountFile(path, into, error)) << error;
  EXPECT_TRUE(IsCountFile(path));
  CorpusCounts read;
  ASSERT_TRUE(ReadCountFile(path, read, error)) << error;
  EXPECT_EQ(Describe(read), merged);
  EXPECT_EQ(read.settings, into.settings);
  EXPECT_THAT(ReadAll(path), ::testing::HasSubstr("\nfile\tq\\tx\t10\t1700000000\n"));
  // One word too many, and out of order: lines 1 signature, 2 setting, 3-5 files, 6 totals,
  // 7 words, 8-10 the words.
  std::ofstream(path, std::ios::app) << "and\t1\t0:1\n";
  EXPECT_FALSE(ReadCountFile(path, read, error));
  EXPECT_EQ(error, "The count file " + path + " is damaged at line 11.");
}

TEST(CorpusTable, QuotesFieldsAndFollowsTheListingsOrder) {
  const CorpusCounts counts =
      MakeCounts({"/corpus/x/a,b.txt", "/corpus/y/say \"hi\".txt"}, 9, 0,
                 {{"caf\xE9", 3, {{0, 1}, {1, 2}}}, {"the", 5, {{0, 5}}}, {"zoo", 1, {{1, 1}}}});
  // As the listing leaves them: "the" ranked 1st, "café" 2nd, "zoo" below the threshold.
  std::vector<WordListEntry> list(4);
  list[1] = {"caf\xE9", "cafe", 3, 2, 0, true};
  list[2] = {"the", "the", 5, 1, 1, true};
  list[3] = {"zoo", "zoo", 1, 0, 0, false};
  const ListStatistics stats{2, 1, 8, 5, 4, 2};
  const std::string header = "\xEF\xBB\xBFRank,Word,Frequency,Range,\"x/a,b.txt\","
                             "\"y/say \"\"hi\"\".txt\"\r\n";
  const std::string the = "1,the,5,1,5,0\r\n", cafe = "2,caf\xC3\xA9,3,2,1,2\r\n";
  const TemporaryFolder folder;
  const std::string path = folder.Path() + "/table.csv";
  std::string error;
  for (const auto& [order, rows] : {std::pair(0, the + cafe), std::pair(1, cafe + the)}) {
    ASSERT_TRUE(WriteCorpusTable(path, list, stats, order, counts, error)) << error;
    EXPECT_EQ(ReadAll(path), header + rows) << "order " << order;
  }
}

}  // namespace
}  // namespace wordtally::testing
