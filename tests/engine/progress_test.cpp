#include "engine/progress.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "engine/program_texts.h"
#include "engine/word_counting.h"
#include "support/ansi_text.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

std::string Bar(int hyphens, std::string_view tip, int spaces) {
  return "[" + std::string(hyphens, '-') + std::string(tip) + std::string(spaces, ' ') + "]";
}

class ProgressTest : public WholeRunTest {
 protected:
  // Presses Stop once, at the first event-loop turn at which the store holds that many words.
  void PressStopAt(int32_t words) {
    host.onProcessEvents = [this, words, pressed = false]() mutable {
      TimerTick(ctx);
      if (!pressed && ctx.store.lngNumWords() == words) {
        RequestStop(ctx);
        pressed = true;
      }
    };
    // Records the output textbox as it stood when the "Counting interrupted" question came.
    host.onMessage = [this](const MessageBoxRequest& m) {
      if (m.title == "Counting interrupted") outputWhenInterrupted = host.output;
    };
  }
  // words distinct words, many lines that repeat the first, then five new words.
  static std::string StopInput(int words) {
    return DistinctWords(words) + Repeated("kaaaa kaaaa kaaaa kaaaa\r\n", 3000) +
           DistinctWords(5, words);
  }
  void ExpectStopQuestionOnce() const {
    const auto asked = MessagesTitled(texts::kStopQuestionTitle);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].text, " 2000 different words have been found.\r\nDo you really wish to stop?");
    EXPECT_EQ(asked[0].buttons, MessageButtons::YesNo);
  }

  AnsiString outputWhenInterrupted;
};

TEST_F(ProgressTest, ClockAndRunningLabels) {
  ctx.run.lngSecondsElapsed = 7;
  StartClock(ctx);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 0s");
  EXPECT_TRUE(host.Visible(Control::TimeElapsed));
  EXPECT_TRUE(ctx.run.blnElapsedTimeRunning);
  EXPECT_TRUE(host.timerRunning);

  TimerTick(ctx);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 1s");
  EXPECT_EQ(host.Caption(Control::NumberOfWords), "Number of different words found so far: 0");
  for (int i = 0; i < 4; ++i) TimerTick(ctx);
  EXPECT_EQ(host.captionHistory[Control::Twirler], (std::vector<AnsiString>{"/", "-", "\\", "|", "/"}));
  ctx.run.lngSecondsElapsed = 1;
  settings.chkSuppressWords = 1;
  for (int i = 0; i < 1234; ++i) AddWordToList(ctx, "word" + std::to_string(i));
  for (int i = 1; i < 65; ++i) TimerTick(ctx);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 1m 05s");
  EXPECT_EQ(host.Caption(Control::NumberOfWords), "Number of different words found so far: 1,234");
  for (int i = 65; i < 3723; ++i) TimerTick(ctx);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 1h 02m 03s");

  // A paused clock does not count.
  ctx.run.blnElapsedTimeRunning = false;
  const size_t captions = host.captionHistory[Control::TimeElapsed].size();
  TimerTick(ctx);
  EXPECT_EQ(ctx.run.lngSecondsElapsed, 3723);
  EXPECT_EQ(host.captionHistory[Control::TimeElapsed].size(), captions);
}

TEST_F(ProgressTest, ProgressBarCaptions) {
  SetTotalNumOccurrencesForFileProgressBar(ctx);
  EXPECT_EQ(host.Caption(Control::TotalNumOccurrences), Bar(0, "", 37));
  EXPECT_TRUE(host.Visible(Control::TotalNumOccurrences));
  struct Case {
    double done, total;
    std::string caption;
    int16_t position;
  };
  for (const Case& c : {Case{0, 100, Bar(0, ">", 37), 0},
                        Case{1, 100, Bar(0, ">", 37), 0},   // 0.37 rounds to 0
                        Case{2, 100, Bar(0, ">", 36), 1},   // 0.74 rounds to 1
                        Case{1, 4, Bar(8, ">", 28), 9},     // 9.25
                        Case{3, 4, Bar(27, ">", 9), 28},    // 27.75
                        Case{36, 37, Bar(35, ">", 1), 36},
                        Case{100, 100, Bar(36, ">", 0), 37},
                        Case{2, 1, Bar(73, ">", 0), 74}}) {  // past the width: overruns
    SCOPED_TRACE(c.caption);
    UpdateProgressBar(ctx, c.done, c.total, 1);
    EXPECT_EQ(host.Caption(Control::TotalNumOccurrences), c.caption);
    EXPECT_EQ(ctx.run.intProgressBarPosition, c.position);
  }
  // Below the minimum total nothing is drawn; at the minimum it is.
  const size_t drawn = host.captionHistory[Control::TotalNumOccurrences].size();
  UpdateProgressBar(ctx, 5, 9, 10);
  EXPECT_EQ(host.captionHistory[Control::TotalNumOccurrences].size(), drawn);
  EXPECT_EQ(ctx.run.intProgressBarPosition, 74);
  UpdateProgressBar(ctx, 10, 10, 10);
  EXPECT_EQ(host.Caption(Control::TotalNumOccurrences), Bar(36, ">", 0));
}

TEST_F(ProgressTest, ConcealNumWordsAndTheStopButton) {
  const Control counters[] = {Control::NumberOfWords, Control::NumWordsExcluded,
                              Control::NumOccurrences, Control::TotalNumOccurrences};
  for (Control c : counters) host.SetVisible(c, true);
  host.SetCaption(Control::TimeElapsed, "Time elapsed: 5s");
  ConcealNumWords(ctx, false);
  for (Control c : counters) EXPECT_FALSE(host.Visible(c));
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 5s");
  ConcealNumWords(ctx, true);
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "");

  // Stop only sets the flag.
  host.captionHistory.clear();
  RequestStop(ctx);
  EXPECT_TRUE(ctx.run.blnStop);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.captionHistory.empty());
}

TEST_F(ProgressTest, BarFollowsTheFileAndTheClipboardText) {
  const std::string text = DistinctWords(1500);
  for (bool fromFile : {true, false}) {
    SCOPED_TRACE(fromFile);
    host.captionHistory.clear();
    if (fromFile) CountFile(WriteFile("words.txt", text));
    else CountClipboard(AnsiToUtf16(text));
    const auto& bars = host.captionHistory[Control::TotalNumOccurrences];
    ASSERT_FALSE(bars.empty());
    EXPECT_EQ(bars.front(), Bar(0, "", 37));
    EXPECT_NE(std::find(bars.begin(), bars.end(), Bar(36, ">", 0)), bars.end());
    // Redrawn only when it moves: at most once per cell, never per line.
    EXPECT_LE(bars.size(), 1u + 38u);
    for (size_t i = 1; i < bars.size(); ++i) {
      EXPECT_LE(std::count(bars[i - 1].begin(), bars[i - 1].end(), '-'),
                std::count(bars[i].begin(), bars[i].end(), '-'));
    }
  }
}

TEST_F(ProgressTest, StopWithFewerThan2000WordsIsImmediate) {
  PressStopAt(1999);
  host.answers = {Answer::No};  // do not list
  CountFile(WriteFile("words.txt", StopInput(1999)));
  EXPECT_TRUE(MessagesTitled(texts::kStopQuestionTitle).empty());
  const auto interrupted = MessagesTitled("Counting interrupted");
  ASSERT_EQ(interrupted.size(), 1u);
  EXPECT_EQ(interrupted[0].text,
            "The operation was stopped before all words were counted.\r\n"
            "Do you wish to list the words which were found?");
  EXPECT_EQ(interrupted[0].buttons, MessageButtons::YesNo);
  EXPECT_TRUE(EndsWith(outputWhenInterrupted, " \r\n\r\nStopped with 1999 words found."));
  EXPECT_EQ(host.Caption(Control::NumberOfWords), "Number of different words found so far: 1,999");
  EXPECT_FALSE(host.Visible(Control::NumberOfWords));
  EXPECT_FALSE(host.Visible(Control::TotalNumOccurrences));
  // No: the words stay in the store and nothing is listed.
  EXPECT_EQ(ctx.store.lngNumWords(), 1999);
  EXPECT_EQ(host.output, outputWhenInterrupted);
  EXPECT_FALSE(ctx.run.blnWordsGot);
  EXPECT_FALSE(ctx.run.blnStop);
  ExpectIdle();
}

TEST_F(ProgressTest, StopWith2000WordsAsksFirst) {
  const std::string input = WriteFile("words.txt", StopInput(2000));
  // No: the same run goes on to the end and lists everything.
  PressStopAt(2000);
  host.answers = {Answer::No};
  CountFile(input);
  ExpectStopQuestionOnce();
  EXPECT_TRUE(MessagesTitled("Counting interrupted").empty());
  EXPECT_EQ(ctx.store.lngNumWords(), 2005);
  EXPECT_TRUE(ctx.run.blnWordsGot);
  EXPECT_TRUE(StartsWith(host.output, "   Rank    Freq  Word (longest has 5 characters)\r\n"
                                      "      1   12001  kaaaa\r\n"));
  EXPECT_EQ(host.output.find("Stopped"), AnsiString::npos);
  ExpectIdle();

  // Yes, then list the words found, or not.
  for (Answer list : {Answer::Yes, Answer::No}) {
    SCOPED_TRACE(static_cast<int>(list));
    host.messages.clear();
    PressStopAt(2000);
    host.answers = {Answer::Yes, list};
    CountFile(input);
    ExpectStopQuestionOnce();
    EXPECT_TRUE(EndsWith(outputWhenInterrupted, " \r\n\r\nStopped with 2000 words found."));
    EXPECT_EQ(ctx.store.lngNumWords(), 2000);
    EXPECT_FALSE(ctx.run.blnWordsGot);  // a stopped run's words are listed but incomplete
    if (list == Answer::Yes) {
      EXPECT_TRUE(ctx.run.blnStoppedAndListed);
      EXPECT_TRUE(EndsWith(host.output, "   2000       1  kacyx\r\n"));  // the 2000th word
    } else {
      EXPECT_EQ(host.output, outputWhenInterrupted);
    }
    ExpectIdle();
  }
}

TEST_F(ProgressTest, StoppedReportCountsWordsInTheSingularForOne) {
  // Clipboard text with nothing echoed: the report is the textbox's only text.
  settings.chkSuppressWords = 1;
  struct Case {
    int32_t words;
    std::string text;
    std::string report;
  };
  for (const Case& c :
       {Case{1, Repeated("hello hello hello\r\n", 1000), "Stopped with 1 word found."},
        Case{0, Repeated(". , ; : ! ? . , ; : ! ?\r\n", 1000) + "hello\r\n",
             "Stopped with 0 words found."},
        Case{2, "hello world\r\n" + Repeated("hello hello hello\r\n", 1000),
             "Stopped with 2 words found."}}) {
    SCOPED_TRACE(c.report);
    host.output = "";
    host.answers = {Answer::No};
    PressStopAt(c.words);
    CountClipboard(AnsiToUtf16(c.text));
    EXPECT_EQ(host.output, c.report);
    EXPECT_EQ(ctx.store.lngNumWords(), c.words);
    ExpectIdle();
  }
}

}  // namespace
}  // namespace wordtally::testing
