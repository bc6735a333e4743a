// End-to-end tests: the built wordtally program run as a user runs it, on the small files in
// tests/data/cli, compared with listings worked out by hand.
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

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

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

// Runs wordtally with args through the shell; its standard input comes from stdinFile.
ProgramOutcome RunWordtally(const Lines& args, const std::string& stdinFile = "/dev/null") {
  const TemporaryFolder folder;
  const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
  std::string command = Quoted(WORDTALLY_EXE);
  for (const std::string& arg : args) command += " " + Quoted(arg);
  command += " <" + Quoted(stdinFile) + " >" + Quoted(out) + " 2>" + Quoted(err);
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
}

// Lines joined with the given line end, one after each line.
std::string Joined(const Lines& lines, std::string_view end = "\n") {
  std::string text;
  for (const auto& line : lines) text.append(line).append(end);
  return text;
}

std::string Header(int longest) {
  return "   Rank    Freq  Word (longest has " + std::to_string(longest) + " characters)";
}

// The three "mixed" files: café 3, the 4, über 2, eight words once; the longest has 6 letters.
const Lines kMixedListing = {
    Header(6), "      4       1  all", "      2       3  café", "      5       1  crème",
    "      6       1  end", "      7       1  lait", "      8       1  naïve",
    "      9       1  noir", "     10       1  straße", "     11       1  that",
    "      1       4  the", "      3       2  über"};

TEST(Wordtally, CountsTheSameTextWhateverItsEncodingAndLineEnds) {
  for (const std::string name :
       {"mixed_ansi_crlf.txt", "mixed_utf8_bom_lf.txt", "mixed_utf8_crlf.txt"}) {
    SCOPED_TRACE(name);
    const ProgramOutcome run = RunWordtally({DataFile(name)});
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, Joined(kMixedListing));
    // As in the window, the UTF-8 box follows the detection: nothing is asked or printed.
    EXPECT_EQ(run.err, "");
  }
}

TEST(Wordtally, OptionSetsGiveTheListingsWorkedOutByHand) {
  const std::string mixed = DataFile("mixed_ansi_crlf.txt"), cases = DataFile("case_lf.txt");
  const std::string numerals = DataFile("numerals_lf.txt");  // mp3 files, 2024 and 1999 / ...
  const struct {
    Lines args;
    Lines listing;
  } kCases[] = {
      // C3 is the letter A tilde and E2 a circumflex; the bytes after them are not letters.
      {{"--ansi", DataFile("mixed_utf8_crlf.txt")},
       {Header(5), "      4       1  all", "      3       2  ber", "      2       3  cafã",
        "      5       1  crã", "      6       1  end", "      7       1  lait",
        "      8       1  naã", "      9       1  noir", "     10       1  straã",
        "     11       1  thatâ", "      1       4  the"}},
      {{"--order", "frequency", "--format", "5", mixed},
       {"    Freq  Word (longest has 6 characters)", "       4  the", "       3  café",
        "       2  über", "       1  all", "       1  crème", "       1  end", "       1  lait",
        "       1  naïve", "       1  noir", "       1  straße", "       1  that"}},
      {{"--ignore", "the end", "--stats", mixed},
       {Header(6), "      3       1  all", "      1       3  café", "      4       1  crème",
        "      5       1  lait", "      6       1  naïve", "      7       1  noir",
        "      8       1  straße", "      9       1  that", "      2       2  über",
        "Number of words in this list: 9", "Number of words ignored: 5",
        "Number of words excluded: 0", "Number of instances of words in this list: 12",
        "Total number of instances of words: 17"}},
      // "the", "that" and "all" are common English words.
      {{"--language", "en", "--stats", DataFile("mixed_utf8_bom_lf.txt")},
       {Header(6), "      1       3  café", "      3       1  crème", "      4       1  end",
        "      5       1  lait", "      6       1  naïve", "      7       1  noir",
        "      8       1  straße", "      2       2  über", "Number of words in this list: 8",
        "No. of words ignored (other than common words): 0", "Number of words excluded: 0",
        "Number of instances of words in this list: 11",
        "Total number of instances of words: 17"}},
      // Apple apple / banana apple. "Apple" and "apple" share a sort key; "apple" stays first.
      {{cases}, {Header(6), "      1       3  apple", "      2       1  banana"}},
      {{"--case-sensitive", cases},
       {Header(6), "      1       2  apple", "      2       1  Apple", "      3       1  banana"}},
      {{"--format", "9", cases}, {"Word (longest has 6 characters)", "apple, banana"}},
      {{"--singular", "--order", "frequency", "--format", "3", DataFile("plurals_crlf.txt")},
       {"   Rank  Word (longest has 7 characters)", "      1  city", "      2  and",
        "      3  boxe", "      4  bus", "      5  class", "      6  glass", "      7  hero",
        "      8  horse", "      9  species", "     10  the", "     11  tree", "     12  wish"}},
      {{"--format", "8", numerals},
       {"Word (longest has 5 characters)", "abc", "and", "def", "files", "plus"}},
      // Numbers have no vowel: they need --keep-no-vowel as well.
      {{"--numerals", "--format", "8", numerals},
       {"Word (longest has 9 characters)", "abc123def", "and", "files", "plus"}},
      {{"--numerals", "--keep-no-vowel", numerals},
       {Header(9), "      2       1  123", "      3       1  1999", "      4       1  2024",
        "      5       1  abc123def", "      1       2  and", "      6       1  files",
        "      7       1  mp3", "      8       1  plus"}},
      // The head's words ("Secret headline words") and the comment do not count; entities are
      // letters and blanks.
      {{DataFile("page_utf8.html")},
       {Header(6), "      2       1  again", "      3       1  bold", "      4       1  brûlée",
        "      1       2  café", "      5       1  crème", "      6       1  naïve",
        "      7       1  text", "      8       1  words"}},
      {{"--min-frequency", "4", "--order", "frequency", "--stats",
        DataFile("en_tika_testWORD.docx")},
       {Header(7), "      1       7  this", "      2       6  the", "      3       5  heading",
        "      4       4  level", "      5       4  table", "Number of words in this list: 5",
        "Number of words ignored: 0", "Number of words excluded: 33",
        "Number of instances of words in this list: 26",
        "Total number of instances of words: 74"}},
      {{DataFile("no_words_crlf.txt")}, {"No words satisfying the conditions were found."}},
      {{"--min-frequency", "5", mixed},
       {"No words with more than 2 letters occur at least 5 times."}},
      {{"--commas", mixed}, kMixedListing},  // commas only concern an output file
  };
  for (const auto& [args, listing] : kCases) {
    SCOPED_TRACE(args[0]);
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, Joined(listing));
  }
}

TEST(Wordtally, OutputFileHoldsWindows1252WithCrLf) {
  const TemporaryFolder folder;
  const std::string output = folder.Path() + "/list.txt", input = DataFile("mixed_ansi_crlf.txt");
  WriteFile(output, "an earlier list that is replaced");
  const std::string origin =
      "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
  ProgramOutcome run = RunWordtally({"--output", output, input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined(kMixedListing));
  EXPECT_EQ(ReadFile(output),
            "\"To open this file in Excel state that it is delimited by spaces.\r\n" + origin +
                Joined({Header(6), "      4       1  all", "      2       3  caf\xE9",
                        "      5       1  cr\xE8me", "      6       1  end",
                        "      7       1  lait",
                        "      8       1  na\xEFve", "      9       1  noir",
                        "     10       1  stra\xDF" "e", "     11       1  that",
                        "      1       4  the", "      3       2  \xFC" "ber"},
                       "\r\n"));

  // With commas, in the file and in the listing printed.
  run = RunWordtally({"--output", output, "--commas", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  const std::string commaHeader = "    Rank,    Freq,  Word (longest has 6 characters)";
  EXPECT_EQ(run.out, Joined({commaHeader, "       4,       1,  all", "       2,       3,  café",
                             "       5,       1,  crème", "       6,       1,  end",
                             "       7,       1,  lait", "       8,       1,  naïve",
                             "       9,       1,  noir", "      10,       1,  straße",
                             "      11,       1,  that", "       1,       4,  the",
                             "       3,       2,  über"}));
  EXPECT_EQ(ReadFile(output),
            "\"To open this file in Excel state that it is delimited by commas.\r\n" + origin +
                Joined({commaHeader, "       4,       1,  all", "       2,       3,  caf\xE9",
                        "       5,       1,  cr\xE8me", "       6,       1,  end",
                        "       7,       1,  lait", "       8,       1,  na\xEFve",
                        "       9,       1,  noir", "      10,       1,  stra\xDF" "e",
                        "      11,       1,  that", "       1,       4,  the",
                        "       3,       2,  \xFC" "ber"},
                       "\r\n"));
}

TEST(Wordtally, StandardInputIsClipboardText) {
  const TemporaryFolder folder;
  const std::string text = folder.Path() + "/text";
  WriteFile(text, "Hello hello world\nwo\xC3\xA4rld caf\xC3\xA9\n");  // UTF-8
  ProgramOutcome run = RunWordtally({"-"}, text);
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  // "woärld" sorts as "woaerld", before "world".
  EXPECT_EQ(run.out, Joined({Header(6), "      2       1  café", "      1       2  hello",
                             "      3       1  woärld", "      4       1  world"}));

  WriteFile(text, std::string("Hello\0world", 11));
  run = RunWordtally({"-"}, text);
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("Invalid input: The text on the clipboard does not consist\n"
                         "solely of natural language words."),
            std::string::npos)
      << run.err;
}

TEST(Wordtally, RefusedInputExitsWith1AndBadUsageWith2) {
  const TemporaryFolder folder;
  const std::string missing = folder.Path() + "/none.txt", input = folder.Path() + "/words.txt";
  WriteFile(input, "alpha beta gamma\r\n");
  const struct {
    Lines args;
    std::string error;
  } kRefusals[] = {
      {{missing}, "Fatal error: File " + missing + " not found."},
      {{"--output", input, input}, "Output file cannot be the same as the input file."},
      {{"--output", folder.Path() + "/list.docx", input}, "Output file cannot be a 'docx' file."}};
  for (const auto& [args, error] : kRefusals) {
    SCOPED_TRACE(error);
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(error), std::string::npos) << run.err;
  }
  EXPECT_EQ(ReadFile(input), "alpha beta gamma\r\n");

  const std::string cases = DataFile("case_lf.txt");
  for (const Lines& args : {Lines{"--min-frequency", "1", cases}, {"--min-frequency", "10", cases},
                            {"--format", "11", cases}, {"--language", "xx", cases},
                            {"--order", "random", cases}, {"--no-such-option", cases}, {}}) {
    SCOPED_TRACE(args.empty() ? "no input" : args[0] + " " + args[1]);
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err, "");
  }
  // The edges of the ranges are accepted.
  for (const Lines& args : {Lines{"--min-frequency", "2", cases}, {"--min-frequency", "9", cases},
                            {"--format", "0", cases}}) {
    EXPECT_EQ(RunWordtally(args).exitStatus, 0) << args[1];
  }
}

}  // namespace
}  // namespace wordtally::testing
