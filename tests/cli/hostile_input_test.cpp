// End-to-end: failures after counting exit with 1, standard input streams in bounded memory, and
// running out of memory anywhere ends in the error report, never in an abort.
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {
namespace {

struct Outcome { int exitStatus; std::string out, err; };

// Runs a bash script in a fresh folder, with $W naming the program.
Outcome RunScript(const std::string& script) {
  const TemporaryFolder folder;
  const std::string at = folder.Path() + "/";
  std::ofstream(at + "run.sh") << "cd " << at << "; W=" << WORDTALLY_EXE << "\n" << script;
  const int status = std::system(("bash " + at + "run.sh >" + at + "out 2>" + at + "err").c_str());
  std::ifstream out(at + "out"), err(at + "err");
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
          std::string(std::istreambuf_iterator<char>(out), {}),
          std::string(std::istreambuf_iterator<char>(err), {})};
}

TEST(HostileInput, OutputFileFailuresExitWithOne) {
  for (const auto& [script, message] : std::initializer_list<std::pair<std::string, std::string>>{
           {"$W --output list.doc in.txt", "should have extension 'txt' or 'csv'."},
           // A disk that fills up: the file may not grow beyond 1 KB.
           {"trap '' XFSZ; ulimit -f 1; $W --output list.txt in.txt",
            "could not be written completely"}}) {
    const Outcome run = RunScript("seq -f 'w%gx' 1000 | tr 0-9 a-j >in.txt; " + script);
    EXPECT_EQ(run.exitStatus, 1) << script;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
  }
}

#if !defined(WORDTALLY_SANITIZED)  // no limit on the address space can be set there
TEST(HostileInput, StandardInputStreamsInBoundedMemory) {
  // 740740 lines of 27 bytes and "lorem ipsum dolor si" in 60 MB: read whole, it took 100 MB.
  const Outcome run =
      RunScript("yes 'lorem ipsum dolor sit amet' | head -c 20000000 | (ulimit -v 60000; $W -)");
  EXPECT_EQ(run.exitStatus, 0) << run.err;
  EXPECT_NE(run.out.find("      3  740741  lorem\n      5  740740  sit\n"), std::string::npos);
}

TEST(HostileInput, OutOfMemoryIsErrorSeven) {
  // A million words to ignore do not fit into 50 MB.
  const Outcome run = RunScript(
      "printf '[Wordtally settings]\\nversion=1\\ntxbWordsToIgnore=\"' >big.qzl; "
      "seq -f 'w%.0f' 1000000 | tr '\\n0-9' ' a-j' >>big.qzl; echo '\"' >>big.qzl; echo a >a.txt; "
      "ulimit -v 50000; $W --settings big.qzl a.txt");
  EXPECT_EQ(run.exitStatus, 1);
  EXPECT_NE(run.err.find("At main error #7.\nDescription: Out of memory"), std::string::npos)
      << run.err;
}
#endif

}  // namespace
}  // namespace wordtally::testing
