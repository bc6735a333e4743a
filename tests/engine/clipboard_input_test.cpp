#include "engine/clipboard_input.h"

#include <new>
#include <string>

#include <gtest/gtest.h>

#include "engine/program_texts.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

constexpr std::string_view kInvalidInput =
    "The text on the clipboard does not consist\r\nsolely of natural language words.";
constexpr std::string_view kTooMuchToPaste =
    "There is too much text on the clipboard to paste into the textbox.";

using ClipboardTest = WholeRunTest;

TEST_F(ClipboardTest, PasteStepItsLimitAndTheSizeLabel) {
  host.SetCaption(Control::Status, "Ready.");
  PasteClipboardText(ctx, true);
  EXPECT_EQ(host.Caption(Control::Status), "");
  ExpectOneMessage("Clipboard empty", "Clipboard is empty.", MessageButtons::Ok, MessageIcon::None);
  EXPECT_EQ(host.pasted, std::vector<std::u16string>{u""});  // the text box is cleared
  ShowClipboardSize(ctx);
  EXPECT_EQ(host.Caption(Control::SizeOfClipboardContents), "0 bytes on the clipboard.");

  host.messages.clear();
  host.pasted.clear();
  host.clipboard = std::u16string(100000, u'\u00E9');  // two bytes each in UTF-8, one character
  PasteClipboardText(ctx, true);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.pasted, std::vector<std::u16string>{host.clipboard});
  EXPECT_EQ(host.Caption(Control::SizeOfClipboardContents), "100,000 bytes on the clipboard.");

  host.pasted.clear();
  host.clipboard += u'x';
  PasteClipboardText(ctx, true);
  EXPECT_TRUE(host.pasted.empty());
  ExpectOneMessage("Too much clipboard text",
                   "There are 100,001 characters in the text on the clipboard.\r\n"
                   "The maximum permitted is 100,000.  If possible,\r\n"
                   "count word frequencies for this text using an input file.",
                   MessageButtons::Ok, MessageIcon::None);
  EXPECT_EQ(host.Caption(Control::SizeOfClipboardContents), "100,001 bytes on the clipboard.");

  // Without pasting, only the size is shown.
  host.messages.clear();
  host.clipboard = u"hello";
  PasteClipboardText(ctx, false);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.pasted.empty());
  EXPECT_EQ(host.Caption(Control::SizeOfClipboardContents), "5 bytes on the clipboard.");
}

TEST_F(ClipboardTest, PasteThatRunsOutOfMemory) {
  host.onPaste = [] { throw std::bad_alloc(); };
  host.clipboard = u"hello";
  PasteClipboardText(ctx, true);
  ExpectOneMessage(texts::kGenericErrorTitle,
                   AnsiString(kTooMuchToPaste) +
                       "\r\nIt may, however, still be possible to count word frequencies.",
                   MessageButtons::Ok);
  // At the limit the text could not be counted from the clipboard either: no second line.
  host.messages.clear();
  host.clipboard = std::u16string(100000, u'x');
  PasteClipboardText(ctx, true);
  ExpectOneMessage(texts::kGenericErrorTitle, kTooMuchToPaste, MessageButtons::Ok);
}

TEST(IsPlainText, LooksAtTheLowByteOfTheFirstCharacters) {
  EXPECT_TRUE(IsPlainText(u"", 3000, true));
  EXPECT_TRUE(IsPlainText(u"one\ttwo\r\nthree\fend\n", 3000, true));
  EXPECT_FALSE(IsPlainText(u"one\ttwo", 3000, false));
  EXPECT_FALSE(IsPlainText(u"line\r\n", 3000, false));
  EXPECT_TRUE(IsPlainText(u"plain words", 3000, false));
  for (char16_t bad : {u'\0', u'\x1B', u'\x01', u'\x1F', u'\u0101', u'\u2019'}) {
    SCOPED_TRACE(static_cast<int>(bad));
    EXPECT_FALSE(IsPlainText(u"word" + std::u16string(1, bad), 3000, true));
  }
  EXPECT_TRUE(IsPlainText(u"\u0141\u00E9\u20AC", 3000, true));  // low bytes 41, E9, AC

  std::u16string text(3001, u'a');
  text[3000] = u'\x1B';  // character 3001 is not looked at
  EXPECT_TRUE(IsPlainText(text, 3000, true));
  EXPECT_FALSE(IsPlainText(text, 0, true));  // below 1: every character
  EXPECT_FALSE(IsPlainText(text, 3001, true));
  text[2999] = u'\0';
  EXPECT_FALSE(IsPlainText(text, 3000, true));
}

TEST_F(ClipboardTest, RunFromTheClipboardAndItsRefusals) {
  CountClipboard(u"Apple banana apple\r\ncherry apple banana Caf\u00E9 caf\u00E9");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output, RankFreqWordListing(6, {"      1       3  apple", "      2       2  banana",
                                                 "      3       2  caf\xE9",
                                                 "      4       1  cherry"}));
  EXPECT_TRUE(ctx.run.blnWordsGot);
  ExpectIdle();

  // An escape character as character 3001 is not looked at, and only separates words.
  std::u16string apples;
  for (int i = 0; i < 500; ++i) apples += u"apple ";
  CountClipboard(apples + u"\x1B banana");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.output,
            RankFreqWordListing(6, {"      1     500  apple", "      2       1  banana"}));

  struct Case {
    std::u16string text;
    std::string_view title;
    std::string_view message;
    MessageIcon icon;
  };
  for (const Case& c : {Case{apples.substr(0, 2999) + u"\x1B banana", "Invalid input",
                             kInvalidInput, MessageIcon::Exclamation},
                        Case{std::u16string(u"apple\0banana", 12), "Invalid input", kInvalidInput,
                             MessageIcon::Exclamation},
                        Case{u"", "Clipboard empty", "Clipboard is empty.", MessageIcon::None}}) {
    SCOPED_TRACE(c.title);
    host.messages.clear();
    host.output = "text of an earlier run";
    ctx.store.Reset();
    CountClipboard(c.text);
    ExpectOneMessage(c.title, c.message, MessageButtons::Ok, c.icon);
    ExpectRefused();
    EXPECT_TRUE(settings.optInFile);  // the source goes back to the input file
  }
}

}  // namespace
}  // namespace wordtally::testing
