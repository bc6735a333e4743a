#include "settings/common_words_choice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/file_utils.h"

namespace wordtally {
namespace {

TEST(CommonWordsChoice, OffersTheSevenFilesByLanguage) {
  const std::vector<std::array<std::string_view, 3>> expected = {
      {"en", "English", "cwds_en.txt"},
      {"de", "German", "cwds_de.txt"},
      {"es", "Spanish", "cwds_es.txt"},
      {"pt", "Portuguese", "cwds_pt.txt"},
      {"it", "Italian", "cwds_it.txt"},
      {"fr", "French", "cwds_fr.txt"},
      {"all", "All six languages", "cwds_en_de_es_pt_it_fr.txt"},
  };
  const auto languages = CommonWordsLanguages();
  ASSERT_EQ(languages.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(languages[i].code, expected[i][0]);
    EXPECT_EQ(languages[i].displayName, expected[i][1]);
    EXPECT_EQ(languages[i].fileName, expected[i][2]);
  }

  ASSERT_NE(FindCommonWordsLanguage("pt"), nullptr);
  EXPECT_EQ(FindCommonWordsLanguage("pt")->fileName, "cwds_pt.txt");
  EXPECT_EQ(FindCommonWordsLanguage("all")->displayName, "All six languages");
  EXPECT_EQ(FindCommonWordsLanguage("nl"), nullptr);
  EXPECT_EQ(FindCommonWordsLanguage(""), nullptr);

  ASSERT_NE(LanguageOfCommonWordsFile("/usr/lib/wordtally/cwds_fr.txt"), nullptr);
  EXPECT_EQ(LanguageOfCommonWordsFile("/usr/lib/wordtally/cwds_fr.txt")->code, "fr");
  EXPECT_EQ(LanguageOfCommonWordsFile("cwds_en_de_es_pt_it_fr.txt")->code, "all");
  EXPECT_EQ(LanguageOfCommonWordsFile("/tmp/cwds_en.txt.bak"), nullptr);
  EXPECT_EQ(LanguageOfCommonWordsFile("/tmp/my_cwds_en.txt"), nullptr);
  EXPECT_EQ(LanguageOfCommonWordsFile(""), nullptr);
}

TEST(CommonWordsChoice, FindsTheFileBesideTheProgramElseInTheDataFolderAbove) {
  TemporaryFolder folder;
  ASSERT_TRUE(folder.Valid());
  const std::string bin = folder.Path() + "/bin";
  const std::string data = folder.Path() + "/data";
  std::filesystem::create_directory(bin);
  std::filesystem::create_directory(data);
  for (const std::string& path :
       {bin + "/cwds_en.txt", data + "/cwds_en.txt", data + "/cwds_de.txt"}) {
    std::ofstream(path) << "the and of\n";
  }
  std::filesystem::create_directory(bin + "/cwds_it.txt");  // a folder is not the file

  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_en.txt"), bin + "/cwds_en.txt");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_de.txt"), data + "/cwds_de.txt");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_fr.txt"), "");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_it.txt"), "");
}

}  // namespace
}  // namespace wordtally
