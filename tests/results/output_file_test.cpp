#include "results/output_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "results/listing.h"
#include "results/listing_line.h"
#include "support/file_utils.h"
#include "support/run_error.h"
#include "tests/common/scripted_host.h"
#include "tests/results/test_store.h"

namespace wordtally::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNoteCommas =
    "\"To open this file in Excel state that it is delimited by commas.\r\n"
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
constexpr const char* kNoteSpaces =
    "\"To open this file in Excel state that it is delimited by spaces.\r\n"
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// apple (3), "caf\xE9" (café, 5), Zebra (3): alphabetical apple, café, Zebra; ranks 2, 1, 3.
class OutputFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.Valid());
    store = MakeStore({{"Zebra", 3}, {"apple", 3}, {"caf\xE9", 5}});
    stats = RankStore(store, host);
    options.strOutputFile = Path("out.csv");
    options.cboWordOrder = 1;
    options.cboDisplayFormat = kWordFrequency;
    options.chkOutputWithCommas = 1;
  }
  std::string Path(const std::string& name) const { return folder.Path() + "/" + name; }
  ListingOutcome List() { return ListWords(store, stats, host, options); }

  TemporaryFolder folder;
  ScriptedHost host;
  std::vector<WordListEntry> store;
  ListStatistics stats;
  ListingOptions options;
};

TEST_F(OutputFileTest, NoteLinesAndBytes) {
  host.output = "Preparing the listing ...";
  const ListingOutcome outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::Completed);
  EXPECT_TRUE(outcome.blnFileWritten);
  EXPECT_EQ(outcome.strOutputFile, Path("out.csv"));
  const std::string lines =
      "  Word,   Freq\r\n"
      "  apple,      3\r\n"
      "  caf\xE9,      5\r\n"
      "  Zebra,      3\r\n";
  EXPECT_EQ(ReadBytes(Path("out.csv")), kNoteCommas + lines);
  EXPECT_EQ(host.output, lines);  // comma mode in the textbox too, without the note
  EXPECT_EQ(host.setOutputCount, 2);  // the writing notice, then the listing

  // Spaces, by frequency, all words on one line.
  options.chkOutputWithCommas = 0;
  options.cboWordOrder = 0;
  options.cboDisplayFormat = kWordWithCommas;
  List();
  EXPECT_EQ(ReadBytes(Path("out.csv")),
            std::string(kNoteSpaces) + "Word (longest has 5 characters)\r\ncaf\xE9, apple, Zebra\r\n");
  EXPECT_EQ(host.output, "Word (longest has 5 characters)\r\ncaf\xE9, apple, Zebra");
}

TEST_F(OutputFileTest, ExtensionAndDisabledOutput) {
  options.strOutputFile = Path("out.doc");
  ListingOutcome outcome = List();
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Output file extension");
  EXPECT_EQ(host.messages[0].text, "The output file should have extension 'txt' or 'csv'.");
  EXPECT_FALSE(fs::exists(Path("out.doc")));
  EXPECT_FALSE(outcome.blnFileWritten);
  // Without a file, comma mode is off: the textbox gets the lines with blanks.
  EXPECT_EQ(host.output.substr(0, 17), "  Word     Freq\r\n");

  options.strOutputFile = Path("Out.TXT");
  options.chkDisableOutputToFile = 1;
  outcome = List();
  EXPECT_FALSE(fs::exists(Path("Out.TXT")));
  EXPECT_EQ(host.messages.size(), 1u);

  options.chkDisableOutputToFile = 0;
  outcome = List();
  EXPECT_TRUE(outcome.blnFileWritten);
  EXPECT_TRUE(fs::exists(Path("Out.TXT")));
}

TEST_F(OutputFileTest, OverwriteWarningAnswers) {
  const std::string existing = Path("out.csv");
  WriteBytes(existing, "keep");
  options.chkWarnOnOverwrite = 1;
  const AnsiString prompt =
      "To overwrite the current output file click on 'OK'.\r\n"
      "To write to a different file edit the filepath below.\r\n"
      "To disable output to file click on 'Cancel'.\r\n"
      "(This 'warn on overwrite' can be disabled\r\n"
      "in the 'Settings' window.)";
  struct PromptHost : ScriptedHost {
    std::vector<AnsiString> prompts;
    std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& p,
                                       const AnsiString& text) override {
      prompts.push_back(p);
      return ScriptedHost::InputBox(title, p, text);
    }
  } promptHost;

  // Cancel: nothing written, the listing goes to the textbox with blanks.
  promptHost.inputAnswers = {std::nullopt};
  ListingOutcome outcome = ListWords(store, stats, promptHost, options);
  ASSERT_EQ(promptHost.inputBoxes.size(), 1u);
  EXPECT_EQ(promptHost.inputBoxes[0].first, "The output file exists.");
  EXPECT_EQ(promptHost.inputBoxes[0].second, existing);
  EXPECT_EQ(promptHost.prompts[0], prompt);
  EXPECT_EQ(ReadBytes(existing), "keep");
  EXPECT_FALSE(outcome.blnFileWritten);
  EXPECT_EQ(promptHost.output.substr(0, 17), "  Word     Freq\r\n");

  // An edited path in a folder that does not exist.
  promptHost.inputAnswers = {Path("missing/other.csv")};
  outcome = ListWords(store, stats, promptHost, options);
  ASSERT_EQ(promptHost.messages.size(), 1u);
  EXPECT_EQ(promptHost.messages[0].text, "Folder does not exist.");
  EXPECT_FALSE(outcome.blnFileWritten);
  EXPECT_EQ(ReadBytes(existing), "keep");

  // An edited path to a new file: that file is written, the existing one kept.
  promptHost.inputAnswers = {Path("other.txt")};
  outcome = ListWords(store, stats, promptHost, options);
  EXPECT_TRUE(outcome.blnFileWritten);
  EXPECT_EQ(outcome.strOutputFile, Path("other.txt"));
  EXPECT_EQ(ReadBytes(existing), "keep");
  EXPECT_EQ(ReadBytes(Path("other.txt")).substr(0, 66),
            std::string(kNoteCommas).substr(0, 66));

  // OK with the path as it stands overwrites.
  outcome = ListWords(store, stats, promptHost, options);
  EXPECT_EQ(promptHost.inputBoxes.size(), 4u);
  EXPECT_TRUE(outcome.blnFileWritten);
  EXPECT_NE(ReadBytes(existing), "keep");

  // No warning when it is switched off.
  WriteBytes(existing, "keep");
  options.chkWarnOnOverwrite = 0;
  ListWords(store, stats, promptHost, options);
  EXPECT_EQ(promptHost.inputBoxes.size(), 4u);
  EXPECT_NE(ReadBytes(existing), "keep");
}

TEST_F(OutputFileTest, FileThatCannotBeOpenedIsError70) {
  fs::create_directory(Path("folder.txt"));
  options.strOutputFile = Path("folder.txt");
  try {
    List();
    FAIL() << "no error";
  } catch (const RunError& e) {
    EXPECT_EQ(e.Number(), kErrPermissionDenied);
  }
}

TEST_F(OutputFileTest, WriteErrorEndsOutputToFileOnly) {
  std::error_code ec;
  fs::create_symlink("/dev/full", Path("full.txt"), ec);
  if (ec) GTEST_SKIP() << "no /dev/full";
  options.strOutputFile = Path("full.txt");
  options.chkOutputWithCommas = 0;
  const ListingOutcome outcome = List();
  EXPECT_FALSE(outcome.blnFileWritten);
  EXPECT_EQ(outcome.end, ListingEnd::Completed);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(host.output,
            "  Word     Freq\r\n"
            "  apple       3\r\n"
            "  caf\xE9        5\r\n"
            "  Zebra       3\r\n");
}

TEST_F(OutputFileTest, StopEndsTheFile) {
  bool stop = false;
  options.blnStop = &stop;
  host.processEventsCount = 0;
  host.onProcessEvents = [&] { stop = host.processEventsCount == 1; };
  const ListingOutcome outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::Stopped);
  // The file ends with the same notice, so that it cannot pass for a whole listing.
  EXPECT_EQ(ReadBytes(Path("out.csv")), std::string(kNoteCommas) +
                                            "  Word,   Freq\r\n  apple,      3\r\n"
                                            "Output to file was terminated.\r\n");
  EXPECT_EQ(host.output, "  Word,   Freq\r\n  apple,      3\r\nOutput to file was terminated.");
}

TEST_F(OutputFileTest, TextboxLimitLeavesTheFileComplete) {
  store.assign(1, WordListEntry());
  for (int i = 0; i < 5000; ++i) {
    const std::string word = std::to_string(10000 + i).insert(0, 1, 'w');
    store.push_back({word, word, 2, 0, 0, true});
  }
  stats = RankStore(store, host);
  options.cboDisplayFormat = kRankFrequency;
  const ListingOutcome outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::TextboxFull);
  EXPECT_TRUE(outcome.blnFileWritten);
  EXPECT_LE(host.output.size(), lngMaxTextboxLength);
  // Note, header and 5000 lines of "  " + 6 + ",  " + 6 characters and CR LF (19 bytes each).
  const std::string bytes = ReadBytes(Path("out.csv"));
  EXPECT_EQ(bytes.size(), std::string(kNoteCommas).size() + 19u * 5001u);
  EXPECT_EQ(bytes.substr(bytes.size() - 19), "    5000,       2\r\n");
  EXPECT_EQ(bytes.compare(std::string(kNoteCommas).size(), host.output.size(), host.output), 0);
}

}  // namespace
}  // namespace wordtally::testing
