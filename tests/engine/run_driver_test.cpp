#include "engine/run_driver.h"

#include <algorithm>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/program_texts.h"
#include "engine/progress.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

constexpr std::string_view kFruit = "Apple banana apple\r\ncherry apple banana\r\n";
const std::vector<std::string> kFruitLines = {"      1       3  apple", "      2       2  banana",
                                              "      3       1  cherry"};
constexpr std::string_view kSameFile = "Output file cannot be the same as the input file.";
constexpr std::string_view kDocxOutput = "Output file cannot be a 'docx' file.";
constexpr std::string_view kNoteSpaces =
    "\"To open this file in Excel state that it is delimited by spaces.\r\n"
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
constexpr std::string_view kExcelLines =
    "\r\nIf the output file is open in Excel then it must first be closed\r\n"
    "or a different file should be specified as the output file.";
constexpr std::string_view kLargeQuestion =
    "The input file is quite large.  It is advisable to specify an output file \r\n"
    "before continuing, in case the text window will not hold the result. \r\n"
    "Do you wish to specify an output file?";

// "Café café naïve" in UTF-8 with a byte-order mark.
constexpr std::string_view kUtf8WithBom = "\xEF\xBB\xBF" "Caf\xC3\xA9 caf\xC3\xA9 na\xC3\xAFve\r\n";
// Its listing read as UTF-8, and read byte by byte as ANSI (C3 is the letter A tilde; A9 and AF
// are not letters, so the words end there).
const AnsiString kUtf8Listing =
    RankFreqWordListing(5, {"      1       2  caf\xE9", "      2       1  na\xEFve"});
const AnsiString kUtf8AsAnsiListing =
    RankFreqWordListing(4, {"      1       2  caf\xE3", "      2       1  na\xE3"});

// Text of exactly size bytes: lines of three words, blanks at the end to make up the size.
std::string TextOfSize(size_t size) {
  constexpr std::string_view kLine = "alpha beta gamma\r\n";
  std::string text;
  while (text.size() + kLine.size() <= size) text += kLine;
  text.append(size - text.size(), ' ');
  return text;
}
const AnsiString kAlphaListing = RankFreqWordListing(
    5, {"      1   11377  alpha", "      2   11377  beta", "      3   11377  gamma"});

size_t CountOf(std::string_view text, std::string_view part) {
  size_t n = 0;
  for (size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) {
    ++n;
  }
  return n;
}

// Makes folder the current folder for as long as it lives.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::string& folder) : saved_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~CurrentFolder() { std::filesystem::current_path(saved_); }

 private:
  std::filesystem::path saved_;
};

using RunDriverTest = WholeRunTest;

TEST_F(RunDriverTest, CountsAFileListsItAndReturnsToIdle) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  host.output = "text of an earlier run";
  CountFile(input);

  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, RankFreqWordListing(6, kFruitLines));
  EXPECT_TRUE(ctx.run.blnWordsGot);
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 6);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 0s");  // done within a second
  EXPECT_EQ(host.Caption(Control::Twirler), " ");
  ExpectIdle();

  // Counting under "Stop", listing under the busy caption, idle at the end.
  const auto& captions = host.captionHistory[Control::CountButton];
  const auto stop = std::find(captions.begin(), captions.end(), texts::kStop);
  const auto busy = std::find(stop, captions.end(), texts::kCountButtonBusy);
  EXPECT_NE(stop, captions.end());
  EXPECT_NE(busy, captions.end());

  // The progress texts of the listing phase, in order, after the input was read.
  const std::vector<AnsiString> phases = {
      "Now processing input file ...", AnsiString(texts::kMarkingWords) + " ...",
      AnsiString(texts::kRankingWords) + " ...", AnsiString(texts::kPreparingListing) + " ..."};
  auto at = host.outputHistory.begin();
  for (const auto& phase : phases) {
    at = std::find(at, host.outputHistory.end(), phase);
    EXPECT_NE(at, host.outputHistory.end()) << phase;
  }
}

TEST_F(RunDriverTest, EachRunStartsAfresh) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  CountFile(input);
  // Left-overs of the last run: a Stop that came too late, a wider minimum column.
  ctx.run.blnStop = true;
  ctx.run.intMinWidth = 9;
  CountFile(input);

  EXPECT_EQ(host.output, RankFreqWordListing(6, kFruitLines));
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 6);
  EXPECT_TRUE(ctx.run.blnWordsGot);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(RunDriverTest, InputFileNotSpecified) {
  settings.txbFile[0] = "   ";
  host.output = "text of an earlier run";
  DoIt(ctx);

  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, texts::kInputFileNotSpecifiedTitle);
  EXPECT_EQ(host.messages[0].text, "Input file not specified.");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(host.messages[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(host.output, "");
  EXPECT_EQ(settings.txbFile[0], "");
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();

  // Blanks around a name are removed, and the name is written back.
  const std::string input = WriteFile("fruit.txt", kFruit);
  host.messages.clear();
  settings.txbFile[0] = "  " + input + "   ";
  DoIt(ctx);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(settings.txbFile[0], input);
  EXPECT_EQ(host.output, RankFreqWordListing(6, kFruitLines));
}

TEST_F(RunDriverTest, OutputFileNamingTheInputFileIsRefusedBeforeCounting) {
  const std::string input = WriteFile("book.txt", kFruit);
  std::filesystem::create_directory(PathOf("sub"));
  std::filesystem::create_symlink(input, PathOf("link.txt"));
  const CurrentFolder here(folder.Path());

  for (const std::string& output :
       {input, std::string("book.txt"), std::string("./sub/../book.txt"), PathOf("link.txt")}) {
    SCOPED_TRACE(output);
    host.messages.clear();
    settings.txbFile[1] = output;
    CountFile(input);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text, kSameFile);
    EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(ReadFile(input), kFruit);
    EXPECT_EQ(ctx.store.lngNumWords(), 0);
    EXPECT_FALSE(ctx.run.blnWordsGot);
    ExpectIdle();
  }
}

TEST_F(RunDriverTest, DocxOutputFileIsRefused) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  settings.txbFile[1] = WriteFile("list.docx", "a document of the user");
  CountFile(input);

  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].text, kDocxOutput);
  EXPECT_EQ(ReadFile(settings.txbFile[1]), "a document of the user");
  EXPECT_EQ(ctx.store.lngNumWords(), 0);
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();
}

TEST_F(RunDriverTest, OutputFileIsReplacedOnlyByAListing) {
  const std::string input = WriteFile("cafe.txt", kUtf8WithBom);
  settings.txbFile[1] = WriteFile("list.txt", "the user's earlier list");

  host.answers = {Answer::Cancel};  // to the UTF-8 question: the run is abandoned
  CountFile(input);
  EXPECT_EQ(ReadFile(settings.txbFile[1]), "the user's earlier list");

  host.answers = {Answer::Yes};
  CountFile(input);
  EXPECT_EQ(host.output, kUtf8Listing);
  EXPECT_EQ(ReadFile(settings.txbFile[1]), AnsiString(kNoteSpaces) + kUtf8Listing);
}

TEST_F(RunDriverTest, AFileThatSeemsUtf8IsAskedAbout) {
  const std::string input = WriteFile("cafe.txt", kUtf8WithBom);
  struct Case {
    Answer answer;
    int chkUTF8After;
    AnsiString listing;
  };
  for (const Case& c : {Case{Answer::Yes, 1, kUtf8Listing}, Case{Answer::No, 0, kUtf8AsAnsiListing},
                        Case{Answer::Cancel, 0, ""}}) {
    SCOPED_TRACE(static_cast<int>(c.answer));
    settings.chkUTF8 = 0;
    host.messages.clear();
    host.output = "text of an earlier run";
    host.answers = {c.answer};
    CountFile(input);

    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].title, "UTF-8 or ANSI file?");
    EXPECT_EQ(host.messages[0].text,
              "This file seems to be UTF-8 encoded.\r\n"
              "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.");
    EXPECT_EQ(host.messages[0].buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(settings.chkUTF8, c.chkUTF8After);
    EXPECT_EQ(host.output, c.listing);
    EXPECT_EQ(ctx.run.blnWordsGot, c.answer != Answer::Cancel);
    ExpectIdle();
  }

  // When the box already says UTF-8 there is nothing to ask.
  host.messages.clear();
  settings.chkUTF8 = 1;
  CountFile(input);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, kUtf8Listing);
}

TEST_F(RunDriverTest, AnAnsiFileIsAskedAboutWhenTheBoxSaysUtf8) {
  const std::string input = WriteFile("cafe.txt", "Caf\xE9 caf\xE9\r\n");
  const AnsiString listing = RankFreqWordListing(4, {"      1       2  caf\xE9"});
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    settings.chkUTF8 = 1;
    host.messages.clear();
    host.answers = {answer};
    CountFile(input);

    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].title, "UTF-8 or ANSI file?");
    EXPECT_EQ(host.messages[0].text,
              "This file does not seem to be UTF-8 encoded.\r\n"
              "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
              "or 'No' to scan it as ANSI.");
    EXPECT_EQ(host.messages[0].buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(settings.chkUTF8, answer == Answer::Yes ? 1 : 0);
    EXPECT_EQ(host.output, listing);  // the byte E9 is the same letter either way
  }
}

TEST_F(RunDriverTest, LargeInputFileQuestion) {
  // 204800 bytes are not large.
  CountFile(WriteFile("limit.txt", TextOfSize(204800)));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, kAlphaListing);

  const std::string input = WriteFile("large.txt", TextOfSize(204801));
  const std::string output = PathOf("list.txt");
  struct Case {
    Answer answer;
    std::deque<std::optional<AnsiString>> chosen;
    bool listed;
    std::string outputFile;
  };
  for (const Case& c : {Case{Answer::Cancel, {}, false, ""}, Case{Answer::No, {}, true, ""},
                        Case{Answer::Yes, {output}, true, output},
                        Case{Answer::Yes, {}, true, ""}}) {
    SCOPED_TRACE(static_cast<int>(c.answer));
    settings.txbFile[1] = "";
    host.messages.clear();
    host.output = "";
    host.answers = {c.answer};
    host.chosenFiles = c.chosen;
    ctx.run.lngSecondsElapsed = 0;
    bool clockRanWhileAsked = true, timeShownWhileAsked = true;
    host.onMessage = [&](const MessageBoxRequest&) {
      clockRanWhileAsked = ctx.run.blnElapsedTimeRunning;
      timeShownWhileAsked = host.Visible(Control::TimeElapsed);
      TimerTick(ctx);  // seconds that pass while the user thinks
      TimerTick(ctx);
    };
    bool clockRanWhileCounting = false;
    host.onProcessEvents = [&] { clockRanWhileCounting = ctx.run.blnElapsedTimeRunning; };
    CountFile(input);

    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].title, "Large input file");
    EXPECT_EQ(host.messages[0].text, kLargeQuestion);
    EXPECT_EQ(host.messages[0].buttons, MessageButtons::YesNoCancel);
    EXPECT_FALSE(clockRanWhileAsked);
    EXPECT_FALSE(timeShownWhileAsked);
    EXPECT_EQ(ctx.run.lngSecondsElapsed, 0);
    EXPECT_EQ(clockRanWhileCounting, c.listed);  // the clock went on after the answer
    EXPECT_EQ(host.output, c.listed ? kAlphaListing : "Now processing input file ...");
    EXPECT_EQ(ctx.run.blnWordsGot, c.listed);
    EXPECT_EQ(settings.txbFile[1], c.outputFile);
    EXPECT_EQ(std::filesystem::exists(output), !c.outputFile.empty());
    if (!c.outputFile.empty()) {
      EXPECT_EQ(ReadFile(output), AnsiString(kNoteSpaces) + kAlphaListing);
      std::filesystem::remove(output);
    }
    ExpectIdle();
  }

  // With an output file named, a large input is not asked about.
  host.messages.clear();
  host.onMessage = nullptr;
  host.onProcessEvents = nullptr;  // its flag lived in the loop
  settings.txbFile[1] = output;
  CountFile(input);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(RunDriverTest, OutputFileChosenForALargeInputIsCheckedAgain) {
  const std::string input = WriteFile("large.txt", TextOfSize(204801));
  struct Case {
    AnsiString chosen;
    std::string_view refusal;
  };
  for (const Case& c : {Case{input, kSameFile}, Case{PathOf("list.docx"), kDocxOutput}}) {
    SCOPED_TRACE(c.chosen);
    settings.txbFile[1] = "";
    host.messages.clear();
    host.answers = {Answer::Yes};
    host.chosenFiles = {c.chosen};
    CountFile(input);
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(host.messages[0].title, "Large input file");
    EXPECT_EQ(host.messages[1].text, c.refusal);
    EXPECT_EQ(ctx.store.lngNumWords(), 0);
    EXPECT_FALSE(ctx.run.blnWordsGot);
    ExpectIdle();
  }
  EXPECT_EQ(ReadFile(input), TextOfSize(204801));
}

TEST_F(RunDriverTest, ErrorReportStopsTheClockFirst) {
  host.timerRunning = true;
  ctx.run.blnElapsedTimeRunning = true;
  bool timerRanAtReport = true, clockRanAtReport = true;
  host.onMessage = [&](const MessageBoxRequest&) {
    timerRanAtReport = host.timerRunning;
    clockRanAtReport = ctx.run.blnElapsedTimeRunning;
  };
  ReportError(ctx, 53, "File not found", "Something went wrong.\r\n", "DoItFromFile");

  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, texts::kErrorReportTitle);
  EXPECT_EQ(host.messages[0].text,
            "Something went wrong.\r\nAt DoItFromFile error #53.\r\nDescription: File not found");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(host.messages[0].buttons, MessageButtons::Ok);
  EXPECT_FALSE(timerRanAtReport);
  EXPECT_FALSE(clockRanAtReport);
}

TEST_F(RunDriverTest, OutputFileThatCannotBeOpenedIsError70) {
  const std::string input = WriteFile("large.txt", TextOfSize(60000));
  const AnsiString expectedStart = AnsiString(texts::kErrorReportPrefix) +
                                   "At DoIt error #70.\r\nDescription: ";

  // A folder stands where the output file should go: the probe refuses it before counting.
  const std::string taken = PathOf("taken.txt");
  std::filesystem::create_directory(taken);
  settings.txbFile[1] = taken;
  CountFile(input);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, texts::kErrorReportTitle);
  EXPECT_TRUE(StartsWith(host.messages[0].text, expectedStart)) << host.messages[0].text;
  EXPECT_GT(host.messages[0].text.size(), expectedStart.size());  // with a description
  EXPECT_TRUE(StartsWith(host.output, "Error: "));
  EXPECT_TRUE(EndsWith(host.output, kExcelLines)) << host.output;
  EXPECT_EQ(ctx.store.lngNumWords(), 0);
  ExpectIdle();

  // The output file is taken away while the words are counted: the listing cannot write it.
  host.messages.clear();
  const std::string output = PathOf("list.txt");
  settings.txbFile[1] = output;
  bool timerRanAtReport = true;
  host.onMessage = [&](const MessageBoxRequest&) { timerRanAtReport = host.timerRunning; };
  host.onProcessEvents = [&] { std::filesystem::create_directories(output); };
  CountFile(input);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_TRUE(StartsWith(host.messages[0].text, expectedStart)) << host.messages[0].text;
  EXPECT_FALSE(timerRanAtReport);
  EXPECT_TRUE(StartsWith(host.output, "Error: "));
  EXPECT_TRUE(EndsWith(host.output, kExcelLines)) << host.output;
  ExpectIdle();
}

TEST_F(RunDriverTest, OutputFolderThatDoesNotExistIsAnErrorOtherThan70) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  settings.txbFile[1] = PathOf("nowhere/list.txt");
  host.output = "text of an earlier run";
  CountFile(input);

  ASSERT_EQ(host.messages.size(), 1u);
  const AnsiString& text = host.messages[0].text;
  const AnsiString start = AnsiString(texts::kErrorReportPrefix) + "At DoIt error #";
  EXPECT_TRUE(StartsWith(text, start)) << text;
  EXPECT_EQ(text.find("#70."), AnsiString::npos);
  EXPECT_NE(text.find(".\r\nDescription: "), AnsiString::npos);
  EXPECT_EQ(host.output.find("Excel"), AnsiString::npos);
  EXPECT_FALSE(std::filesystem::exists(PathOf("nowhere")));
  ExpectIdle();
}

TEST_F(RunDriverTest, MissingDocxIsReportedByTheFileSource) {
  CountFile(PathOf("gone.docx"));
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, texts::kErrorReportTitle);
  EXPECT_TRUE(StartsWith(host.messages[0].text,
                         AnsiString(texts::kErrorReportPrefix) + "At DoItFromFile error #53.\r\n"));
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();
}

TEST_F(RunDriverTest, TextboxOverflowIsReportedAsError6) {
  // 4000 listing lines of 22 characters and CR LF do not fit into 65000 characters.
  const std::string input = WriteFile("many.txt", DistinctWords(4000));
  const std::string output = PathOf("list.txt");
  struct Case {
    int order;
    AnsiString outputFile;
    int disableOutput;
    std::string_view procedure;
    bool fileWritten;
  };
  for (const Case& c : {Case{1, "", 0, "ListWordsAlphabetically A", false},
                        Case{0, output, 0, "ListWordsByFrequency A", true},
                        Case{1, output, 1, "ListWordsAlphabetically A", false}}) {
    SCOPED_TRACE(c.procedure);
    std::filesystem::remove(output);
    host.messages.clear();
    settings.cboWordOrder = c.order;
    settings.txbFile[1] = c.outputFile;
    settings.chkDisableOutputToFile = c.disableOutput;
    CountFile(input);

    ASSERT_EQ(host.messages.size(), 1u);
    const MessageBoxRequest& report = host.messages[0];
    EXPECT_EQ(report.title, texts::kErrorReportTitle);
    EXPECT_EQ(report.icon, MessageIcon::Exclamation);
    EXPECT_NE(report.text.find(c.procedure), AnsiString::npos) << report.text;
    // The explanation names the output file when the whole list went there.
    EXPECT_EQ(report.text.find(output) != AnsiString::npos, c.fileWritten) << report.text;
    EXPECT_LE(host.output.size(), 65000u);
    EXPECT_TRUE(StartsWith(host.output, "   Rank    Freq  Word (longest has 5 characters)\r\n"));
    EXPECT_EQ(std::filesystem::exists(output), c.fileWritten);
    if (c.fileWritten) {
      const std::string file = ReadFile(output);
      EXPECT_EQ(CountOf(file, "\r\n"), 2u + 1u + 4000u);  // note, header, words
      EXPECT_TRUE(EndsWith(file, "   4000       1  kafxv\r\n"));  // the last word, kafxv
    }
    ExpectIdle();
  }
}

TEST_F(RunDriverTest, IncompatibleSettingsRefuseTheRun) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  settings.chkUTF8 = 1;
  settings.chkOnly7bitASCII = 1;
  host.output = "text of an earlier run";
  CountFile(input);

  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Incompatible setting");
  EXPECT_TRUE(StartsWith(host.messages[0].text, "Scanning as UTF-8 is not compatible with"));
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(host.output, "text of an earlier run");
  EXPECT_TRUE(host.captionHistory.empty());  // no clock, no Stop button
  EXPECT_EQ(ctx.store.lngNumWords(), 0);

  settings.chkOnly7bitASCII = 0;
  host.messages.clear();
  EXPECT_TRUE(ValidateSettings(ctx));
  settings.chkUTF8 = 0;
  settings.chkOnly7bitASCII = 1;
  EXPECT_TRUE(ValidateSettings(ctx));
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(RunDriverTest, DocxInput) {
  // The sample document: "this" 7 times, "the" 6, "heading" 5, "level" and "table" 4; "apache"
  // only twice, because "//" in its web addresses starts a comment that runs to the line's end.
  settings.chkIgnoreInfrequentWords = 1;
  settings.cboThresholdFrequency = 2;  // fewer than 4 occurrences are not listed
  settings.cboWordOrder = 0;
  CountFile(std::string(WORDTALLY_TEST_DATA) + "/en_tika_testWORD.docx");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, RankFreqWordListing(7, {"      1       7  this", "      2       6  the",
                                                 "      3       5  heading",
                                                 "      4       4  level",
                                                 "      5       4  table"}));

  // A docx whose document part is damaged.
  std::string damaged = ReadFile(std::string(WORDTALLY_TEST_DATA) + "/en_tika_testWORD.docx");
  const size_t part = damaged.find("word/document.xml");
  ASSERT_NE(part, std::string::npos);
  for (size_t i = part + 40; i < part + 240; ++i) damaged[i] = static_cast<char>(~damaged[i]);
  const std::string name = WriteFile("damaged.docx", damaged);
  host.output = "";
  CountFile(name);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Error");
  EXPECT_TRUE(StartsWith(host.messages[0].text, "Invalid checksum found when processing\r\n"));
  EXPECT_TRUE(EndsWith(host.messages[0].text, "damaged.docx"));
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();
}

}  // namespace
}  // namespace wordtally::testing
