// End-to-end: standard input is counted as it streams in, with the clipboard's plain-text test
// on its first 3000 characters, and memory that does not grow with it.
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/cli/shell_run.h"

namespace wordtally::testing {
namespace {

using StandardInputTest = ShellRunTest;

constexpr std::string_view kInvalidInput =
    "Invalid input: The text on the clipboard does not consist\nsolely of natural language words.";

TEST_F(StandardInputTest, FirstCharactersMustBePlainText) {
  struct Case {
    std::string input;  // printf format
    int exitStatus;
    std::string_view message;
  };
  for (const Case& c : {
           Case{"\\001alpha beta", 1, kInvalidInput},
           Case{"\\342\\200\\230quoted\\342\\200\\231 words", 1, kInvalidInput},  // ‘ is U+2018
           Case{"%3000s\\001alpha beta", 0, ""},  // the 3001st character is not looked at
           Case{"", 1, "Clipboard empty: Clipboard is empty."},
       }) {
    SCOPED_TRACE(c.input);
    const ShellOutcome run = RunScript("printf '" + c.input + "' | \"$WORDTALLY\" -");
    EXPECT_EQ(run.exitStatus, c.exitStatus) << run.err;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_EQ(run.out.find("alpha") != std::string::npos, c.exitStatus == 0);
  }
}

TEST_F(StandardInputTest, StreamsInBoundedMemory) {
  if (UnderAddressSanitizer()) GTEST_SKIP() << "no limit on the address space";
  // 20 MB through a 60 MB address space: read whole, it took several times its size.
  const ShellOutcome run = RunScript(
      "yes 'lorem ipsum dolor sit amet' | head -c 20000000 | (ulimit -v 60000; \"$WORDTALLY\" -)");
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  // 740740 whole lines of 27 bytes, then "lorem ipsum dolor si".
  EXPECT_EQ(run.out,
            "   Rank    Freq  Word (longest has 5 characters)\n"
            "      4  740740  amet\n"
            "      1  740741  dolor\n"
            "      2  740741  ipsum\n"
            "      3  740741  lorem\n"
            "      5  740740  sit\n");
}

TEST_F(StandardInputTest, OutOfMemoryIsErrorSeven) {
  if (UnderAddressSanitizer()) GTEST_SKIP() << "no limit on the address space";
  // A million words to ignore do not fit into 50 MB of address space.
  std::ofstream settings(Path("big.qzl"));
  settings << "[Wordtally settings]\nversion=1\ntxbWordsToIgnore=\"";
  for (int i = 0; i < 1000000; ++i) {
    std::string word = "w";
    for (int n = i, k = 0; k < 5; ++k, n /= 26) word += static_cast<char>('a' + n % 26);
    settings << word << ' ';
  }
  settings << "\"\n";
  settings.close();
  const ShellOutcome run =
      RunScript("echo alpha > a.txt; ulimit -v 50000; \"$WORDTALLY\" --settings big.qzl a.txt");
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_NE(run.err.find("At main error #7.\nDescription: Out of memory\n"), std::string::npos)
      << run.err;
}

}  // namespace
}  // namespace wordtally::testing
