// End-to-end tests of the built wordtally program on small public files (tests/data): character
// references of an e-book page, UTF-8 detection as the window does it, --verbose and
// --modern-text.
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/input/test_files.h"

namespace wordtally::testing {
namespace {

struct Outcome {
  int exitStatus = -1;
  std::string out, err;
};

// Runs wordtally with args (none holds a quote) and stdinFile as standard input.
Outcome RunWordtally(const std::vector<std::string>& args,
                     const std::string& stdinFile = "/dev/null") {
  const TemporaryFolder folder;
  const std::string out = folder.Path() + "/out", err = folder.Path() + "/err";
  std::string command = "'" WORDTALLY_EXE "'";
  for (const std::string& arg : args) command += " '" + arg + "'";
  command += " <'" + stdinFile + "' >'" + out + "' 2>'" + err + "'";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(out), ReadAll(err)};
}

TEST(RealInputs, EbookPageListsItsWordsAndNoEntityNames) {
  const std::string page = TestDataPath("en_gutenberg_news_from_nowhere_ch13.htm");
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

TEST(RealInputs, CommandLineDetectsUtf8AsTheWindowDoesAndTellsOnlyWhatMatters) {
  const std::string poem = TestDataPath("pl_pan_tadeusz_invocation_utf8_lf.txt");
  const std::string bom = TestDataPath("cli/mixed_utf8_bom_lf.txt");
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
    const Outcome run = RunWordtally(args);
    EXPECT_EQ(run.exitStatus, exitStatus) << args[0] << " " << args[1];
    EXPECT_EQ(run.err.substr(0, errStart.empty() ? std::string::npos : errStart.size()), errStart);
    EXPECT_EQ(run.out.empty(), exitStatus != 0);
  }
}

TEST(RealInputs, ModernTextReadsUtf8WithoutMarksAndTypographicStandardInput) {
  const std::string poem = TestDataPath("pl_pan_tadeusz_invocation_utf8_lf.txt");
  const std::string modern = RunWordtally({"--modern-text", "--format", "8", poem}).out;
  const std::string classic = RunWordtally({"--format", "8", poem}).out;
  for (const std::string word : {"gród", "nowogródzki", "pagórków", "rozmaitém"}) {
    EXPECT_NE(modern.find("\n" + word + "\n"), std::string::npos) << word;
    EXPECT_EQ(classic.find("\n" + word + "\n"), std::string::npos) << word;
  }
  EXPECT_NE(classic.find("\ngrã\n"), std::string::npos);

  const TestFiles files;
  const std::string text = files.Write("text", "It\xE2\x80\x99s the end \xE2\x80\x94 or not\n");
  // Classic: U+2019 has the low byte of a control character.
  EXPECT_EQ(RunWordtally({"-"}, text).exitStatus, 1);
  EXPECT_EQ(RunWordtally({"--modern-text", "--format", "8", "-"}, text).out,
            "Word (longest has 3 characters)\nend\nnot\nthe\n");
}

}  // namespace
}  // namespace wordtally::testing
