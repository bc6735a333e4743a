#pragma once
// Helpers shared by the settings tests: a record with every option away from its default and
// full of awkward text, and a comparison of every stored option.
#include <gtest/gtest.h>

#include "engine/counting_settings.h"
#include "settings/settings_format.h"

namespace wordtally::testing {

// Every option differs from the default; texts hold blanks at the ends, "=", "#", ";",
// backslashes, quotes, line breaks, control and unassigned bytes and accented letters.
inline CountingSettings AwkwardSettings() {
  return {.chkCaseSignificant = 1, .chkAllowWordsWithHyphens = 0,
          .chkAllowWordsWithApostrophes = 1, .chkAllowWordsWithNumerals = 1, .chkDropFinalS = 1,
          .chkOnly7bitASCII = 1, .chkIgnoreNoVowel = 0, .chkIgnoreCommonWords = 1,
          .txbCommonWordsFile = "/home/zo\xEB/W\xF6rter/cwds_de.txt",
          .txbWordsToIgnore = " a=b #c ;d \\ \r\n caf\xE9 ", .chkIgnoreInfrequentWords = 1,
          .cboThresholdFrequency = 7, .chkAllowCommentMarkers = 0,
          .txbStartComment = {"", "\""}, .txbEndComment = {"-->  ", "\t\\x41\\"},
          .chkOutputWithCommas = 1, .chkWarnOnOverwrite = 1, .chkSaveStateOnQuit = 1,
          .optInFile = false, .chkUTF8 = 1, .chkSuppressWords = 1, .cboWordOrder = 0,
          .cboDisplayFormat = 9, .chkDisableOutputToFile = 1,
          .txbFile = {std::string("C:\\Texte\\Gr\xFC\xDF"
                                  "e\x81\x9D\x7F\x01.txt"),
                      "#out;put=.csv"},
          .strWordsToIgnore = {}};
}

// Compares every stored option (strWordsToIgnore is derived and not stored) through the settings
// text, whose every line the format test checks by hand.
inline void ExpectSameSettings(const CountingSettings& expected, const CountingSettings& actual) {
  EXPECT_EQ(FormatSettings(expected), FormatSettings(actual));
}

}  // namespace wordtally::testing
