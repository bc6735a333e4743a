#pragma once
// Helpers shared by the settings tests: a record with every option away from its default and
// full of awkward text, and a field-by-field comparison.
#include <gtest/gtest.h>

#include "engine/counting_settings.h"

namespace wordtally::testing {

// Every option differs from the default; texts hold blanks at the ends, "=", "#", ";",
// backslashes, quotes, line breaks, control and unassigned bytes and accented letters.
inline CountingSettings AwkwardSettings() {
  CountingSettings s;
  s.chkCaseSignificant = 1;
  s.chkAllowWordsWithHyphens = 0;
  s.chkAllowWordsWithApostrophes = 1;
  s.chkAllowWordsWithNumerals = 1;
  s.chkDropFinalS = 1;
  s.chkOnly7bitASCII = 1;
  s.chkIgnoreNoVowel = 0;
  s.chkIgnoreCommonWords = 1;
  s.txbCommonWordsFile = "/home/zo\xEB/W\xF6rter/cwds_de.txt";
  s.txbWordsToIgnore = " a=b #c ;d \\ \r\n caf\xE9 ";
  s.chkIgnoreInfrequentWords = 1;
  s.cboThresholdFrequency = 7;
  s.chkAllowCommentMarkers = 0;
  s.txbStartComment = {"", "\""};
  s.txbEndComment = {"-->  ", "\t\\x41\\"};
  s.chkOutputWithCommas = 1;
  s.chkWarnOnOverwrite = 1;
  s.chkSaveStateOnQuit = 1;
  s.optInFile = false;
  s.chkUTF8 = 1;
  s.chkSuppressWords = 1;
  s.cboWordOrder = 0;
  s.cboDisplayFormat = 9;
  s.chkDisableOutputToFile = 1;
  s.txbFile = {std::string("C:\\Texte\\Gr\xFC\xDF"
                           "e\x81\x9D\x7F\x01.txt"),
               "#out;put=.csv"};
  return s;
}

// Compares every stored option (strWordsToIgnore is derived and not stored).
inline void ExpectSameSettings(const CountingSettings& expected, const CountingSettings& actual) {
  EXPECT_EQ(expected.chkCaseSignificant, actual.chkCaseSignificant);
  EXPECT_EQ(expected.chkAllowWordsWithHyphens, actual.chkAllowWordsWithHyphens);
  EXPECT_EQ(expected.chkAllowWordsWithApostrophes, actual.chkAllowWordsWithApostrophes);
  EXPECT_EQ(expected.chkAllowWordsWithNumerals, actual.chkAllowWordsWithNumerals);
  EXPECT_EQ(expected.chkDropFinalS, actual.chkDropFinalS);
  EXPECT_EQ(expected.chkOnly7bitASCII, actual.chkOnly7bitASCII);
  EXPECT_EQ(expected.chkIgnoreNoVowel, actual.chkIgnoreNoVowel);
  EXPECT_EQ(expected.chkIgnoreCommonWords, actual.chkIgnoreCommonWords);
  EXPECT_EQ(expected.txbCommonWordsFile, actual.txbCommonWordsFile);
  EXPECT_EQ(expected.txbWordsToIgnore, actual.txbWordsToIgnore);
  EXPECT_EQ(expected.chkIgnoreInfrequentWords, actual.chkIgnoreInfrequentWords);
  EXPECT_EQ(expected.cboThresholdFrequency, actual.cboThresholdFrequency);
  EXPECT_EQ(expected.chkAllowCommentMarkers, actual.chkAllowCommentMarkers);
  EXPECT_EQ(expected.txbStartComment, actual.txbStartComment);
  EXPECT_EQ(expected.txbEndComment, actual.txbEndComment);
  EXPECT_EQ(expected.chkOutputWithCommas, actual.chkOutputWithCommas);
  EXPECT_EQ(expected.chkWarnOnOverwrite, actual.chkWarnOnOverwrite);
  EXPECT_EQ(expected.chkSaveStateOnQuit, actual.chkSaveStateOnQuit);
  EXPECT_EQ(expected.optInFile, actual.optInFile);
  EXPECT_EQ(expected.chkUTF8, actual.chkUTF8);
  EXPECT_EQ(expected.chkSuppressWords, actual.chkSuppressWords);
  EXPECT_EQ(expected.cboWordOrder, actual.cboWordOrder);
  EXPECT_EQ(expected.cboDisplayFormat, actual.cboDisplayFormat);
  EXPECT_EQ(expected.chkDisableOutputToFile, actual.chkDisableOutputToFile);
  EXPECT_EQ(expected.txbFile, actual.txbFile);
}

}  // namespace wordtally::testing
