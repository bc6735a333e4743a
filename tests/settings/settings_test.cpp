// Settings files: the quoted text values, the file format, saving and loading, and the choice of
// the common-words file.
#include <filesystem>
#include <fstream>
#include <tuple>

#include <gtest/gtest.h>

#include "settings/common_words_choice.h"
#include "settings/quoted_text.h"
#include "settings/settings_file.h"
#include "settings/settings_format.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

namespace fs = std::filesystem;

// Every option differs from the default; texts hold blanks at the ends, "=", "#", ";",
// backslashes, quotes, line breaks, control and unassigned bytes and accented letters.
CountingSettings AwkwardSettings() {
  return {.chkCaseSignificant = 1, .chkAllowWordsWithHyphens = 0, .chkAllowWordsWithApostrophes = 1,
          .chkAllowWordsWithNumerals = 1, .chkDropFinalS = 1, .chkOnly7bitASCII = 1,
          .chkIgnoreNoVowel = 0, .chkIgnoreCommonWords = 1,
          .txbCommonWordsFile = "/home/zo\xEB/W\xF6rter/cwds_de.txt",
          .txbWordsToIgnore = " a=b #c ;d \\ \r\n caf\xE9 ", .chkIgnoreInfrequentWords = 1,
          .cboThresholdFrequency = 7, .chkAllowCommentMarkers = 0, .txbStartComment = {"", "\""},
          .txbEndComment = {"-->  ", "\t\\x41\\"}, .chkOutputWithCommas = 1,
          .chkWarnOnOverwrite = 1, .chkSaveStateOnQuit = 1, .optInFile = false, .chkUTF8 = 1,
          .chkSuppressWords = 1, .cboWordOrder = 0, .cboDisplayFormat = 9,
          .chkDisableOutputToFile = 1,
          .txbFile = {std::string("C:\\Texte\\Gr\xFC\xDF" "e\x81\x9D\x7F\x01.txt"),
                      "#out;put=.csv"},
          .strWordsToIgnore = {}};
}

class SettingsTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder.Valid()); }
  std::string Path(const std::string& name) const { return folder.Path() + "/" + name; }
  TemporaryFolder folder;
};

TEST_F(SettingsTest, QuotedTextEscapesOnlyWhatWouldBreakTheLineOrHideInItAndReadsItBack) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "\"\""},
      {" a=b #c ;d ", "\" a=b #c ;d \""},
      {"C:\\x\"y", "\"C:\\\\x\\\"y\""},
      {"1\r\n2\t3", "\"1\\r\\n2\\t3\""},
      {std::string("a\0b", 3), "\"a\\x00b\""},
      {"\x1F\x7F\x81\x8D\x8F\x90\x9D", "\"\\x1F\\x7F\\x81\\x8D\\x8F\\x90\\x9D\""},
      // Letters and signs of the code page are written as UTF-8: é is U+00E9, € (0x80) U+20AC.
      {"caf\xE9 \x80", "\"caf\xC3\xA9 \xE2\x82\xAC\""},
  };
  for (const auto& [text, quoted] : cases) EXPECT_EQ(QuoteSettingText(text), quoted);

  AnsiString text;
  AnsiString problem;
  // Hexadecimal digits may be small letters when the file was written by hand.
  ASSERT_TRUE(UnquoteSettingText("\"x\\x41\\xaf\\x7A\\\\\\\"\\t\"", text, problem)) << problem;
  EXPECT_EQ(text, "xA\xAFz\\\"\t");
  AnsiString everyByte;
  for (int c = 0; c < 256; ++c) everyByte += static_cast<char>(c);
  ASSERT_TRUE(UnquoteSettingText(QuoteSettingText(everyByte), text, problem)) << problem;
  EXPECT_EQ(text, everyByte);

  // A malformed value is refused with the reason, and the text is left alone.
  const std::pair<std::string, AnsiString> malformed[] = {
      {"abc", "is not text in double quotes"},
      {"", "is not text in double quotes"},
      {"\"abc", "has no closing double quote"},
      {"\"abc\\\"", "has no closing double quote"},
      {"\"abc\\", "ends inside an escape"},
      {"\"a\\qb\"", "has the unknown escape \\q"},
      {"\"\\x4\"", "has an escape \\x without two hexadecimal digits"},
      {"\"\\xg1\"", "has an escape \\x without two hexadecimal digits"},  // past the small f
      {"\"a\" b", "has more text after the closing double quote"},
      {"\"\xC3\"", "is not UTF-8 text in the Windows-1252 character set"},
      {"\"\xCE\xA9\"", "is not UTF-8 text in the Windows-1252 character set"},  // Greek Omega
  };
  for (const auto& [quoted, expectedProblem] : malformed) {
    text = "unchanged";
    EXPECT_FALSE(UnquoteSettingText(quoted, text, problem)) << quoted;
    EXPECT_EQ(problem, expectedProblem) << quoted;
    EXPECT_EQ(text, "unchanged") << quoted;
  }
}

// The settings text stands for the whole stored record (strWordsToIgnore is derived, not
// stored) in the tests below it.
TEST_F(SettingsTest, FormatWritesHeaderVersionAndEveryOptionInRecordOrder) {
  EXPECT_EQ(FormatSettings(CountingSettings{}),
            "[Wordtally settings]\n"
            "# Text values stand in double quotes; \\\\ \\\" \\r \\n \\t and \\xHH are escapes.\n"
            "version=1\nchkCaseSignificant=0\nchkAllowWordsWithHyphens=1\n"
            "chkAllowWordsWithApostrophes=0\nchkAllowWordsWithNumerals=0\nchkDropFinalS=0\n"
            "chkOnly7bitASCII=0\nchkIgnoreNoVowel=1\nchkIgnoreCommonWords=0\n"
            "txbCommonWordsFile=\"\"\ntxbWordsToIgnore=\"\"\nchkIgnoreInfrequentWords=0\n"
            "cboThresholdFrequency=0\nchkAllowCommentMarkers=1\ntxbStartComment0=\"/*\"\n"
            "txbEndComment0=\"*/\"\ntxbStartComment1=\"//\"\ntxbEndComment1=\"\"\n"
            "chkOutputWithCommas=0\nchkWarnOnOverwrite=0\nchkSaveStateOnQuit=0\noptInFile=1\n"
            "chkUTF8=0\nchkSuppressWords=0\ncboWordOrder=1\ncboDisplayFormat=0\n"
            "chkDisableOutputToFile=0\ntxbFile0=\"\"\ntxbFile1=\"\"\n");
}

TEST_F(SettingsTest, FormatReadsKeysLooselyKeepsMissingOnesAndIgnoresUnknownOnes) {
  CountingSettings settings;
  settings.chkDropFinalS = 1;  // not in the text: stays as the record had it
  const SettingsParseResult result = ParseSettings(
      "\xEF\xBB\xBF[Wordtally settings]\r\n; written by hand\r\n\r\n  version = 1  \r\n"
      "# chkUTF8=0\r\n  chkUTF8 = 1\t\r\nfontSize=twelve\r\ncboDisplayFormat=9\r\n"
      "cboDisplayFormat=4\r\ntxbFile1 = \"out put=1.csv\" \r\ntxbStartComment1=\"\"",
      settings);
  EXPECT_EQ(result.verdict, SettingsVerdict::Accepted) << result.detail;

  CountingSettings expected;
  expected.chkDropFinalS = 1;
  expected.chkUTF8 = 1;
  expected.cboDisplayFormat = 4;  // the later line wins
  expected.txbFile[1] = "out put=1.csv";
  expected.txbStartComment[1] = "";
  EXPECT_EQ(FormatSettings(settings), FormatSettings(expected));
}

TEST_F(SettingsTest, FormatRefusesForeignDamagedAndNewerTextsWithoutChangingTheRecord) {
  using enum SettingsVerdict;
  const std::string header = "[Wordtally settings]\nversion=1\n";
  const struct { std::string text; SettingsVerdict verdict; AnsiString detail; } cases[] = {
      {"", Foreign, ""},
      {"\n[Wordtally settings]\nversion=1\n", Foreign, ""},
      {"[Wordtally settings]\nchkUTF8=1\n", Damaged, "the version line is missing"},
      {"[Wordtally settings]\nversion=abc\n", Damaged,
       "line 2: the version must be a positive whole number, not \"abc\""},
      {header + "chkUTF8=0\nchkDropFinalS=2\n", Damaged,
       "line 4: chkDropFinalS must be 0 or 1, not \"2\""},
      {header + "optInFile=-1\n", Damaged, "line 3: optInFile must be 0 or 1, not \"-1\""},
      {header + "chkUTF8=\n", Damaged, "line 3: chkUTF8 must be 0 or 1, not \"\""},
      {header + "cboThresholdFrequency=8\n", Damaged,
       "line 3: cboThresholdFrequency must be a whole number from 0 to 7, not \"8\""},
      {header + "cboWordOrder=1.0\n", Damaged, "line 3: cboWordOrder must be 0 or 1, not \"1.0\""},
      {header + "txbWordsToIgnore=and of\n", Damaged,
       "line 3: the value of txbWordsToIgnore is not text in double quotes"},
      {header + "\nchkUTF8=1\nsome words\n", Damaged, "line 5: this is not a key=value line"},
      {header + "=1\n", Damaged, "line 3: this is not a key=value line"},
  };
  for (const auto& c : cases) {
    CountingSettings settings = AwkwardSettings();
    const SettingsParseResult result = ParseSettings(c.text, settings);
    EXPECT_EQ(result.verdict, c.verdict) << c.text;
    EXPECT_EQ(result.detail, c.detail) << c.text;
    EXPECT_EQ(FormatSettings(settings), FormatSettings(AwkwardSettings()));
  }
}

TEST_F(SettingsTest, FileKeepsAwkwardValuesThroughARoundTrip) {
  const std::string path = Path("new folder/my settings.qzl");
  AnsiString error;
  ASSERT_TRUE(SaveSettingsFile(path, CountingSettings{}, error)) << error;
  ASSERT_TRUE(SaveSettingsFile(path, AwkwardSettings(), error)) << error;  // replaces the first
  EXPECT_FALSE(fs::exists(path + ".tmp"));

  CountingSettings loaded;
  loaded.strWordsToIgnore = " old ";
  ASSERT_TRUE(LoadSettingsFile(path, loaded, error)) << error;
  EXPECT_EQ(FormatSettings(loaded), FormatSettings(AwkwardSettings()));
  EXPECT_EQ(loaded.strWordsToIgnore, " old ");  // prepared again by the caller, not loaded
}

TEST_F(SettingsTest, FileRefusedOnLoadOrSaveExplainsAndChangesNothing) {
  const std::string path = Path("s.qzl");
  const AnsiString shown = "\"" + path + "\"";
  const AnsiString unchanged = "\r\n\r\nNo setting was changed.";
  const struct { const char* content; AnsiString error; } cases[] = {  // content nullptr: no file
      {nullptr, "The settings file " + shown + " was not found."},
      {"Dear diary,\nversion=1\n",
       "The file " + shown + " is not a Wordtally settings file." + unchanged},
      {"[Wordtally settings]\nversion=1\nchkUTF8=abc\n",
       "The settings file " + shown +
           " is damaged:\r\nline 3: chkUTF8 must be 0 or 1, not \"abc\"." + unchanged},
      {"[Wordtally settings]\nversion=3\nchkUTF8=7\n",
       "The settings file " + shown +
           " has format version 3, which this version of Wordtally cannot read." + unchanged},
  };
  for (const auto& c : cases) {
    if (c.content != nullptr) std::ofstream(path, std::ios::binary) << c.content;
    CountingSettings settings = AwkwardSettings();
    AnsiString error;
    EXPECT_FALSE(LoadSettingsFile(path, settings, error));
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(FormatSettings(settings), FormatSettings(AwkwardSettings()));
  }

  // A folder where the file should go: the save fails and the folder stays.
  fs::create_directory(Path("blocked.qzl"));
  AnsiString error;
  EXPECT_FALSE(SaveSettingsFile(Path("blocked.qzl"), AwkwardSettings(), error));
  EXPECT_TRUE(error.starts_with("The settings could not be saved to \"" + Path("blocked.qzl") +
                                "\" (")) << error;
  EXPECT_TRUE(fs::is_directory(Path("blocked.qzl")));
  EXPECT_FALSE(fs::exists(Path("blocked.qzl.tmp")));
}

TEST_F(SettingsTest, CommonWordsFilesByLanguageAreKnownByCodeAndNameAndFoundBesideTheProgram) {
  const std::tuple<std::string_view, std::string_view, std::string_view> expected[] = {
      {"en", "English", "cwds_en.txt"},       {"de", "German", "cwds_de.txt"},
      {"es", "Spanish", "cwds_es.txt"},       {"pt", "Portuguese", "cwds_pt.txt"},
      {"it", "Italian", "cwds_it.txt"},       {"fr", "French", "cwds_fr.txt"},
      {"all", "All six languages", "cwds_en_de_es_pt_it_fr.txt"},
  };
  const auto languages = CommonWordsLanguages();
  ASSERT_EQ(languages.size(), std::size(expected));
  for (size_t i = 0; i < languages.size(); ++i) {
    const CommonWordsLanguage& language = languages[i];
    EXPECT_EQ(std::tuple(language.code, language.displayName, language.fileName), expected[i]);
    EXPECT_EQ(FindCommonWordsLanguage(language.code), &language);
    // The file is recognised by its name, with or without a folder.
    const std::string folder = i % 2 == 1 ? "/usr/lib/wordtally/" : "";
    EXPECT_EQ(LanguageOfCommonWordsFile(folder + std::string(language.fileName)), &language);
  }
  for (const char* code : {"nl", ""}) EXPECT_EQ(FindCommonWordsLanguage(code), nullptr);
  for (const char* path : {"/tmp/cwds_en.txt.bak", "/tmp/my_cwds_en.txt", ""})
    EXPECT_EQ(LanguageOfCommonWordsFile(path), nullptr) << path;

  // The file is looked for beside the program, then in the data folder above it, then in the
  // installed data folder.
  const std::string installed =
      (fs::path(Path("bin")) / WORDTALLY_DATA_DIR_FROM_BIN_DIR).lexically_normal().string();
  fs::create_directories(Path("bin/cwds_it.txt"));  // a folder is not the file
  fs::create_directory(Path("data"));
  fs::create_directories(installed);
  for (const std::string& file : {Path("bin/cwds_en.txt"), Path("data/cwds_en.txt"),
                                  Path("data/cwds_de.txt"), installed + "/cwds_de.txt",
                                  installed + "/cwds_pt.txt"}) {
    std::ofstream(file) << "the and of\n";
  }
  EXPECT_EQ(FindCommonWordsFile(Path("bin"), "cwds_en.txt"), Path("bin/cwds_en.txt"));
  EXPECT_EQ(FindCommonWordsFile(Path("bin"), "cwds_de.txt"), Path("data/cwds_de.txt"));
  EXPECT_EQ(FindCommonWordsFile(Path("bin"), "cwds_pt.txt"), installed + "/cwds_pt.txt");
  EXPECT_EQ(FindCommonWordsFile(Path("bin"), "cwds_fr.txt"), "");
  EXPECT_EQ(FindCommonWordsFile(Path("bin"), "cwds_it.txt"), "");
}

}  // namespace
}  // namespace wordtally
