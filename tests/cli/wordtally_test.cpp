// End-to-end tests: the built wordtally program run as a user runs it, on the small files in
// tests/data/cli, compared with listings worked out by hand.
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

struct ProgramOutcome {
  int exitStatus = -1;  // -1 when the program did not exit normally
  std::string out, err;
};

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Runs wordtally in tests/data/cli with args through the shell; its standard input comes from
// stdinFile. The arguments are single-quoted: no test path holds a quote.
ProgramOutcome RunWordtally(const std::vector<std::string>& args,
                            const std::string& stdinFile = "/dev/null") {
  const TemporaryFolder folder;
  const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
  std::string command = "cd '" WORDTALLY_TEST_DATA "/cli' && '" WORDTALLY_EXE "'";
  for (const std::string& arg : args) command += " '" + arg + "'";
  command += " <'" + stdinFile + "' >'" + out + "' 2>'" + err + "'";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
}

using Row = std::tuple<int, int, const char*>;  // rank, frequency, word

// A listing in the default format, at the fields' minimum widths: rank and frequency
// right-aligned, then the word. With commas each number takes one column more and a comma.
std::string Ranked(int longest, std::initializer_list<Row> rows, bool commas = false) {
  std::string listing = std::string(commas ? "    Rank,    Freq," : "   Rank    Freq") +
                        "  Word (longest has " + std::to_string(longest) + " characters)\n";
  for (const auto& [rank, freq, word] : rows) {
    char line[128];
    std::snprintf(line, sizeof line, commas ? "%8d,%8d,  %s\n" : "%7d%8d  %s\n", rank, freq, word);
    listing += line;
  }
  return listing;
}

// The three "mixed" files: café 3, the 4, über 2, eight words once; the longest has 6 letters.
std::string MixedListing(bool commas = false) {
  return Ranked(6, {{4, 1, "all"}, {2, 3, "café"}, {5, 1, "crème"}, {6, 1, "end"},
                    {7, 1, "lait"}, {8, 1, "naïve"}, {9, 1, "noir"}, {10, 1, "straße"},
                    {11, 1, "that"}, {1, 4, "the"}, {3, 2, "über"}}, commas);
}

// The listing as the output file holds it: Windows-1252 with CR LF. Its letters are Latin-1,
// two bytes in UTF-8 (110000xx 10xxxxxx) and one in the code page.
std::string InOutputFile(const std::string& listing) {
  std::string bytes;
  for (const char c : listing) {
    if (c == '\n') bytes += '\r';
    if ((c & 0xC0) != 0x80) bytes += c;
    else bytes.back() = static_cast<char>((bytes.back() & 0x03) << 6 | (c & 0x3F));
  }
  return bytes;
}

// One run: its arguments, the text printed, the exit status, a note expected on the standard
// error and the file read as standard input.
struct Invocation {
  std::vector<std::string> args;
  std::string out;
  int exitStatus = 0;
  std::string errorNote = "";
  std::string stdinFile = "/dev/null";
};

TEST(Wordtally, OptionSetsGiveTheListingsWorkedOutByHandAndTheExitStatus) {
  const std::string mixed = "mixed_ansi_crlf.txt", cases = "case_lf.txt";
  const std::string utf8 = "mixed_utf8_crlf.txt", utf8Bom = "mixed_utf8_bom_lf.txt";
  const std::string usage = "Run with --help for more information.";
  const TemporaryFolder folder;
  const std::string missing = folder.Path() + "/none.txt", input = folder.Path() + "/words.txt";
  const std::string clipboard = folder.Path() + "/clipboard", binary = folder.Path() + "/binary";
  std::ofstream(clipboard, std::ios::binary) << "Hello hello world\nwo\xC3\xA4rld caf\xC3\xA9\n";
  std::ofstream(binary, std::ios::binary) << std::string("Hello\0world", 11);
  std::ofstream(input, std::ios::binary) << "alpha beta gamma\r\n";
  const Invocation kRuns[] = {
      // The same text whatever its encoding and line ends; as in the window, the UTF-8 box
      // follows the detection, so nothing is asked. Commas only concern an output file.
      {{"--commas", mixed}, MixedListing()},
      {{utf8Bom}, MixedListing()},
      {{utf8}, MixedListing()},
      // C3 is the letter A tilde and E2 a circumflex; the bytes after them are not letters.
      {{"--ansi", utf8},
       Ranked(5, {{4, 1, "all"}, {3, 2, "ber"}, {2, 3, "cafã"}, {5, 1, "crã"}, {6, 1, "end"},
                  {7, 1, "lait"}, {8, 1, "naã"}, {9, 1, "noir"}, {10, 1, "straã"},
                  {11, 1, "thatâ"}, {1, 4, "the"}})},
      {{"--ignore", "the end", "--stats", mixed},
       Ranked(6, {{3, 1, "all"}, {1, 3, "café"}, {4, 1, "crème"}, {5, 1, "lait"},
                  {6, 1, "naïve"}, {7, 1, "noir"}, {8, 1, "straße"}, {9, 1, "that"},
                  {2, 2, "über"}}) +
           "Number of words in this list: 9\nNumber of words ignored: 5\n"
           "Number of words excluded: 0\nNumber of instances of words in this list: 12\n"
           "Total number of instances of words: 17\n"},
      // "the", "that" and "all" are common English words.
      {{"--language", "en", utf8Bom},
       Ranked(6, {{1, 3, "café"}, {3, 1, "crème"}, {4, 1, "end"}, {5, 1, "lait"},
                  {6, 1, "naïve"}, {7, 1, "noir"}, {8, 1, "straße"}, {2, 2, "über"}})},
      // Apple apple / banana apple. "Apple" and "apple" share a sort key; "apple" stays first.
      {{"--format", "0", cases}, Ranked(6, {{1, 3, "apple"}, {2, 1, "banana"}})},
      {{"--case-sensitive", cases},
       Ranked(6, {{1, 2, "apple"}, {2, 1, "Apple"}, {3, 1, "banana"}})},
      {{"--format", "9", cases}, "Word (longest has 6 characters)\napple, banana\n"},
      {{"--min-frequency", "2", cases}, Ranked(5, {{1, 3, "apple"}})},
      {{"--min-frequency", "9", cases},
       "No words with more than 2 letters occur at least 9 times.\n"},
      {{"--singular", "--order", "frequency", "--format", "3", "plurals_crlf.txt"},
       "   Rank  Word (longest has 7 characters)\n      1  city\n      2  and\n      3  boxe\n"
       "      4  bus\n      5  class\n      6  glass\n      7  hero\n      8  horse\n"
       "      9  species\n     10  the\n     11  tree\n     12  wish\n"},
      // mp3 files, 2024 and 1999 / plus abc123def and 123. Numbers have no vowel.
      {{"--numerals", "--keep-no-vowel", "numerals_lf.txt"},
       Ranked(9, {{2, 1, "123"}, {3, 1, "1999"}, {4, 1, "2024"}, {5, 1, "abc123def"},
                  {1, 2, "and"}, {6, 1, "files"}, {7, 1, "mp3"}, {8, 1, "plus"}})},
      // The head's words ("Secret headline words") and the comment do not count; entities are
      // letters and blanks.
      {{"page_utf8.html"},
       Ranked(6, {{2, 1, "again"}, {3, 1, "bold"}, {4, 1, "brûlée"}, {1, 2, "café"},
                  {5, 1, "crème"}, {6, 1, "naïve"}, {7, 1, "text"}, {8, 1, "words"}})},
      {{"--min-frequency", "4", "--order", "frequency", "--stats", "en_tika_testWORD.docx"},
       Ranked(7, {{1, 7, "this"}, {2, 6, "the"}, {3, 5, "heading"}, {4, 4, "level"},
                  {5, 4, "table"}}) +
           "Number of words in this list: 5\nNumber of words ignored: 0\n"
           "Number of words excluded: 33\nNumber of instances of words in this list: 26\n"
           "Total number of instances of words: 74\n"},
      {{"no_words_crlf.txt"}, "No words satisfying the conditions were found.\n"},
      // Standard input is clipboard text in UTF-8; "woärld" sorts as "woaerld", before "world".
      {{"-"}, Ranked(6, {{2, 1, "café"}, {1, 2, "hello"}, {3, 1, "woärld"}, {4, 1, "world"}}), 0,
       "", clipboard},
      // Refused input exits with 1, bad usage with 2.
      {{missing}, "", 1, "Fatal error: File " + missing + " not found."},
      {{"--output", input, input}, "", 1, "Output file cannot be the same as the input file."},
      {{"--output", folder.Path() + "/list.docx", input}, "", 1,
       "Output file cannot be a 'docx' file."},
      {{"-"}, "", 1,
       "Invalid input: The text on the clipboard does not consist\n"
       "solely of natural language words.",
       binary},
      // Two files as one corpus: every frequency doubled, 34 instances in all.
      {{"--stats", mixed, utf8},
       Ranked(6, {{4, 2, "all"}, {2, 6, "café"}, {5, 2, "crème"}, {6, 2, "end"},
                  {7, 2, "lait"}, {8, 2, "naïve"}, {9, 2, "noir"}, {10, 2, "straße"},
                  {11, 2, "that"}, {1, 8, "the"}, {3, 4, "über"}}) +
           "Number of words in this list: 11\nNumber of words ignored: 0\n"
           "Number of words excluded: 0\nNumber of instances of words in this list: 34\n"
           "Total number of instances of words: 34\nFiles counted: 2, skipped: 0\n"},
      // A refused input is named and skipped: the others are listed, and the exit status is 1.
      {{mixed, missing}, MixedListing(), 1, "Fatal error: File " + missing + " not found."},
      {{"-", mixed}, "", 1, "Standard input (\"-\") is counted alone"},
      {{"--min-frequency", "1", cases}, "", 2, usage}, {{"--format", "10", cases}, "", 2, usage},
      {{"--min-frequency", "10", cases}, "", 2, usage}, {{"--order", "odd", cases}, "", 2, usage},
      {{"--language", "xx", cases}, "", 2, usage}, {{"--no-such-option", cases}, "", 2, usage},
      {{}, "", 2, usage},
  };
  for (const auto& [args, out, exitStatus, errorNote, stdinFile] : kRuns) {
    SCOPED_TRACE(args.empty() ? "no arguments" : args[0] + " " + args.back());
    const ProgramOutcome run = RunWordtally(args, stdinFile);
    EXPECT_EQ(run.exitStatus, exitStatus) << run.err;
    EXPECT_EQ(run.out, out);
    // Standard error is quiet unless something was refused or went wrong.
    if (errorNote.empty()) EXPECT_EQ(run.err, "");
    else EXPECT_THAT(run.err, ::testing::HasSubstr(errorNote));
  }
  EXPECT_EQ(ReadFile(input), "alpha beta gamma\r\n");
}

TEST(Wordtally, OutputFileHoldsWindows1252WithCrLfAndReplacesAnEarlierOne) {
  const TemporaryFolder folder;
  const std::string output = folder.Path() + "/list.txt";
  for (const bool commas : {false, true}) {
    SCOPED_TRACE(commas ? "commas" : "blanks");
    std::ofstream(output, std::ios::binary) << "an earlier list that is replaced";
    std::vector<std::string> args = {"--output", output, "mixed_ansi_crlf.txt"};
    if (commas) args.push_back("--commas");
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, MixedListing(commas));
    EXPECT_EQ(ReadFile(output),
              std::string("\"To open this file in Excel state that it is delimited by ") +
                  (commas ? "commas" : "spaces") +
                  ".\r\nSet File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n" +
                  InOutputFile(MixedListing(commas)));
  }
}

// Real pages and texts from public collections, and the modern text switch.
TEST(Wordtally, EbookPageListsItsWordsAndNoEntityNames) {
  const std::string page = WORDTALLY_TEST_DATA "/en_gutenberg_news_from_nowhere_ch13.htm";
  const std::string frequent =
      RunWordtally({"--order", "frequency", "--format", "5", "--min-frequency", "2", page}).out;
  EXPECT_EQ(frequent,
            "    Freq  Word (longest has 8 characters)\n       6  you\n       5  that\n"
            "       3  politics\n       3  said\n       2  believe\n       2  chapter\n"
            "       2  know\n       2  make\n       2  question\n       2  the\n       2  this\n"
            "       2  will\n       2  would\n");
  const std::string listing = RunWordtally({"--format", "8", page}).out;
  for (const char* name : {"ldquo", "rdquo", "mdash", "nbsp", "rsquo"}) {
    EXPECT_EQ(listing.find(name), std::string::npos) << name;
  }
}

TEST(Wordtally, CommandLineDetectsUtf8AsTheWindowDoesAndTellsOnlyWhatMatters) {
  const std::string poem = WORDTALLY_TEST_DATA "/pl_pan_tadeusz_invocation_utf8_lf.txt";
  const std::string bom = "mixed_utf8_bom_lf.txt";
  const std::string refusal = "Incompatible setting: Scanning as UTF-8 is not compatible with\n";
  const struct {
    std::vector<std::string> args;
    int exitStatus;
    std::string errStart;  // the beginning of standard error; "": nothing at all
  } kCases[] = {
      {{"--ascii-only", bom}, 1, refusal},
      {{"--ascii-only", "--modern-text", poem}, 1, refusal},
      {{"--ascii-only", poem}, 0, ""},  // not UTF-8 by the classic rules
      {{"--ascii-only", "--ansi", bom}, 0, ""},
      {{"--ascii-only", "--ansi", "--verbose", bom}, 0, "UTF-8 or ANSI file?: This file seems"},
      {{"--language", "en", bom}, 0, ""},
      {{"--language", "en", "--verbose", bom}, 0, "Common words loaded: "},
  };
  for (const auto& [args, exitStatus, errStart] : kCases) {
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, exitStatus) << args[0] << " " << args[1];
    EXPECT_EQ(run.err.substr(0, errStart.empty() ? std::string::npos : errStart.size()), errStart);
    EXPECT_EQ(run.out.empty(), exitStatus != 0);
  }
}

TEST(Wordtally, ModernTextReadsUtf8WithoutMarksAndTypographicStandardInput) {
  const std::string poem = WORDTALLY_TEST_DATA "/pl_pan_tadeusz_invocation_utf8_lf.txt";
  const std::string modern = RunWordtally({"--modern-text", "--format", "8", poem}).out;
  const std::string classic = RunWordtally({"--format", "8", poem}).out;
  for (const std::string word : {"gród", "nowogródzki", "pagórków", "rozmaitém"}) {
    EXPECT_NE(modern.find("\n" + word + "\n"), std::string::npos) << word;
    EXPECT_EQ(classic.find("\n" + word + "\n"), std::string::npos) << word;
  }
  EXPECT_NE(classic.find("\ngrã\n"), std::string::npos);

  const TemporaryFolder folder;
  const std::string text = folder.Path() + "/text";
  std::ofstream(text, std::ios::binary) << "It\xE2\x80\x99s the end \xE2\x80\x94 or not\n";
  // Classic: U+2019 has the low byte of a control character.
  EXPECT_EQ(RunWordtally({"-"}, text).exitStatus, 1);
  EXPECT_EQ(RunWordtally({"--modern-text", "--format", "8", "-"}, text).out,
            "Word (longest has 3 characters)\nend\nnot\nthe\n");
}

// Keywords of the "mixed" file (17 instances: the 4, café 3, über 2, eight words once) against a
// reference of "the" 16 times. the: E1 = 17 * 20/33 = 10.30303, E2 = 9.69697, G2 = 2 (4 ln 0.388235
// + 16 ln 1.65) = 8.46, log2((4/17) / (16/16)) = -2.09. café: E1 = 17 * 3/33 = 1.545455, G2 = 6 ln
// 1.941176 = 3.98, log2((3/17) / (0.5/16)) = 2.50. über: G2 = 4 ln 1.941176 = 2.65, cut at 3.84.
TEST(Wordtally, KeywordsAgainstAReferenceWorkedOutByHand) {
  const TemporaryFolder folder;
  const std::string reference = folder.Path() + "/reference.txt", csv = folder.Path() + "/k.csv";
  std::string text;
  for (int i = 0; i < 16; ++i) text += "the\r\n";
  std::ofstream(reference, std::ios::binary) << text;
  const std::string header =
      "\xEF\xBB\xBFRank,Word,Frequency,Reference frequency,Log-likelihood,Log ratio\r\n";
  const std::pair<const char*, std::string> cases[] = {
      {"3.84", header + "1,the,4,16,8.46,-2.09\r\n2,caf\xC3\xA9,3,0,3.98,2.50\r\n"},
      {"6.63", header + "1,the,4,16,8.46,-2.09\r\n"}};
  for (const auto& [cutoff, expected] : cases) {
    const ProgramOutcome run = RunWordtally({"mixed_ansi_crlf.txt", "--reference", reference,
                                             "--keywords", csv, "--keyword-cutoff", cutoff});
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(ReadFile(csv), expected) << cutoff;
  }
  EXPECT_EQ(RunWordtally({"mixed_ansi_crlf.txt", "--keywords", csv}).exitStatus, 2);
}

}  // namespace
}  // namespace wordtally::testing

namespace wordtally::testing {
namespace {

// The acceptance test of count files: counts saved from some files and merged in a later run
// give, byte for byte, the listing, output file and corpus table of a run over the files
// themselves; counts made under other settings are refused by the setting's name.
TEST(Wordtally, RunFromCountFilesEqualsTheRunOverTheirFiles) {
  const TemporaryFolder folder;
  const std::string data = WORDTALLY_TEST_DATA "/cli/", out = folder.Path() + "/";
  const std::vector<std::string> files = {data + "mixed_ansi_crlf.txt", data + "page_utf8.html",
                                          data + "en_tika_testWORD.docx"};
  auto run = [&](std::vector<std::string> inputs, const std::string& name) {
    for (const char* option : {"--order", "frequency", "--stats", "--output"}) {
      inputs.push_back(option);
    }
    inputs.insert(inputs.end(), {out + name + ".txt", "--corpus-table", out + name + ".csv"});
    return RunWordtally(inputs);
  };
  ASSERT_EQ(RunWordtally({files[0], "--save-counts", out + "first.counts"}).exitStatus, 0);
  ASSERT_EQ(RunWordtally({files[1], files[2], "--save-counts", out + "rest.counts"}).exitStatus, 0);
  const ProgramOutcome direct = run(files, "direct");
  const ProgramOutcome merged = run({out + "first.counts", out + "rest.counts"}, "merged");
  EXPECT_EQ(std::tie(merged.exitStatus, merged.err), std::tie(direct.exitStatus, direct.err));
  EXPECT_EQ(merged.out, direct.out);
  EXPECT_THAT(direct.out, ::testing::HasSubstr("Files counted: 3, skipped: 0"));
  for (const char* name : {".txt", ".csv"}) {
    EXPECT_EQ(ReadFile(out + "merged" + name), ReadFile(out + "direct" + name)) << name;
  }
  EXPECT_THAT(ReadFile(out + "direct.csv"),
              ::testing::StartsWith("\xEF\xBB\xBFRank,Word,Frequency,Range,mixed_ansi_crlf.txt,"
                                    "page_utf8.html,en_tika_testWORD.docx\r\n"));

  const ProgramOutcome refused = RunWordtally({"--case-sensitive", out + "first.counts"});
  EXPECT_EQ(refused.exitStatus, 1);
  EXPECT_THAT(refused.err, ::testing::HasSubstr("other settings than this run: case sensitive."));
}

}  // namespace
}  // namespace wordtally::testing
