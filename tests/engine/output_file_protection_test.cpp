// The output file never harms what the run reads or what it finds at its path: each case is
// refused before anything is counted, and the path is left as it was.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "engine/program_texts.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kText = "alpha beta gamma\r\n";
constexpr std::string_view kCommonWords = "beta\r\n";

class OutputFileProtectionTest : public WholeRunTest {
 protected:
  std::string Unusable(const std::string& path, std::string_view what) const {
    return "The output file\r\n" + path + "\r\ncannot be used: it is " + std::string(what) + ".";
  }
};

TEST_F(OutputFileProtectionTest, RefusedBeforeCountingAndLeftAsItWas) {
  const std::string input = WriteFile("book.txt", kText);
  const std::string common = WriteFile("common.txt", kCommonWords);
  fs::create_hard_link(input, PathOf("hard.txt"));
  fs::create_hard_link(common, PathOf("common-link.txt"));
  fs::create_directory(PathOf("folder.txt"));
  ASSERT_EQ(::mkfifo(PathOf("fifo.txt").c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo(PathOf("read-fifo.txt").c_str(), 0600), 0);
  const int reader = ::open(PathOf("read-fifo.txt").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  fs::create_symlink("/dev/full", PathOf("full.txt"));
  fs::create_symlink(PathOf("nothing.txt"), PathOf("dangling.txt"));

  const std::string sameFile = "Output file cannot be the same as the input file.";
  const std::string commonRefused = "Output file cannot be the common-words file\r\n" + common;
  struct Case {
    std::string output;
    bool fromClipboard;
    std::string_view title;
    std::string message;
  };
  for (const Case& c : {
           Case{PathOf("hard.txt"), false, texts::kGenericErrorTitle, sameFile},
           Case{common, false, texts::kGenericErrorTitle, commonRefused},
           Case{PathOf("common-link.txt"), false, texts::kGenericErrorTitle, commonRefused},
           Case{common, true, texts::kGenericErrorTitle, commonRefused},
           Case{PathOf("folder.txt"), false, "Output file", Unusable(PathOf("folder.txt"), "a folder")},
           Case{PathOf("fifo.txt"), false, "Output file",
                Unusable(PathOf("fifo.txt"), "a pipe (FIFO)")},
           Case{PathOf("read-fifo.txt"), true, "Output file",
                Unusable(PathOf("read-fifo.txt"), "a pipe (FIFO)")},
           Case{PathOf("full.txt"), false, "Output file", Unusable(PathOf("full.txt"), "a device")},
           Case{"/dev/full", false, "Output file", Unusable("/dev/full", "a device")},
           Case{PathOf("dangling.txt"), false, "Output file",
                Unusable(PathOf("dangling.txt"), "a symbolic link to a file that does not exist")},
       }) {
    SCOPED_TRACE(c.output);
    host.messages.clear();
    settings.txbCommonWordsFile = common;
    settings.chkIgnoreCommonWords = 1;
    settings.txbFile[1] = c.output;
    const fs::file_status before = fs::symlink_status(c.output);
    if (c.fromClipboard) {
      CountClipboard(u"alpha beta gamma");
    } else {
      CountFile(input);
    }
    ASSERT_EQ(MessagesTitled(c.title).size(), 1u);
    EXPECT_EQ(MessagesTitled(c.title)[0].text, c.message);
    EXPECT_EQ(MessagesTitled(c.title)[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 0);  // nothing was counted
    EXPECT_FALSE(ctx.run.blnWordsGot);
    ExpectIdle();
    EXPECT_EQ(fs::symlink_status(c.output).type(), before.type());
  }
  ::close(reader);
  EXPECT_EQ(ReadFile(input), kText);
  EXPECT_EQ(ReadFile(common), kCommonWords);
  EXPECT_FALSE(fs::exists(fs::symlink_status(PathOf("nothing.txt"))));
}

}  // namespace
}  // namespace wordtally::testing
