#include "settings/settings_format.h"

#include <gtest/gtest.h>

#include "tests/settings/settings_test_support.h"

namespace wordtally {
namespace {

using testing::AwkwardSettings;
using testing::ExpectSameSettings;

TEST(SettingsFormat, WritesHeaderVersionAndEveryOptionInRecordOrder) {
  const std::string expected =
      "[Wordtally settings]\n"
      "# Text values stand in double quotes; \\\\ \\\" \\r \\n \\t and \\xHH are escapes.\n"
      "version=1\n"
      "chkCaseSignificant=0\n"
      "chkAllowWordsWithHyphens=1\n"
      "chkAllowWordsWithApostrophes=0\n"
      "chkAllowWordsWithNumerals=0\n"
      "chkDropFinalS=0\n"
      "chkOnly7bitASCII=0\n"
      "chkIgnoreNoVowel=1\n"
      "chkIgnoreCommonWords=0\n"
      "txbCommonWordsFile=\"\"\n"
      "txbWordsToIgnore=\"\"\n"
      "chkIgnoreInfrequentWords=0\n"
      "cboThresholdFrequency=0\n"
      "chkAllowCommentMarkers=1\n"
      "txbStartComment0=\"/*\"\n"
      "txbEndComment0=\"*/\"\n"
      "txbStartComment1=\"//\"\n"
      "txbEndComment1=\"\"\n"
      "chkOutputWithCommas=0\n"
      "chkWarnOnOverwrite=0\n"
      "chkSaveStateOnQuit=0\n"
      "optInFile=1\n"
      "chkUTF8=0\n"
      "chkSuppressWords=0\n"
      "cboWordOrder=1\n"
      "cboDisplayFormat=0\n"
      "chkDisableOutputToFile=0\n"
      "txbFile0=\"\"\n"
      "txbFile1=\"\"\n";
  EXPECT_EQ(FormatSettings(CountingSettings{}), expected);

  const std::string awkward = FormatSettings(AwkwardSettings());
  EXPECT_NE(awkward.find("\noptInFile=0\n"), std::string::npos);
  EXPECT_NE(awkward.find("\ncboThresholdFrequency=7\n"), std::string::npos);
  EXPECT_NE(awkward.find("\ntxbEndComment1=\"\\t\\\\x41\\\\\"\n"), std::string::npos);
}

TEST(SettingsFormat, ReadsKeysLooselyKeepsMissingOnesAndIgnoresUnknownOnes) {
  CountingSettings settings;
  settings.chkDropFinalS = 1;  // not in the file: must stay as the record had it
  const std::string text =
      "\xEF\xBB\xBF[Wordtally settings]\r\n"
      "; written by hand\r\n"
      "\r\n"
      "  version = 1  \r\n"
      "# chkUTF8=0\r\n"
      "  chkUTF8 = 1\t\r\n"
      "fontSize=twelve\r\n"
      "cboDisplayFormat=9\r\n"
      "cboDisplayFormat=4\r\n"
      "txbFile1 = \"out put=1.csv\" \r\n"
      "txbStartComment1=\"\"";
  const SettingsParseResult result = ParseSettings(text, settings);
  EXPECT_EQ(result.verdict, SettingsVerdict::Accepted) << result.detail;

  CountingSettings expected;
  expected.chkDropFinalS = 1;
  expected.chkUTF8 = 1;
  expected.cboDisplayFormat = 4;  // the later line wins
  expected.txbFile[1] = "out put=1.csv";
  expected.txbStartComment[1] = "";
  ExpectSameSettings(expected, settings);
}

TEST(SettingsFormat, RefusesForeignDamagedAndNewerFilesWithoutChangingTheRecord) {
  const std::string header = "[Wordtally settings]\nversion=1\n";
  const struct {
    std::string text;
    SettingsVerdict verdict;
    AnsiString detail;
  } cases[] = {
      {"", SettingsVerdict::Foreign, ""},
      {"chkUTF8=1\n", SettingsVerdict::Foreign, ""},
      {"[Other program]\nversion=1\n", SettingsVerdict::Foreign, ""},
      {"\n[Wordtally settings]\nversion=1\n", SettingsVerdict::Foreign, ""},
      {"[Wordtally settings]\nchkUTF8=1\n", SettingsVerdict::Damaged,
       "the version line is missing"},
      {"[Wordtally settings]\nversion=abc\n", SettingsVerdict::Damaged,
       "line 2: the version must be a positive whole number, not \"abc\""},
      {"[Wordtally settings]\nversion=2\nchkUTF8=7\n", SettingsVerdict::UnsupportedVersion, "2"},
      {header + "chkUTF8=abc\n", SettingsVerdict::Damaged,
       "line 3: chkUTF8 must be 0 or 1, not \"abc\""},
      {header + "chkUTF8=0\nchkDropFinalS=2\n", SettingsVerdict::Damaged,
       "line 4: chkDropFinalS must be 0 or 1, not \"2\""},
      {header + "optInFile=-1\n", SettingsVerdict::Damaged,
       "line 3: optInFile must be 0 or 1, not \"-1\""},
      {header + "chkUTF8=\n", SettingsVerdict::Damaged, "line 3: chkUTF8 must be 0 or 1, not \"\""},
      {header + "cboThresholdFrequency=8\n", SettingsVerdict::Damaged,
       "line 3: cboThresholdFrequency must be a whole number from 0 to 7, not \"8\""},
      {header + "cboDisplayFormat=10\n", SettingsVerdict::Damaged,
       "line 3: cboDisplayFormat must be a whole number from 0 to 9, not \"10\""},
      {header + "cboWordOrder=1.0\n", SettingsVerdict::Damaged,
       "line 3: cboWordOrder must be 0 or 1, not \"1.0\""},
      {header + "txbFile0=\"a\\\n", SettingsVerdict::Damaged,
       "line 3: the value of txbFile0 ends inside an escape"},
      {header + "txbWordsToIgnore=and of\n", SettingsVerdict::Damaged,
       "line 3: the value of txbWordsToIgnore is not text in double quotes"},
      {header + "\nchkUTF8=1\nsome words\n", SettingsVerdict::Damaged,
       "line 5: this is not a key=value line"},
      {header + "=1\n", SettingsVerdict::Damaged, "line 3: this is not a key=value line"},
  };
  for (const auto& c : cases) {
    CountingSettings settings = AwkwardSettings();
    const SettingsParseResult result = ParseSettings(c.text, settings);
    EXPECT_EQ(result.verdict, c.verdict) << c.text;
    EXPECT_EQ(result.detail, c.detail) << c.text;
    ExpectSameSettings(AwkwardSettings(), settings);
  }
}

}  // namespace
}  // namespace wordtally
