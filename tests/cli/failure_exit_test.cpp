// End-to-end: every run of wordtally that fails says why on standard error and exits with 1,
// also when the failure comes after the words were counted.
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/cli/shell_run.h"

namespace wordtally::testing {
namespace {

using FailureExitTest = ShellRunTest;

TEST_F(FailureExitTest, OutputFileFailuresExitWithOne) {
  // 400 distinct words: a listing of about 10 KB.
  std::ofstream book(Path("book.txt"));
  for (int i = 0; i < 400; ++i) book << "wor" << static_cast<char>('a' + i / 26 % 26)
                                     << static_cast<char>('a' + i % 26) << "d\r\n";
  book.close();
  struct Case {
    std::string script;
    std::string message;
  };
  for (const Case& c : {
           Case{"\"$WORDTALLY\" --output list.doc book.txt",
                "Output file extension: The output file should have extension 'txt' or 'csv'.\n"},
           // A disk that fills up: the file may not grow beyond 1 KB.
           Case{"trap '' XFSZ; ulimit -f 1; \"$WORDTALLY\" --output list.txt book.txt",
                "Output file: The output file could not be written completely:\n"
                "list.txt\nOutput to file has been ended.\n"},
           Case{"ln -s /dev/full full.txt; \"$WORDTALLY\" --output full.txt book.txt",
                "Output file: The output file\nfull.txt\ncannot be used: it is a device.\n"},
       }) {
    SCOPED_TRACE(c.script);
    const ShellOutcome run = RunScript(c.script);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
  }
}

}  // namespace
}  // namespace wordtally::testing
