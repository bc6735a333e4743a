#include <gtest/gtest.h>

#include "engine/counting_settings.h"
#include "tests/common/scripted_host.h"

namespace wordtally::testing {
namespace {

TEST(CountingSettings, DefaultsLeaveCommonWordsAndWordsToIgnoreAlone) {
  CountingSettings s;
  s.chkCaseSignificant = 1;
  s.chkIgnoreNoVowel = s.chkAllowCommentMarkers = 0;
  s.txbStartComment = {"{", "["};
  s.cboThresholdFrequency = 5;
  s.chkIgnoreCommonWords = 1;
  s.txbCommonWordsFile = "/x/cwds_en.txt";
  s.txbWordsToIgnore = "foo";
  SetDefaultValues(s);
  EXPECT_EQ(s.chkCaseSignificant, 0);
  EXPECT_EQ(s.chkIgnoreNoVowel, 1);
  EXPECT_EQ(s.txbStartComment, (decltype(s.txbStartComment){"/*", "//"}));
  EXPECT_EQ(s.txbEndComment, (decltype(s.txbEndComment){"*/", ""}));
  EXPECT_EQ(NumCommentMarkers(s), 2);
  EXPECT_EQ(ThresholdFrequency(s), 2);
  EXPECT_EQ(s.chkIgnoreCommonWords, 1);
  EXPECT_EQ(s.txbCommonWordsFile, "/x/cwds_en.txt");
  EXPECT_EQ(s.txbWordsToIgnore, "foo");

  EXPECT_EQ(ThresholdItems(), (std::vector<AnsiString>{"2", "3", "4", "5", "6", "7", "8", "9"}));
  s.cboThresholdFrequency = 7;
  EXPECT_EQ(ThresholdFrequency(s), 9);
  s.chkAllowCommentMarkers = 0;
  EXPECT_EQ(NumCommentMarkers(s), 0);

  EXPECT_EQ(SetAllowedExtraChars(s), "-");
  s.chkAllowWordsWithHyphens = 0;
  EXPECT_EQ(SetAllowedExtraChars(s), "");
  s.chkAllowWordsWithHyphens = s.chkAllowWordsWithApostrophes = s.chkAllowWordsWithNumerals = 1;
  EXPECT_EQ(SetAllowedExtraChars(s), "-'\x91" "0123456789");
}

TEST(CountingSettings, WordsToIgnoreAreTidiedAndChecked) {
  ScriptedHost host;
  CountingSettings s;
  s.txbWordsToIgnore = "  The, of  AND ";
  txbWordsToIgnore_LostFocus(s, host);
  EXPECT_EQ(s.txbWordsToIgnore, "and of the");
  EXPECT_EQ(s.strWordsToIgnore, " and of the ");
  s.txbWordsToIgnore = "   ";
  txbWordsToIgnore_LostFocus(s, host);
  EXPECT_EQ(s.strWordsToIgnore, "");
  // Capitals with accents are lowered by the code page's table.
  s.txbWordsToIgnore = "\xC9T\xC9 \x8A" "A";
  txbWordsToIgnore_LostFocus(s, host);
  EXPECT_EQ(s.txbWordsToIgnore, "\xE9t\xE9 \x9A" "a");
  EXPECT_EQ(LowerCaseLatin1("\x8A\xC9\xC6\x8C\xDEZ\x9F"), "\x9A\xE9\xE6\x9C\xFEz\xFF");
  EXPECT_TRUE(host.messages.empty());

  s.txbWordsToIgnore = "don't";
  txbWordsToIgnore_LostFocus(s, host);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].title, "Character not allowed");
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  const AnsiString notSet = " occurs in some word to ignore\r\n"
                            "but is not currently set as a character allowed in a word.";
  EXPECT_EQ(host.messages[0].text, "The character '" + notSet);

  s.chkAllowWordsWithApostrophes = 1;
  EXPECT_TRUE(CheckAllowedExtraChars(s, host));
  s.txbWordsToIgnore = "semi;colon";
  EXPECT_FALSE(CheckAllowedExtraChars(s, host));
  EXPECT_EQ(host.messages.back().text,
            "The character ; occurs in some word to ignore\r\n"
            "but is not a character allowed in a word.");
  s.txbWordsToIgnore = "a,b";  // not tidied: the comma reaches the check
  EXPECT_FALSE(CheckAllowedExtraChars(s, host));
  EXPECT_EQ(host.messages.back().text,
            "The character ," + notSet +
                "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.");
}

}  // namespace
}  // namespace wordtally::testing
