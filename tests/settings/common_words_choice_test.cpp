#include "settings/common_words_choice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/file_utils.h"

namespace wordtally {
namespace {

TEST(CommonWordsChoice, OffersTheSevenFilesByLanguage) {
  const std::vector<std::array<std::string_view, 3>> expected = {
      {"en", "English", "cwds_en.txt"},       {"de", "German", "cwds_de.txt"},
      {"es", "Spanish", "cwds_es.txt"},       {"pt", "Portuguese", "cwds_pt.txt"},
      {"it", "Italian", "cwds_it.txt"},       {"fr", "French", "cwds_fr.txt"},
      {"all", "All six languages", "cwds_en_de_es_pt_it_fr.txt"},
  };
  const auto languages = CommonWordsLanguages();
  ASSERT_EQ(languages.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    const auto& [code, name, file] = expected[i];
    EXPECT_EQ(languages[i].code, code);
    EXPECT_EQ(languages[i].displayName, name);
    EXPECT_EQ(languages[i].fileName, file);
    ASSERT_NE(FindCommonWordsLanguage(code), nullptr) << code;
    EXPECT_EQ(FindCommonWordsLanguage(code)->fileName, file);
    // The file is recognised by its name, with or without a folder.
    const std::string path = (i % 2 ? "/usr/lib/wordtally/" : "") + std::string(file);
    ASSERT_NE(LanguageOfCommonWordsFile(path), nullptr) << path;
    EXPECT_EQ(LanguageOfCommonWordsFile(path)->code, code);
  }
  for (const char* code : {"nl", ""}) EXPECT_EQ(FindCommonWordsLanguage(code), nullptr);
  for (const char* path : {"/tmp/cwds_en.txt.bak", "/tmp/my_cwds_en.txt", ""}) {
    EXPECT_EQ(LanguageOfCommonWordsFile(path), nullptr) << path;
  }
}

TEST(CommonWordsChoice, FindsTheFileBesideTheProgramElseInTheDataFolderAboveElseInstalled) {
  TemporaryFolder folder;
  ASSERT_TRUE(folder.Valid());
  const std::string bin = folder.Path() + "/bin";
  const std::string data = folder.Path() + "/data";
  const std::string installed =
      (std::filesystem::path(bin) / WORDTALLY_DATA_DIR_FROM_BIN_DIR).lexically_normal().string();
  for (const std::string& path : {bin, data, installed}) std::filesystem::create_directories(path);
  for (const std::string& path : {bin + "/cwds_en.txt", data + "/cwds_en.txt",
                                  data + "/cwds_de.txt", installed + "/cwds_de.txt",
                                  installed + "/cwds_pt.txt"}) {
    std::ofstream(path) << "the and of\n";
  }
  std::filesystem::create_directory(bin + "/cwds_it.txt");  // a folder is not the file

  EXPECT_EQ(CommonWordsFolders(bin), (std::vector<std::string>{bin, data, installed}));
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_en.txt"), bin + "/cwds_en.txt");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_de.txt"), data + "/cwds_de.txt");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_pt.txt"), installed + "/cwds_pt.txt");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_fr.txt"), "");
  EXPECT_EQ(FindCommonWordsFile(bin, "cwds_it.txt"), "");
}

}  // namespace
}  // namespace wordtally
