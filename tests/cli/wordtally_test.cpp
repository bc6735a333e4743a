// End-to-end tests: the built wordtally program on small files, compared with listings worked
// out by hand.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/file_utils.h"
#include "tests/cli/program_runner.h"

namespace wordtally::testing {
namespace {

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

// Lines joined with the given line end, one after each line.
std::string Joined(const std::vector<std::string>& lines, std::string_view end = "\n") {
  std::string text;
  for (const auto& line : lines) text.append(line).append(end);
  return text;
}

std::string Header(int longest) {
  return "   Rank    Freq  Word (longest has " + std::to_string(longest) + " characters)";
}

// The three "mixed" files: café 3, the 4, über 2, eight words once; the longest has 6 letters.
const std::vector<std::string> kMixedListing = {
    Header(6),
    "      4       1  all",
    "      2       3  café",
    "      5       1  crème",
    "      6       1  end",
    "      7       1  lait",
    "      8       1  naïve",
    "      9       1  noir",
    "     10       1  straße",
    "     11       1  that",
    "      1       4  the",
    "      3       2  über"};

constexpr std::string_view kSeemsUtf8 = "UTF-8 or ANSI file?: This file seems to be UTF-8 encoded.";

TEST(Wordtally, CountsTheSameTextWhateverItsEncodingAndLineEnds) {
  for (const std::string name :
       {"mixed_ansi_crlf.txt", "mixed_utf8_bom_lf.txt", "mixed_utf8_crlf.txt"}) {
    SCOPED_TRACE(name);
    const ProgramOutcome run = RunWordtally({DataFile(name)});
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, Joined(kMixedListing));
    // A UTF-8 file is asked about, and the answer follows what the file looks like.
    const bool utf8 = name.find("utf8") != std::string::npos;
    EXPECT_EQ(run.err.find(kSeemsUtf8) != std::string::npos, utf8) << run.err;
  }
}

TEST(Wordtally, AnsiOptionReadsUtf8BytesAsWindows1252) {
  // C3 is the letter A tilde and E2 a circumflex; the bytes after them are not letters.
  const ProgramOutcome run = RunWordtally({"--ansi", DataFile("mixed_utf8_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(5),
                             "      4       1  all",
                             "      3       2  ber",
                             "      2       3  cafã",
                             "      5       1  crã",
                             "      6       1  end",
                             "      7       1  lait",
                             "      8       1  naã",
                             "      9       1  noir",
                             "     10       1  straã",
                             "     11       1  thatâ",
                             "      1       4  the"}));
}

TEST(Wordtally, ByFrequencyInFormat5) {
  const ProgramOutcome run =
      RunWordtally({"--order", "frequency", "--format", "5", DataFile("mixed_ansi_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({"    Freq  Word (longest has 6 characters)", "       4  the",
                             "       3  café", "       2  über", "       1  all", "       1  crème",
                             "       1  end", "       1  lait", "       1  naïve", "       1  noir",
                             "       1  straße", "       1  that"}));
}

TEST(Wordtally, WordsToIgnoreWithStatistics) {
  const ProgramOutcome run =
      RunWordtally({"--ignore", "the end", "--stats", DataFile("mixed_ansi_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(6),
                             "      3       1  all",
                             "      1       3  café",
                             "      4       1  crème",
                             "      5       1  lait",
                             "      6       1  naïve",
                             "      7       1  noir",
                             "      8       1  straße",
                             "      9       1  that",
                             "      2       2  über",
                             "Number of words in this list: 9",
                             "Number of words ignored: 5",
                             "Number of words excluded: 0",
                             "Number of instances of words in this list: 12",
                             "Total number of instances of words: 17"}));
}

TEST(Wordtally, CommonWordsOfALanguage) {
  // "the", "that" and "all" are common English words.
  const ProgramOutcome run =
      RunWordtally({"--language", "en", "--stats", DataFile("mixed_utf8_bom_lf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(6),
                             "      1       3  café",
                             "      3       1  crème",
                             "      4       1  end",
                             "      5       1  lait",
                             "      6       1  naïve",
                             "      7       1  noir",
                             "      8       1  straße",
                             "      2       2  über",
                             "Number of words in this list: 8",
                             "No. of words ignored (other than common words): 0",
                             "Number of words excluded: 0",
                             "Number of instances of words in this list: 11",
                             "Total number of instances of words: 17"}));
}

TEST(Wordtally, CaseSensitiveAndFormat9) {
  const std::string input = DataFile("case_lf.txt");  // Apple apple / banana apple
  ProgramOutcome run = RunWordtally({input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(6), "      1       3  apple", "      2       1  banana"}));

  // "Apple" and "apple" share a sort key; the sort leaves "apple" first.
  run = RunWordtally({"--case-sensitive", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(6), "      1       2  apple", "      2       1  Apple",
                             "      3       1  banana"}));

  run = RunWordtally({"--format", "9", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({"Word (longest has 6 characters)", "apple, banana"}));
}

TEST(Wordtally, PluralsToSingular) {
  const ProgramOutcome run = RunWordtally(
      {"--singular", "--order", "frequency", "--format", "3", DataFile("plurals_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({"   Rank  Word (longest has 7 characters)", "      1  city",
                             "      2  and", "      3  boxe", "      4  bus", "      5  class",
                             "      6  glass", "      7  hero", "      8  horse",
                             "      9  species", "     10  the", "     11  tree",
                             "     12  wish"}));
}

TEST(Wordtally, Numerals) {
  const std::string input = DataFile("numerals_lf.txt");  // mp3 files, 2024 and 1999 / ...
  ProgramOutcome run = RunWordtally({"--format", "8", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({"Word (longest has 5 characters)", "abc", "and", "def", "files",
                             "plus"}));

  // Numbers have no vowel: they need --keep-no-vowel as well.
  run = RunWordtally({"--numerals", "--format", "8", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({"Word (longest has 9 characters)", "abc123def", "and", "files",
                             "plus"}));

  run = RunWordtally({"--numerals", "--keep-no-vowel", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(9), "      2       1  123", "      3       1  1999",
                             "      4       1  2024", "      5       1  abc123def",
                             "      1       2  and", "      6       1  files",
                             "      7       1  mp3", "      8       1  plus"}));
}

TEST(Wordtally, HtmlPageWithCharsetInItsHead) {
  // The head's words ("Secret headline words") do not count, nor does the comment; entities
  // are letters and blanks.
  const ProgramOutcome run = RunWordtally({DataFile("page_utf8.html")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(6), "      2       1  again", "      3       1  bold",
                             "      4       1  brûlée", "      1       2  café",
                             "      5       1  crème", "      6       1  naïve",
                             "      7       1  text", "      8       1  words"}));
}

TEST(Wordtally, DocxDocument) {
  const ProgramOutcome run = RunWordtally({"--min-frequency", "4", "--order", "frequency",
                                           "--stats", DataFile("en_tika_testWORD.docx")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined({Header(7), "      1       7  this", "      2       6  the",
                             "      3       5  heading", "      4       4  level",
                             "      5       4  table", "Number of words in this list: 5",
                             "Number of words ignored: 0", "Number of words excluded: 33",
                             "Number of instances of words in this list: 26",
                             "Total number of instances of words: 74"}));
}

TEST(Wordtally, OutputFile) {
  const TemporaryFolder folder;
  const std::string output = folder.Path() + "/list.txt";
  WriteFile(output, "an earlier list that is replaced");
  const std::string input = DataFile("mixed_ansi_crlf.txt");
  const std::string note =
      "\"To open this file in Excel state that it is delimited by spaces.\r\n"
      "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
  // The file holds Windows-1252 bytes with CR LF line ends.
  const std::vector<std::string> ansiListing = {
      Header(6),
      "      4       1  all",
      "      2       3  caf\xE9",
      "      5       1  cr\xE8me",
      "      6       1  end",
      "      7       1  lait",
      "      8       1  na\xEFve",
      "      9       1  noir",
      "     10       1  stra\xDF" "e",
      "     11       1  that",
      "      1       4  the",
      "      3       2  \xFC" "ber"};

  ProgramOutcome run = RunWordtally({"--output", output, input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined(kMixedListing));
  EXPECT_EQ(ReadFile(output), note + Joined(ansiListing, "\r\n"));

  // With commas, in the file and in the listing printed.
  run = RunWordtally({"--output", output, "--commas", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  const std::vector<std::string> commaListing = {
      "    Rank,    Freq,  Word (longest has 6 characters)",
      "       4,       1,  all",
      "       2,       3,  café",
      "       5,       1,  crème",
      "       6,       1,  end",
      "       7,       1,  lait",
      "       8,       1,  naïve",
      "       9,       1,  noir",
      "      10,       1,  straße",
      "      11,       1,  that",
      "       1,       4,  the",
      "       3,       2,  über"};
  EXPECT_EQ(run.out, Joined(commaListing));
  EXPECT_EQ(ReadFile(output),
            "\"To open this file in Excel state that it is delimited by commas.\r\n"
            "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n" +
                Joined({commaListing[0], "       4,       1,  all", "       2,       3,  caf\xE9",
                        "       5,       1,  cr\xE8me", "       6,       1,  end",
                        "       7,       1,  lait", "       8,       1,  na\xEFve",
                        "       9,       1,  noir", "      10,       1,  stra\xDF" "e",
                        "      11,       1,  that", "       1,       4,  the",
                        "       3,       2,  \xFC" "ber"},
                       "\r\n"));

  // Commas only concern an output file.
  run = RunWordtally({"--commas", input});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, Joined(kMixedListing));
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

TEST(Wordtally, NothingToList) {
  ProgramOutcome run = RunWordtally({DataFile("no_words_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, "No words satisfying the conditions were found.\n");

  run = RunWordtally({"--min-frequency", "5", DataFile("mixed_ansi_crlf.txt")});
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_EQ(run.out, "No words with more than 2 letters occur at least 5 times.\n");
}

TEST(Wordtally, RefusedInputExitsWith1) {
  const TemporaryFolder folder;
  const std::string missing = folder.Path() + "/none.txt";
  ProgramOutcome run = RunWordtally({missing});
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("Fatal error: File " + missing + " not found."), std::string::npos)
      << run.err;

  const std::string input = folder.Path() + "/words.txt";
  WriteFile(input, "alpha beta gamma\r\n");
  run = RunWordtally({"--output", input, input});
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("Output file cannot be the same as the input file."), std::string::npos)
      << run.err;
  EXPECT_EQ(ReadFile(input), "alpha beta gamma\r\n");

  run = RunWordtally({"--output", folder.Path() + "/list.docx", input});
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_NE(run.err.find("Output file cannot be a 'docx' file."), std::string::npos) << run.err;
}

TEST(Wordtally, BadUsageExitsWith2) {
  const std::string input = DataFile("case_lf.txt");
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--min-frequency", "1", input},
        std::vector<std::string>{"--min-frequency", "10", input},
        std::vector<std::string>{"--format", "11", input},
        std::vector<std::string>{"--language", "xx", input},
        std::vector<std::string>{"--order", "random", input},
        std::vector<std::string>{"--no-such-option", input}, std::vector<std::string>{}}) {
    SCOPED_TRACE(args.empty() ? "no input" : args[0]);
    const ProgramOutcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err, "");
  }
  // The edges of the ranges are accepted.
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--min-frequency", "2", input},
        std::vector<std::string>{"--min-frequency", "9", input},
        std::vector<std::string>{"--format", "0", input}}) {
    EXPECT_EQ(RunWordtally(args).exitStatus, 0);
  }
}

}  // namespace
}  // namespace wordtally::testing
