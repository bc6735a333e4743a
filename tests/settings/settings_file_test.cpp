#include "settings/settings_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/file_utils.h"
#include "tests/settings/settings_test_support.h"

namespace wordtally {
namespace {

using testing::AwkwardSettings;
using testing::ExpectSameSettings;

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteAll(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

TEST(SettingsFile, AwkwardValuesSurviveARoundTripThroughARealFile) {
  TemporaryFolder folder;
  ASSERT_TRUE(folder.Valid());
  const std::string path = folder.Path() + "/new folder/my settings.qzl";
  AnsiString error;

  ASSERT_TRUE(SaveSettingsFile(path, CountingSettings{}, error)) << error;
  ASSERT_TRUE(SaveSettingsFile(path, AwkwardSettings(), error)) << error;  // replaces the first
  const std::string text = ReadAll(path);
  EXPECT_NE(text.find("\ntxbWordsToIgnore=\" a=b #c ;d \\\\ \\r\\n caf\xC3\xA9 \"\n"),
            std::string::npos);
  EXPECT_NE(text.find("\ntxbCommonWordsFile=\"/home/zo\xC3\xAB/W\xC3\xB6rter/cwds_de.txt\"\n"),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));

  CountingSettings loaded;
  loaded.strWordsToIgnore = " old ";
  ASSERT_TRUE(LoadSettingsFile(path, loaded, error)) << error;
  ExpectSameSettings(AwkwardSettings(), loaded);
  EXPECT_EQ(loaded.strWordsToIgnore, " old ");  // prepared again by the caller, not loaded
}

TEST(SettingsFile, RefusedLoadsAndSavesExplainAndChangeNothing) {
  TemporaryFolder folder;
  ASSERT_TRUE(folder.Valid());
  const std::string path = folder.Path() + "/s.qzl";
  const std::string shown = "\"" + path + "\"";
  const AnsiString nothingChanged = "\r\n\r\nNo setting was changed.";
  const struct {
    std::string content;
    AnsiString error;
  } cases[] = {
      {"Dear diary,\nversion=1\n",
       "The file " + shown + " is not a Wordtally settings file." + nothingChanged},
      {"[Wordtally settings]\nversion=1\nchkUTF8=abc\n",
       "The settings file " + shown +
           " is damaged:\r\nline 3: chkUTF8 must be 0 or 1, not \"abc\"." + nothingChanged},
      {"[Wordtally settings]\nversion=3\n",
       "The settings file " + shown +
           " has format version 3, which this version of Wordtally cannot read." + nothingChanged},
  };
  for (const auto& c : cases) {
    WriteAll(path, c.content);
    CountingSettings settings = AwkwardSettings();
    AnsiString error;
    EXPECT_FALSE(LoadSettingsFile(path, settings, error));
    EXPECT_EQ(error, c.error);
    ExpectSameSettings(AwkwardSettings(), settings);
  }

  CountingSettings settings = AwkwardSettings();
  AnsiString error;
  const std::string missing = folder.Path() + "/missing.qzl";
  EXPECT_FALSE(LoadSettingsFile(missing, settings, error));
  EXPECT_EQ(error, "The settings file \"" + missing + "\" was not found.");
  ExpectSameSettings(AwkwardSettings(), settings);

  // A folder where the file should go: the save fails, the folder and its content stay.
  const std::string blocked = folder.Path() + "/blocked.qzl";
  std::filesystem::create_directory(blocked);
  WriteAll(blocked + "/keep.txt", "kept");
  EXPECT_FALSE(SaveSettingsFile(blocked, settings, error));
  EXPECT_EQ(error.rfind("The settings could not be saved to \"" + blocked + "\" (", 0), 0u)
      << error;
  EXPECT_EQ(ReadAll(blocked + "/keep.txt"), "kept");
  EXPECT_FALSE(std::filesystem::exists(blocked + ".tmp"));
}

}  // namespace
}  // namespace wordtally
