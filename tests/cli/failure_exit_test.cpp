// End-to-end: every run of wordtally that fails says why on standard error and exits with 1,
// also when the failure comes after the words were counted.
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

struct ShellOutcome {
  int exitStatus = -1;  // -1 when the program did not exit normally
  std::string err;
};

class FailureExitTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

  // Runs a bash script in the test's folder with $WORDTALLY naming the program.
  ShellOutcome RunScript(const std::string& script) const {
    std::ofstream(Path("run.sh")) << "cd '" << folder_.Path() << "' || exit 99\n"
                                  << "WORDTALLY='" << WORDTALLY_EXE << "'\n"
                                  << script << '\n';
    const std::string command = "bash '" + Path("run.sh") + "' >/dev/null 2>'" + Path("err") + "'";
    const int status = std::system(command.c_str());
    std::ifstream err(Path("err"), std::ios::binary);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            {std::istreambuf_iterator<char>(err), std::istreambuf_iterator<char>()}};
  }

 private:
  TemporaryFolder folder_;
};

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
