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

constexpr auto kOk = MessageButtons::Ok;
constexpr auto kWarning = MessageIcon::Exclamation;
constexpr std::string_view kFruit = "Apple banana apple\r\ncherry apple banana\r\n";
const AnsiString kFruitListing = RankFreqWordListing(
    6, {"      1       3  apple", "      2       2  banana", "      3       1  cherry"});
constexpr std::string_view kSameFile = "Output file cannot be the same as the input file.";
constexpr std::string_view kDocxOutput = "Output file cannot be a 'docx' file.";
constexpr std::string_view kNoteSpaces =
    "\"To open this file in Excel state that it is delimited by spaces.\r\n"
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
constexpr std::string_view kExcelLines =
    "\r\nIf the output file is open in Excel then it must first be closed\r\n"
    "or a different file should be specified as the output file.";
constexpr std::string_view kSeemsUtf8 =
    "This file seems to be UTF-8 encoded.\r\n"
    "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.";
constexpr std::string_view kSeemsAnsi =
    "This file does not seem to be UTF-8 encoded.\r\n"
    "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\nor 'No' to scan it as ANSI.";

// "Café café naïve" in UTF-8 with a byte-order mark; its listing read as UTF-8, and read byte by
// byte as ANSI (C3 is the letter A tilde; A9 and AF are not letters, so the words end there).
constexpr std::string_view kUtf8WithBom = "\xEF\xBB\xBF" "Caf\xC3\xA9 caf\xC3\xA9 na\xC3\xAFve\r\n";
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

using RunDriverTest = WholeRunTest;

TEST_F(RunDriverTest, CountsAFileListsItAndEachRunStartsAfresh) {
  const std::string input = WriteFile("fruit.txt", kFruit);
  host.output = "text of an earlier run";
  CountFile(input);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, kFruitListing);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 0s");  // done within a second
  EXPECT_EQ(host.Caption(Control::Twirler), " ");
  ExpectIdle();
  // Counting under "Stop", listing under the busy caption.
  const auto& captions = host.captionHistory[Control::CountButton];
  const auto stop = std::find(captions.begin(), captions.end(), texts::kStop);
  EXPECT_NE(std::find(stop, captions.end(), texts::kCountButtonBusy), captions.end());
  // The progress texts of the listing phase, in order, after the input was read.
  auto at = host.outputHistory.begin();
  for (const AnsiString& phase :
       {AnsiString("Now processing input file ..."), AnsiString(texts::kMarkingWords) + " ...",
        AnsiString(texts::kRankingWords) + " ...", AnsiString(texts::kPreparingListing) + " ..."}) {
    at = std::find(at, host.outputHistory.end(), phase);
    EXPECT_NE(at, host.outputHistory.end()) << phase;
  }

  // Left-overs of the last run (a Stop that came too late, a wider minimum column) do not
  // matter; blanks around the name are removed and the name is written back.
  ctx.run.blnStop = true;
  ctx.run.intMinWidth = 9;
  settings.txbFile[0] = "  " + input + "   ";
  DoIt(ctx);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(settings.txbFile[0], input);
  EXPECT_EQ(host.output, kFruitListing);
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 6);
  EXPECT_TRUE(ctx.run.blnWordsGot);
}

TEST_F(RunDriverTest, InputFileNotSpecified) {
  settings.txbFile[0] = "   ";
  host.output = "text of an earlier run";
  DoIt(ctx);
  ExpectOneMessage(texts::kInputFileNotSpecifiedTitle, "Input file not specified.", kOk, kWarning);
  EXPECT_EQ(host.output, "");
  EXPECT_EQ(settings.txbFile[0], "");
  ExpectRefused();
}

TEST_F(RunDriverTest, OutputFileNamingTheInputOrADocxIsRefusedBeforeCounting) {
  const std::string input = WriteFile("book.txt", TextOfSize(204801));
  const std::string docx = WriteFile("list.docx", "a document of the user");
  std::filesystem::create_directory(PathOf("sub"));
  std::filesystem::create_symlink(input, PathOf("link.txt"));
  const std::filesystem::path saved = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  struct Case {
    std::string output;
    bool chosenAfterLargeQuestion;
    std::string_view refusal;
  };
  for (const Case& c : {Case{input, false, kSameFile}, Case{"book.txt", false, kSameFile},
                        Case{"./sub/../book.txt", false, kSameFile},
                        Case{PathOf("link.txt"), false, kSameFile}, Case{docx, false, kDocxOutput},
                        Case{input, true, kSameFile}, Case{docx, true, kDocxOutput}}) {
    SCOPED_TRACE(c.output + (c.chosenAfterLargeQuestion ? " chosen" : ""));
    host.messages.clear();
    settings.txbFile[1] = c.chosenAfterLargeQuestion ? "" : c.output;
    host.answers = {Answer::Yes};
    host.chosenFiles = {c.output};
    CountFile(input);
    ASSERT_EQ(host.messages.size(), c.chosenAfterLargeQuestion ? 2u : 1u);
    if (c.chosenAfterLargeQuestion) {
      EXPECT_EQ(host.messages[0].title, "Large input file");
    }
    EXPECT_EQ(host.messages.back().text, c.refusal);
    EXPECT_EQ(host.messages.back().icon, kWarning);
    ExpectRefused();
  }
  std::filesystem::current_path(saved);
  EXPECT_EQ(ReadFile(input), TextOfSize(204801));
  EXPECT_EQ(ReadFile(docx), "a document of the user");
}

TEST_F(RunDriverTest, EncodingQuestionAndTheOutputFileReplacedOnlyByAListing) {
  const std::string utf8 = WriteFile("cafe.txt", kUtf8WithBom);
  const std::string ansi = WriteFile("ansi.txt", "Caf\xE9 caf\xE9\r\n");
  const AnsiString ansiListing = RankFreqWordListing(4, {"      1       2  caf\xE9"});
  struct Case {
    std::string input;
    int chkUTF8;
    Answer answer;
    std::string_view question;
    int chkUTF8After;
    AnsiString listing;
  };
  for (const Case& c : {Case{utf8, 0, Answer::Yes, kSeemsUtf8, 1, kUtf8Listing},
                        Case{utf8, 0, Answer::No, kSeemsUtf8, 0, kUtf8AsAnsiListing},
                        Case{utf8, 0, Answer::Cancel, kSeemsUtf8, 0, ""},
                        Case{utf8, 1, Answer::Ok, "", 1, kUtf8Listing},  // nothing to ask
                        // The byte E9 is the same letter either way.
                        Case{ansi, 1, Answer::Yes, kSeemsAnsi, 1, ansiListing},
                        Case{ansi, 1, Answer::No, kSeemsAnsi, 0, ansiListing}}) {
    SCOPED_TRACE(c.input + " " + std::to_string(static_cast<int>(c.answer)));
    settings.chkUTF8 = c.chkUTF8;
    settings.txbFile[1] = WriteFile("list.txt", "the user's earlier list");
    host.messages.clear();
    host.output = "text of an earlier run";
    host.answers = {c.answer};
    CountFile(c.input);
    if (c.question.empty()) {
      EXPECT_TRUE(host.messages.empty());
    } else {
      ExpectOneMessage("UTF-8 or ANSI file?", c.question, MessageButtons::YesNoCancel);
    }
    EXPECT_EQ(settings.chkUTF8, c.chkUTF8After);
    EXPECT_EQ(host.output, c.listing);
    EXPECT_EQ(ReadFile(settings.txbFile[1]),
              c.listing.empty() ? "the user's earlier list" : AnsiString(kNoteSpaces) + c.listing);
    EXPECT_EQ(ctx.run.blnWordsGot, !c.listing.empty());
    ExpectIdle();
  }
}

TEST_F(RunDriverTest, LargeInputFileQuestion) {
  CountFile(WriteFile("limit.txt", TextOfSize(204800)));  // not large
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
    bool clockRanWhileAsked = true, timeShownWhileAsked = true, clockRanWhileCounting = false;
    host.onMessage = [&](const MessageBoxRequest&) {
      clockRanWhileAsked = ctx.run.blnElapsedTimeRunning;
      timeShownWhileAsked = host.Visible(Control::TimeElapsed);
      TimerTick(ctx);  // seconds that pass while the user thinks
      TimerTick(ctx);
    };
    host.onProcessEvents = [&] { clockRanWhileCounting = ctx.run.blnElapsedTimeRunning; };
    CountFile(input);
    ExpectOneMessage("Large input file",
                     "The input file is quite large.  It is advisable to specify an output file "
                     "\r\nbefore continuing, in case the text window will not hold the result. "
                     "\r\nDo you wish to specify an output file?",
                     MessageButtons::YesNoCancel);
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

TEST_F(RunDriverTest, ErrorReportStopsTheClockFirst) {
  host.timerRunning = true;
  ctx.run.blnElapsedTimeRunning = true;
  host.onMessage = [&](const MessageBoxRequest&) {
    EXPECT_FALSE(host.timerRunning);
    EXPECT_FALSE(ctx.run.blnElapsedTimeRunning);
  };
  ReportError(ctx, 53, "File not found", "Something went wrong.\r\n", "DoItFromFile");
  ExpectOneMessage(texts::kErrorReportTitle,
                   "Something went wrong.\r\nAt DoItFromFile error #53.\r\nDescription: File not found",
                   kOk, kWarning);
}

TEST_F(RunDriverTest, OutputFileErrors) {
  const std::string input = WriteFile("large.txt", TextOfSize(60000));
  const AnsiString start = AnsiString(texts::kErrorReportPrefix) + "At DoIt error #";
  // A folder stands where the output file should go: the probe refuses it before counting.
  std::filesystem::create_directory(PathOf("taken.txt"));
  settings.txbFile[1] = PathOf("taken.txt");
  CountFile(input);
  ExpectOneMessage("Output file",
                   "The output file\r\n" + PathOf("taken.txt") + "\r\ncannot be used: it is a folder.",
                   kOk, kWarning);
  ExpectRefused();

  // The output file is taken away while the words are counted: the listing cannot write it.
  host.messages.clear();
  settings.txbFile[1] = PathOf("list.txt");
  host.onMessage = [&](const MessageBoxRequest&) { EXPECT_FALSE(host.timerRunning); };
  host.onProcessEvents = [&] { std::filesystem::create_directories(PathOf("list.txt")); };
  CountFile(input);
  ExpectOneMessage(texts::kErrorReportTitle, start + "70.\r\nDescription: ", kOk, kWarning, false);
  EXPECT_TRUE(StartsWith(host.output, "Error: "));
  EXPECT_TRUE(EndsWith(host.output, kExcelLines)) << host.output;
  ExpectIdle();

  // A folder that does not exist is another error, without the lines about Excel.
  host.messages.clear();
  host.onProcessEvents = nullptr;
  host.output = "text of an earlier run";
  settings.txbFile[1] = PathOf("nowhere/list.txt");
  CountFile(input);
  ExpectOneMessage(texts::kErrorReportTitle, start, kOk, kWarning, false);
  EXPECT_EQ(host.messages[0].text.find("#70."), AnsiString::npos);
  EXPECT_NE(host.messages[0].text.find(".\r\nDescription: "), AnsiString::npos);
  EXPECT_EQ(host.output.find("Excel"), AnsiString::npos);
  EXPECT_FALSE(std::filesystem::exists(PathOf("nowhere")));
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
  };
  for (const Case& c : {Case{1, "", 0, "ListWordsAlphabetically A"},
                        Case{0, output, 0, "ListWordsByFrequency A"},
                        Case{1, output, 1, "ListWordsAlphabetically A"}}) {
    SCOPED_TRACE(c.procedure);
    const bool fileWritten = !c.outputFile.empty() && !c.disableOutput;
    std::filesystem::remove(output);
    host.messages.clear();
    settings.cboWordOrder = c.order;
    settings.txbFile[1] = c.outputFile;
    settings.chkDisableOutputToFile = c.disableOutput;
    CountFile(input);
    ExpectOneMessage(texts::kErrorReportTitle, "", kOk, kWarning, false);
    const AnsiString& report = host.messages[0].text;
    EXPECT_NE(report.find(c.procedure), AnsiString::npos) << report;
    // The explanation names the output file when the whole list went there.
    EXPECT_EQ(report.find(output) != AnsiString::npos, fileWritten) << report;
    EXPECT_LE(host.output.size(), 65000u);
    EXPECT_TRUE(StartsWith(host.output, "   Rank    Freq  Word (longest has 5 characters)\r\n"));
    EXPECT_EQ(std::filesystem::exists(output), fileWritten);
    if (fileWritten) {
      const std::string file = ReadFile(output);
      EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2 + 1 + 4000);  // note, header, words
      EXPECT_TRUE(EndsWith(file, "   4000       1  kafxv\r\n"));  // the last word, kafxv
    }
    ExpectIdle();
  }
}

TEST_F(RunDriverTest, IncompatibleSettingsRefuseTheRun) {
  settings.chkUTF8 = 1;
  settings.chkOnly7bitASCII = 1;
  host.output = "text of an earlier run";
  CountFile(WriteFile("fruit.txt", kFruit));
  ExpectOneMessage("Incompatible setting", "Scanning as UTF-8 is not compatible with", kOk,
                   kWarning, false);
  EXPECT_EQ(host.output, "text of an earlier run");
  EXPECT_TRUE(host.captionHistory.empty());  // no clock, no Stop button
  EXPECT_EQ(ctx.store.lngNumWords(), 0);

  for (int utf8 : {0, 1}) {
    settings.chkUTF8 = utf8;
    settings.chkOnly7bitASCII = 1 - utf8;
    EXPECT_TRUE(ValidateSettings(ctx));
  }
  EXPECT_EQ(host.messages.size(), 1u);
}

TEST_F(RunDriverTest, DocxInput) {
  // The sample document: "this" 7 times, "the" 6, "heading" 5, "level" and "table" 4; "apache"
  // only twice, because "//" in its web addresses starts a comment that runs to the line's end.
  settings.chkIgnoreInfrequentWords = 1;
  settings.cboThresholdFrequency = 2;  // fewer than 4 occurrences are not listed
  settings.cboWordOrder = 0;
  const std::string sample = std::string(WORDTALLY_TEST_DATA) + "/en_tika_testWORD.docx";
  CountFile(sample);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, RankFreqWordListing(7, {"      1       7  this", "      2       6  the",
                                                 "      3       5  heading",
                                                 "      4       4  level",
                                                 "      5       4  table"}));

  // A docx whose document part is damaged.
  std::string damaged = ReadFile(sample);
  const size_t part = damaged.find("word/document.xml");
  ASSERT_NE(part, std::string::npos);
  for (size_t i = part + 40; i < part + 240; ++i) damaged[i] = static_cast<char>(~damaged[i]);
  CountFile(WriteFile("damaged.docx", damaged));
  ExpectOneMessage("Error", "Invalid checksum found when processing\r\n", kOk, std::nullopt, false);
  EXPECT_TRUE(EndsWith(host.messages[0].text, "damaged.docx"));
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();

  // A missing docx is reported by the file source.
  host.messages.clear();
  CountFile(PathOf("gone.docx"));
  ExpectOneMessage(texts::kErrorReportTitle,
                   AnsiString(texts::kErrorReportPrefix) + "At DoItFromFile error #53.\r\n", kOk,
                   std::nullopt, false);
  EXPECT_FALSE(ctx.run.blnWordsGot);
  ExpectIdle();
}

TEST_F(RunDriverTest, CommonWordsLoadedForARunLeaveTheWindowBusyWhileCounting) {
  settings.chkIgnoreCommonWords = 1;
  settings.txbCommonWordsFile = WriteFile("common.txt", "the and\r\n");
  bool idleWhileCounting = false;
  host.onProcessEvents = [&] { idleWhileCounting |= !host.busy; };
  CountFile(WriteFile("words.txt", DistinctWords(600) + "the and the\r\n"));
  host.onProcessEvents = nullptr;
  EXPECT_FALSE(idleWhileCounting);
  EXPECT_EQ(MessagesTitled("Common words loaded").size(), 1u);
  EXPECT_EQ(ctx.store.lngNumWords(), 600);  // "the" and "and" left out
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 603);
  ExpectIdle();
}

}  // namespace
}  // namespace wordtally::testing
