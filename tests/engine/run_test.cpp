// Whole counting runs through the driver, from a file or the clipboard to the listing: the
// questions, refusals and errors on the way, the progress shown, Stop, and the clipboard paste.
#include <deque>
#include <filesystem>
#include <new>

#include "engine/clipboard_input.h"
#include "engine/progress.h"
#include "tests/engine/engine_fixture.h"

namespace wordtally::testing {
namespace {

namespace fs = std::filesystem;
constexpr auto kNoIcon = MessageIcon::None;
const AnsiString kNoteSpaces =
    "\"To open this file in Excel state that it is delimited by spaces.\r\n"
    "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
const AnsiString kErrorAt = AnsiString(texts::kErrorReportPrefix) + "At ";

// Text of exactly size bytes: lines of three words, blanks at the end to make up the size.
std::string TextOfSize(size_t size) {
  std::string text = Repeated("alpha beta gamma\r\n", static_cast<int>(size / 18));
  return text.append(size - text.size(), ' ');
}

std::string Bar(int hyphens, std::string_view tip, int spaces) {
  return "[" + std::string(hyphens, '-') + std::string(tip) + std::string(spaces, ' ') + "]";
}

TEST_F(EngineTest, WholeRunsShowTheirMessagesAndListingAndWriteTheOutputFile) {
  const std::string fruit = WriteFile("fruit.txt", "Apple banana apple\r\ncherry apple banana\r\n");
  const std::string mac = WriteFile("mac.txt", "Apple banana apple\rcherry apple banana\r");
  const std::string html = WriteFile("page.html", "<html><head><meta charset=\"utf-8\"></head>\r\n"
                                                  "<body>plain words</body></html>\r\n");
  const std::string utf8 =
      WriteFile("cafe.txt", "\xEF\xBB\xBF" "Caf\xC3\xA9 caf\xC3\xA9 na\xC3\xAFve\r\n");
  const std::string ansi = WriteFile("ansi.txt", "Caf\xE9 caf\xE9\r\n");
  const std::string large = WriteFile("large.txt", TextOfSize(204801));
  const std::string limit = WriteFile("limit.txt", TextOfSize(204800));
  const std::string many = WriteFile("many.txt", DistinctWords(4000));
  const std::string docx = WriteFile("d.docx", "a document of the user"), list = PathOf("list.txt");
  fs::create_directory(PathOf("taken.txt"));
  // Read byte by byte as ANSI, C3 is the letter A tilde; A9 and AF are not letters and end words.
  const AnsiString asUtf8 = Listing(5, {{2, "caf\xE9"}, {1, "na\xEFve"}});
  const AnsiString asAnsi = Listing(4, {{2, "caf\xE3"}, {1, "na\xE3"}});
  const AnsiString ansiListing = Listing(4, {{2, "caf\xE9"}});  // E9 is é either way
  const AnsiString fruitListing = Listing(6, {{3, "apple"}, {2, "banana"}, {1, "cherry"}});
  const AnsiString alpha = Listing(5, {{11377, "alpha"}, {11377, "beta"}, {11377, "gamma"}});
  std::vector<std::pair<int, std::string>> manyWords;
  for (int i = 0; i < 4000; ++i) manyWords.emplace_back(1, NumberedWord(i));
  const auto question = [](std::string_view title, std::string_view text) -> Boxes {
    return ElementsAre(Box(title, AnsiString(text), MessageButtons::YesNoCancel, kNoIcon));
  };
  const Boxes seemsUtf8 = question("UTF-8 or ANSI file?",
      "This file seems to be UTF-8 encoded.\r\n"
      "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.");
  const Boxes seemsAnsi = question("UTF-8 or ANSI file?",
      "This file does not seem to be UTF-8 encoded.\r\n"
      "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\nor 'No' to scan it as ANSI.");
  const Boxes isLarge = question("Large input file",
      "The input file is quite large.  It is advisable to specify an output file \r\nbefore "
      "continuing, in case the text window will not hold the result. \r\nDo you wish to specify "
      "an output file?");
  const auto refused = [](std::string_view title, const TextMatcher& text) -> Boxes {
    return ElementsAre(Box(title, text));
  };
  const auto report = [](const AnsiString& text) -> Boxes {
    return ElementsAre(Box(texts::kErrorReportTitle, kErrorAt + text));
  };
  const AnsiString sameFile = "Output file cannot be the same as the input file.";
  const AnsiString processing = "Now processing input file ...", earlier = "text of an earlier run";
  const AnsiString earlierList = "the user's earlier list";
  // A run of input with the UTF-8 box as given, the output file named beforehand, and the answer
  // to a question, with the file chosen after it.
  const auto count = [this](std::string input, int utf8 = 0, std::string named = "",
                            Answer answer = Answer::Ok, std::optional<AnsiString> chosen = {}) {
    return [=, this] {
      settings.chkUTF8 = utf8;
      settings.txbFile[1] = named;
      host.answers = {answer};
      host.chosenFiles = {chosen};
      CountFile(input);
    };
  };
  // The message boxes shown, the textbox, whether the words were got, and the listing that the
  // output file holds after its note (none: the user's earlier list is left as it was).
  struct Case { std::function<void()> run; Boxes boxes; TextMatcher textbox; bool listed;
                AnsiString written = ""; };
  const Boxes none = ::testing::IsEmpty();
  const Case cases[] = {
      // Blanks around the input file's name are removed, and the name written back.
      {[&] { CountFile("  " + fruit + "   "); EXPECT_EQ(settings.txbFile[0], fruit); }, none,
       fruitListing, true},
      // Mac line ends (CR) are told of once in a program run.
      {count(mac), ElementsAre(Box("This is a Mac-style text file", StartsWith("File " + mac),
                                   MessageButtons::Ok, MessageIcon::Information)),
       fruitListing, true},
      {count(mac), none, fruitListing, true},
      // A charset in the head of an HTML page sets the UTF-8 box, even after No to the question.
      {[&] { count(html, 0, "", Answer::No)(); EXPECT_EQ(settings.chkUTF8, 1); }, seemsUtf8,
       Listing(5, {{1, "plain"}, {1, "words"}}), true},
      // From the clipboard: tabs and form feeds are plain text; an escape character as character
      // 3001 is not looked at, and separates words.
      {[&] {
         settings.cboWordOrder = 0;
         CountClipboard(AnsiToUtf16(Repeated("apple ", 500)) +
                        u"\x1B banana\tCaf\u00E9\fcaf\u00E9");
       },
       none, Listing(6, {{500, "apple"}, {2, "caf\xE9"}, {1, "banana"}}), true},
      // The sample document: "this" 7 times, "the" 6, "heading" 5, "level" and "table" 4;
      // "apache" twice only, as "//" in its web addresses starts a comment to the line's end.
      {[&] {
         settings.chkIgnoreInfrequentWords = 1;
         settings.cboThresholdFrequency = 2;  // fewer than 4 occurrences are not listed
         settings.cboWordOrder = 0;
         CountFile(std::string(WORDTALLY_TEST_DATA) + "/en_tika_testWORD.docx");
       },
       none, Listing(7, {{7, "this"}, {6, "the"}, {5, "heading"}, {4, "level"}, {4, "table"}}),
       true},
      // The UTF-8 question when the box disagrees with the file.
      {count(utf8, 0, list, Answer::Yes), seemsUtf8, asUtf8, true, asUtf8},
      {count(utf8, 0, list, Answer::No), seemsUtf8, asAnsi, true, asAnsi},
      {count(utf8, 0, list, Answer::Cancel), seemsUtf8, "", false},
      {count(utf8, 1, list), none, asUtf8, true, asUtf8},
      {count(ansi, 1, list, Answer::No), seemsAnsi, ansiListing, true, ansiListing},
      // The large-input question, above 204800 bytes and without an output file; the choice of
      // a file after Yes may be cancelled.
      {count(limit), none, alpha, true},
      {count(large, 0, "", Answer::Cancel), isLarge, processing, false},
      {count(large, 0, "", Answer::No), isLarge, alpha, true},
      {count(large, 0, "", Answer::Yes, list), isLarge, alpha, true, alpha},
      {count(large, 0, "", Answer::Yes), isLarge, alpha, true},
      {count(large, 0, list), none, alpha, true, alpha},
      // 4000 listing lines of 22 characters and CR LF do not fit into the textbox: error -6.
      {count(many, 0, list),
       refused(texts::kErrorReportTitle,
               "The list is too long to be shown in full in the text window,\r\nwhich shows only "
               "its first part.\r\n\r\nThe whole list is in the Results table\r\nand in the output "
               "file\r\n" + list +
               "\r\n(ListWordsAlphabetically A)"),
       AllOf(StartsWith(Listing(5, {{1, "kaaaa"}})), SizeIs(Le(65000u))), true,
       Listing(5, manyWords)},
      // The common words are loaded once, before the first run that leaves them out.
      {[&] {
         settings.chkIgnoreCommonWords = 1;
         settings.txbCommonWordsFile = WriteFile("common.txt", "the and\r\n");
         const std::string words = WriteFile("words.txt", DistinctWords(600) + "the and\r\n");
         count(words)();
         host.captionHistory.clear();
         count(words)();
       },
       ElementsAre(Box("Common words loaded", "2 common words loaded from " + PathOf("common.txt"),
                       MessageButtons::Ok, MessageIcon::Information)),
       Listing(5, {manyWords.begin(), manyWords.begin() + 600}), true},
      // Refused runs.
      {[&] { CountFile("   "); EXPECT_EQ(settings.txbFile[0], ""); },
       refused(texts::kInputFileNotSpecifiedTitle, "Input file not specified."), "", false},
      {count(large, 0, large), refused(texts::kGenericErrorTitle, sameFile), processing, false},
      {count(large, 0, docx), refused(texts::kGenericErrorTitle,
                                      "Output file cannot be a 'docx' file."), processing, false},
      {count(large, 0, "", Answer::Yes, large),  // checked again after the question
       ElementsAre(::testing::_, Box(texts::kGenericErrorTitle, sameFile)), processing, false},
      // An escape among the first 3000 characters.
      {[&] { CountClipboard(AnsiToUtf16(Repeated("apple ", 500)).substr(0, 2999) + u"\x1B"); },
       refused("Invalid input",
               "The text on the clipboard does not consist\r\nsolely of natural language words."),
       earlier, false},
      {[&] { CountClipboard(u""); },
       ElementsAre(Box("Clipboard empty", "Clipboard is empty.", MessageButtons::Ok, kNoIcon)),
       earlier, false},
      {count(PathOf("gone.docx")),
       report("DoItFromFile error #53.\r\nDescription: The file cannot be opened."), processing,
       false},
      // A folder where the output file should go, or a folder that does not exist: refused
      // before counting.
      {count(large, 0, PathOf("taken.txt")),
       refused("Output file", "The output file\r\n" + PathOf("taken.txt") +
                                  "\r\ncannot be used: it is a folder."),
       earlier, false},
      {count(large, 0, PathOf("nowhere/list.txt")),
       report("DoIt error #75.\r\nDescription: No such file or directory"), earlier, false},
      // Settings that contradict each other: nothing starts, nothing changes.
      {[&] {
         settings.chkOnly7bitASCII = 1;
         count(large, 1)();
       },
       refused("Incompatible setting", "Scanning as UTF-8 is not compatible with\r\n'Allow only "
               "7-bit ASCII characters'.\r\n\r\nClear one of the two settings."),
       earlier, false},
  };
  // The clock stands still while the large-input question waits and is stopped before an error
  // report; while the words are counted, it runs and the window is busy.
  bool clockRanWhileAsked = false;
  host.onMessage = [&](const MessageBoxRequest& m) {
    if (m.text.rfind(kErrorAt, 0) == 0) clockRanWhileAsked |= host.timerRunning;
    if (m.title != "Large input file") return;
    clockRanWhileAsked |= ctx.run.blnElapsedTimeRunning || host.Visible(Control::TimeElapsed);
    TimerTick(ctx);  // a second that passes while the user thinks
  };
  host.onProcessEvents = [&] { EXPECT_TRUE(ctx.run.blnElapsedTimeRunning && host.busy); };
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases);
    settings = {};
    ctx.store.Reset();
    WriteFile("list.txt", earlierList);
    host.messages.clear();
    host.captionHistory.clear();
    host.output = earlier;
    host.SetCaption(Control::CountButton, AnsiString(texts::kCountButtonIdle));
    c.run();
    EXPECT_THAT(host.messages, c.boxes);
    EXPECT_THAT(host.output, c.textbox);
    EXPECT_EQ(std::tuple(ctx.run.blnWordsGot, ctx.run.lngSecondsElapsed, clockRanWhileAsked),
              std::tuple(c.listed, 0, false));
    EXPECT_EQ(ReadFile(list), c.written.empty() ? earlierList : kNoteSpaces + c.written);
    // A refused run counts nothing, and leaves the source on the input file.
    EXPECT_TRUE(c.listed || (ctx.store.lngNumWords() == 0 && settings.optInFile));
    // The progress bar reaches its end, redrawn only when it moves: at most once for each cell.
    const auto& bars = host.captionHistory[Control::TotalNumOccurrences];
    EXPECT_LE(bars.size(), 39u);
    EXPECT_TRUE(!c.listed || std::count(bars.begin(), bars.end(), Bar(36, ">", 0)) == 1);
    ExpectIdle();
  }
  EXPECT_EQ(ReadFile(large), TextOfSize(204801));  // never the output file of its own run
  EXPECT_FALSE(fs::exists(PathOf("nowhere")));
}

TEST_F(EngineTest, ClockAndProgressBarCaptions) {
  ctx.run.lngSecondsElapsed = 7;
  StartClock(ctx);
  while (ctx.run.lngSecondsElapsed < 5) TimerTick(ctx);
  EXPECT_EQ(host.captionHistory[Control::TimeElapsed].front(), "Time elapsed: 0s");
  EXPECT_EQ(host.Caption(Control::TimeElapsed), "Time elapsed: 5s");
  EXPECT_EQ(host.captionHistory[Control::Twirler],
            (std::vector<AnsiString>{"/", "-", "\\", "|", "/"}));
  EXPECT_EQ(host.Caption(Control::NumberOfWords), "Number of different words found so far: 0");

  SetTotalNumOccurrencesForFileProgressBar(ctx);
  EXPECT_EQ(host.Caption(Control::TotalNumOccurrences), Bar(0, "", 37));
  struct Case { double done, total; std::string caption; int16_t position; };
  for (const Case& c : {Case{1, 100, Bar(0, ">", 37), 0}, Case{2, 100, Bar(0, ">", 36), 1},  // 0.74
                        Case{1, 4, Bar(8, ">", 28), 9}, Case{36, 37, Bar(35, ">", 1), 36},  // 9.25
                        Case{100, 100, Bar(36, ">", 0), 37},
                        Case{2, 1, Bar(73, ">", 0), 74}}) {  // past the end: overruns
    UpdateProgressBar(ctx, c.done, c.total, 1);
    EXPECT_EQ(std::pair(host.Caption(Control::TotalNumOccurrences), ctx.run.intProgressBarPosition),
              std::pair(c.caption, c.position));
  }
  UpdateProgressBar(ctx, 10, 10, 10);  // a total at the minimum is drawn
  EXPECT_EQ(host.Caption(Control::TotalNumOccurrences), Bar(36, ">", 0));
}

TEST_F(EngineTest, FileProgressBarIsDrawnOnceForEachCellItReaches) {
  // Lines of 100 bytes: after line k of n the bar is at 37 k / n + 0.5 cells, rounded down; with
  // 37 lines each line moves it one cell on, with 74 every other line does.
  std::vector<AnsiString> expected{Bar(0, "", 37)};
  for (int cells = 1; cells <= 37; ++cells) expected.push_back(Bar(cells - 1, ">", 37 - cells));
  for (int lines : {37, 74}) {
    host.captionHistory.clear();
    CountFile(WriteFile("lines.txt", Repeated(Repeated("word ", 19) + "end\r\n", lines)));
    EXPECT_EQ(host.captionHistory[Control::TotalNumOccurrences], expected) << lines;
  }
}

TEST_F(EngineTest, StopEndsAtOnceBelow2000WordsAndAsksFrom2000On) {
  // Stop is pressed once, at the first event-loop turn at which the store holds stopAt words: the
  // words before that turn are distinct, and many lines that repeat the first one follow.
  const auto stopInput = [](int words) {
    return DistinctWords(words) + Repeated("kaaaa kaaaa kaaaa kaaaa\r\n", 3000) +
           DistinctWords(5, words);
  };
  const auto stopQuestion =
      Box(texts::kStopQuestionTitle, " 2000 different words have been found.\r\nDo you really "
          "wish to stop?", MessageButtons::YesNo, kNoIcon);
  const auto listQuestion = Box("Counting interrupted",
      "The operation was stopped before all words were counted.\r\n"
      "Do you wish to list the words which were found?", MessageButtons::YesNo, kNoIcon);
  // The report of a stop follows the words echoed so far; clipboard text is not echoed here, so
  // there the report is the textbox's only text. After No the words found stay in the store.
  struct Case { std::string text; bool fromFile; int32_t stopAt; std::deque<Answer> answers;
                Boxes boxes; int32_t stored; TextMatcher textbox; };
  for (const Case& c : {
           Case{stopInput(1999), true, 1999, {Answer::No}, ElementsAre(listQuestion), 1999,
                EndsWith("kacyw \r\n\r\nStopped with 1999 words found.")},
           Case{stopInput(2000), true, 2000, {Answer::No}, ElementsAre(stopQuestion), 2005,
                AllOf(StartsWith(Listing(5, {{12001, "kaaaa"}})), Not(HasSubstr("Stopped")))},
           Case{stopInput(2000), true, 2000, {Answer::Yes, Answer::Yes},
                ElementsAre(stopQuestion, listQuestion), 2000, EndsWith("2000       1  kacyx\r\n")},
           Case{Repeated("hello hello hello\r\n", 1000), false, 1, {Answer::No},
                ElementsAre(listQuestion), 1, "Stopped with 1 word found."}}) {
    host.messages.clear();
    host.output = "";
    host.answers = c.answers;
    settings.chkSuppressWords = c.fromFile ? 0 : 1;
    host.onProcessEvents = [this, stopAt = c.stopAt, pressed = false]() mutable {
      TimerTick(ctx);
      if (pressed || ctx.store.lngNumWords() != stopAt) return;
      RequestStop(ctx);
      pressed = true;
    };
    c.fromFile ? CountFile(WriteFile("words.txt", c.text)) : CountClipboard(AnsiToUtf16(c.text));
    EXPECT_THAT(host.messages, c.boxes);
    EXPECT_THAT(host.output, c.textbox);
    EXPECT_THAT(host.Caption(Control::TimeElapsed), StartsWith("Time elapsed: "));  // still shown
    // A stopped run's words may be listed, but they are not all the words.
    const bool stopped = c.stopAt < 2000 || c.answers.front() == Answer::Yes;
    EXPECT_EQ(std::tuple(ctx.store.lngNumWords(), ctx.run.blnWordsGot, ctx.run.blnStoppedAndListed,
                         ctx.run.blnStop),
              std::tuple(c.stored, !stopped, stopped && c.answers.back() == Answer::Yes, false));
    ExpectIdle();
  }
}

TEST_F(EngineTest, PasteItsLimitAndTheSizeLabel) {
  const std::u16string limit(100000, u'\u00E9');  // two bytes each in UTF-8, one character
  const auto told = [](std::string_view title, const AnsiString& text) -> Boxes {
    return ElementsAre(Box(title, text, MessageButtons::Ok, kNoIcon));
  };
  const AnsiString tooMuch = "There is too much text on the clipboard to paste into the textbox.";
  struct Case { std::u16string text; bool outOfMemory; std::vector<std::u16string> pasted;
                Boxes boxes; const char* size; };
  for (const Case& c : {
           Case{u"", false, {u""}, told("Clipboard empty", "Clipboard is empty."), ""},  // cleared
           Case{limit, false, {limit}, ::testing::IsEmpty(), "100,000 bytes on the clipboard."},
           Case{limit + u'x', false, {},
                told("Too much clipboard text",
                     "There are 100,001 characters in the text on the clipboard.\r\nThe maximum "
                     "permitted is 100,000.  If possible,\r\ncount word frequencies for this text "
                     "using an input file."),
                "100,001 bytes on the clipboard."},
           // Out of memory, below the limit, where the text could still be counted.
           Case{u"hello", true, {},
                told(texts::kGenericErrorTitle,
                     tooMuch + "\r\nIt may, however, still be possible to count word frequencies."),
                "5 bytes on the clipboard."}}) {
    host.messages.clear();
    host.pasted.clear();
    host.clipboard = c.text;
    host.onPaste = c.outOfMemory ? [] { throw std::bad_alloc(); } : std::function<void()>();
    PasteClipboardText(ctx, true);
    EXPECT_THAT(host.messages, c.boxes);
    EXPECT_EQ(std::tuple(host.pasted, host.Caption(Control::SizeOfClipboardContents)),
              std::tuple(c.pasted, c.size));
  }
  host.clipboard = u"";
  ShowClipboardSize(ctx);
  EXPECT_EQ(host.Caption(Control::SizeOfClipboardContents), "0 bytes on the clipboard.");
}

}  // namespace
}  // namespace wordtally::testing
