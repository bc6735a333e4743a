// End-to-end tests: the built wordtally program run as a user runs it, on the small files in
// tests/data/cli, compared with listings worked out by hand.
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

using ::testing::HasSubstr;
using Lines = std::vector<std::string>;

struct ProgramOutcome {
  int exitStatus = -1;  // -1 when the program did not exit normally
  std::string out, err;
};

std::string DataFile(const std::string& name) {
  return std::string(WORDTALLY_TEST_DATA) + "/cli/" + name;
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Runs wordtally with args through the shell; its standard input comes from stdinFile. The
// arguments are single-quoted: no test path holds a quote.
ProgramOutcome RunWordtally(const Lines& args, const std::string& stdinFile = "/dev/null") {
  const TemporaryFolder folder;
  const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
  std::string command = "'" WORDTALLY_EXE "'";
  for (const std::string& arg : args) command += " '" + arg + "'";
  command += " <'" + stdinFile + "' >'" + out + "' 2>'" + err + "'";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
}

// Lines joined with the given line end, one after each line.
std::string Joined(const Lines& lines, std::string_view end = "\n") {
  std::string text;
  for (const auto& line : lines) text.append(line).append(end);
  return text;
}

struct Row {
  int rank, freq;
  const char* word;
};

// A listing in the default format: rank and frequency right-aligned, then the word. With commas
// each number takes one column more and is followed by a comma.
Lines Ranked(int longest, std::initializer_list<Row> rows, bool commas = false) {
  Lines lines = {std::string(commas ? "    Rank,    Freq," : "   Rank    Freq") +
                 "  Word (longest has " + std::to_string(longest) + " characters)"};
  for (const auto& [rank, freq, word] : rows) {
    char line[128];
    if (commas) std::snprintf(line, sizeof line, "%8d,%8d,  %s", rank, freq, word);
    else std::snprintf(line, sizeof line, "%7d%8d  %s", rank, freq, word);
    lines.emplace_back(line);
  }
  return lines;
}

// The three "mixed" files: café 3, the 4, über 2, eight words once; the longest has 6 letters.
Lines MixedListing(bool commas = false) {
  return Ranked(6, {{4, 1, "all"}, {2, 3, "café"}, {5, 1, "crème"}, {6, 1, "end"},
                    {7, 1, "lait"}, {8, 1, "naïve"}, {9, 1, "noir"}, {10, 1, "straße"},
                    {11, 1, "that"}, {1, 4, "the"}, {3, 2, "über"}}, commas);
}

// The listing followed by the statistics lines.
Lines WithStatistics(Lines listing, const Lines& statistics) {
  listing.insert(listing.end(), statistics.begin(), statistics.end());
  return listing;
}

// The listing as the output file holds it: Windows-1252 with CR LF. Its letters are Latin-1,
// two bytes in UTF-8 (110000xx 10xxxxxx) and one in the code page.
std::string InOutputFile(const Lines& listing) {
  std::string bytes;
  for (const char c : Joined(listing, "\r\n")) {
    if ((c & 0xC0) == 0x80) bytes.back() = static_cast<char>((bytes.back() & 0x03) << 6 | (c & 0x3F));
    else bytes += c;
  }
  return bytes;
}

TEST(Wordtally, OptionSetsGiveTheListingsWorkedOutByHand) {
  const std::string mixed = DataFile("mixed_ansi_crlf.txt"), cases = DataFile("case_lf.txt");
  const std::string numerals = DataFile("numerals_lf.txt");  // mp3 files, 2024 and 1999 / ...
  const std::string utf8 = DataFile("mixed_utf8_crlf.txt");
  const std::string utf8Question = "UTF-8 or ANSI file?: This file seems to be UTF-8 encoded.";
  const TemporaryFolder folder;
  const std::string clipboard = folder.Path() + "/clipboard";
  std::ofstream(clipboard, std::ios::binary) << "Hello hello world\nwo\xC3\xA4rld caf\xC3\xA9\n";
  const struct {
    Lines args;
    Lines listing;
    std::string errorNote = "";
    std::string stdinFile = "/dev/null";
  } kCases[] = {
      // The same text whatever its encoding and line ends; a UTF-8 file is asked about.
      {{mixed}, MixedListing()},
      {{DataFile("mixed_utf8_bom_lf.txt")}, MixedListing(), utf8Question},
      {{utf8}, MixedListing(), utf8Question},
      // C3 is the letter A tilde and E2 a circumflex; the bytes after them are not letters.
      {{"--ansi", utf8},
       Ranked(5, {{4, 1, "all"}, {3, 2, "ber"}, {2, 3, "cafã"}, {5, 1, "crã"}, {6, 1, "end"},
                  {7, 1, "lait"}, {8, 1, "naã"}, {9, 1, "noir"}, {10, 1, "straã"},
                  {11, 1, "thatâ"}, {1, 4, "the"}}),
       utf8Question},
      {{"--order", "frequency", "--format", "5", mixed},
       {"    Freq  Word (longest has 6 characters)", "       4  the", "       3  café",
        "       2  über", "       1  all", "       1  crème", "       1  end", "       1  lait",
        "       1  naïve", "       1  noir", "       1  straße", "       1  that"}},
      {{"--ignore", "the end", "--stats", mixed},
       WithStatistics(Ranked(6, {{3, 1, "all"}, {1, 3, "café"}, {4, 1, "crème"}, {5, 1, "lait"},
                                 {6, 1, "naïve"}, {7, 1, "noir"}, {8, 1, "straße"},
                                 {9, 1, "that"}, {2, 2, "über"}}),
                      {"Number of words in this list: 9", "Number of words ignored: 5",
                       "Number of words excluded: 0",
                       "Number of instances of words in this list: 12",
                       "Total number of instances of words: 17"})},
      // "the", "that" and "all" are common English words.
      {{"--language", "en", "--stats", DataFile("mixed_utf8_bom_lf.txt")},
       WithStatistics(Ranked(6, {{1, 3, "café"}, {3, 1, "crème"}, {4, 1, "end"}, {5, 1, "lait"},
                                 {6, 1, "naïve"}, {7, 1, "noir"}, {8, 1, "straße"},
                                 {2, 2, "über"}}),
                      {"Number of words in this list: 8",
                       "No. of words ignored (other than common words): 0",
                       "Number of words excluded: 0",
                       "Number of instances of words in this list: 11",
                       "Total number of instances of words: 17"})},
      // Apple apple / banana apple. "Apple" and "apple" share a sort key; "apple" stays first.
      {{cases}, Ranked(6, {{1, 3, "apple"}, {2, 1, "banana"}})},
      {{"--case-sensitive", cases}, Ranked(6, {{1, 2, "apple"}, {2, 1, "Apple"}, {3, 1, "banana"}})},
      {{"--format", "9", cases}, {"Word (longest has 6 characters)", "apple, banana"}},
      {{"--singular", "--order", "frequency", "--format", "3", DataFile("plurals_crlf.txt")},
       {"   Rank  Word (longest has 7 characters)", "      1  city", "      2  and",
        "      3  boxe", "      4  bus", "      5  class", "      6  glass", "      7  hero",
        "      8  horse", "      9  species", "     10  the", "     11  tree", "     12  wish"}},
      // Numbers have no vowel: they need --keep-no-vowel as well.
      {{"--numerals", "--format", "8", numerals},
       {"Word (longest has 9 characters)", "abc123def", "and", "files", "plus"}},
      {{"--numerals", "--keep-no-vowel", numerals},
       Ranked(9, {{2, 1, "123"}, {3, 1, "1999"}, {4, 1, "2024"}, {5, 1, "abc123def"},
                  {1, 2, "and"}, {6, 1, "files"}, {7, 1, "mp3"}, {8, 1, "plus"}})},
      // The head's words ("Secret headline words") and the comment do not count; entities are
      // letters and blanks.
      {{DataFile("page_utf8.html")},
       Ranked(6, {{2, 1, "again"}, {3, 1, "bold"}, {4, 1, "brûlée"}, {1, 2, "café"},
                  {5, 1, "crème"}, {6, 1, "naïve"}, {7, 1, "text"}, {8, 1, "words"}})},
      {{"--min-frequency", "4", "--order", "frequency", "--stats",
        DataFile("en_tika_testWORD.docx")},
       WithStatistics(Ranked(7, {{1, 7, "this"}, {2, 6, "the"}, {3, 5, "heading"},
                                 {4, 4, "level"}, {5, 4, "table"}}),
                      {"Number of words in this list: 5", "Number of words ignored: 0",
                       "Number of words excluded: 33",
                       "Number of instances of words in this list: 26",
                       "Total number of instances of words: 74"})},
      {{DataFile("no_words_crlf.txt")}, {"No words satisfying the conditions were found."}},
      {{"--min-frequency", "5", mixed},
       {"No words with more than 2 letters occur at least 5 times."}},
      {{"--commas", mixed}, MixedListing()},  // commas only concern an output file
      // Standard input is clipboard text in UTF-8; "woärld" sorts as "woaerld", before "world".
      {{"-"}, Ranked(6, {{2, 1, "café"}, {1, 2, "hello"}, {3, 1, "woärld"}, {4, 1, "world"}}), "",
       clipboard},
  };
  for (const auto& [args, listing, errorNote, stdinFile] : kCases) {
    SCOPED_TRACE(args[0] + (args.size() > 1 ? " " + args.back() : ""));
    const ProgramOutcome run = RunWordtally(args, stdinFile);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, Joined(listing));
    EXPECT_THAT(run.err, HasSubstr(errorNote));
  }
}

TEST(Wordtally, OutputFileHoldsWindows1252WithCrLfAndReplacesAnEarlierOne) {
  const TemporaryFolder folder;
  const std::string output = folder.Path() + "/list.txt";
  for (const bool commas : {false, true}) {
    SCOPED_TRACE(commas ? "commas" : "blanks");
    std::ofstream(output, std::ios::binary) << "an earlier list that is replaced";
    Lines args = {"--output", output, DataFile("mixed_ansi_crlf.txt")};
    if (commas) args.push_back("--commas");
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, Joined(MixedListing(commas)));
    EXPECT_EQ(ReadFile(output),
              std::string("\"To open this file in Excel state that it is delimited by ") +
                  (commas ? "commas" : "spaces") +
                  ".\r\nSet File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n" +
                  InOutputFile(MixedListing(commas)));
  }
}

TEST(Wordtally, RefusedInputExitsWith1AndBadUsageWith2) {
  const TemporaryFolder folder;
  const std::string missing = folder.Path() + "/none.txt", input = folder.Path() + "/words.txt";
  const std::string binaryText = folder.Path() + "/binary", cases = DataFile("case_lf.txt");
  std::ofstream(input, std::ios::binary) << "alpha beta gamma\r\n";
  std::ofstream(binaryText, std::ios::binary) << std::string("Hello\0world", 11);
  const std::string badUsage = "Run with --help for more information.";
  const struct {
    Lines args;
    int exitStatus;
    std::string error;
    std::string stdinFile = "/dev/null";
  } kRuns[] = {
      {{missing}, 1, "Fatal error: File " + missing + " not found."},
      {{"--output", input, input}, 1, "Output file cannot be the same as the input file."},
      {{"--output", folder.Path() + "/list.docx", input}, 1,
       "Output file cannot be a 'docx' file."},
      {{"-"}, 1,
       "Invalid input: The text on the clipboard does not consist\n"
       "solely of natural language words.",
       binaryText},
      {{"--min-frequency", "1", cases}, 2, badUsage}, {{"--format", "11", cases}, 2, badUsage},
      {{"--min-frequency", "10", cases}, 2, badUsage}, {{"--no-such-option", cases}, 2, badUsage},
      {{"--language", "xx", cases}, 2, badUsage}, {{"--order", "random", cases}, 2, badUsage},
      {{}, 2, badUsage},
      // The edges of the ranges are accepted.
      {{"--min-frequency", "2", cases}, 0, ""}, {{"--min-frequency", "9", cases}, 0, ""},
      {{"--format", "0", cases}, 0, ""},
  };
  for (const auto& [args, exitStatus, error, stdinFile] : kRuns) {
    SCOPED_TRACE(args.empty() ? "no input" : args[0] + " " + args.back());
    const ProgramOutcome run = RunWordtally(args, stdinFile);
    EXPECT_EQ(run.exitStatus, exitStatus);
    EXPECT_EQ(run.out.empty(), exitStatus != 0);
    EXPECT_THAT(run.err, HasSubstr(error));
  }
  EXPECT_EQ(ReadFile(input), "alpha beta gamma\r\n");
}

}  // namespace
}  // namespace wordtally::testing
