#include "settings/common_words_choice.h"

#include <array>
#include <filesystem>

#include "support/file_utils.h"

namespace wordtally {

namespace {

constexpr std::array<CommonWordsLanguage, 7> kLanguages{{
    {"en", "English", "cwds_en.txt"},
    {"de", "German", "cwds_de.txt"},
    {"es", "Spanish", "cwds_es.txt"},
    {"pt", "Portuguese", "cwds_pt.txt"},
    {"it", "Italian", "cwds_it.txt"},
    {"fr", "French", "cwds_fr.txt"},
    {"all", "All six languages", "cwds_en_de_es_pt_it_fr.txt"},
}};

template <class Matches>
const CommonWordsLanguage* FindLanguage(Matches matches) {
  for (const CommonWordsLanguage& language : kLanguages) {
    if (matches(language)) return &language;
  }
  return nullptr;
}

}  // namespace

std::span<const CommonWordsLanguage> CommonWordsLanguages() { return kLanguages; }

const CommonWordsLanguage* FindCommonWordsLanguage(std::string_view code) {
  return FindLanguage(
      [code](const CommonWordsLanguage& language) { return language.code == code; });
}

const CommonWordsLanguage* LanguageOfCommonWordsFile(std::string_view path) {
  const std::string fileName = std::filesystem::path(path).filename().string();
  return FindLanguage(
      [&fileName](const CommonWordsLanguage& language) { return language.fileName == fileName; });
}

std::vector<std::string> CommonWordsFolders(const std::string& programFolder) {
  const std::filesystem::path folder(programFolder);
  std::vector<std::string> folders;
  for (const std::filesystem::path& candidate :
       {folder, folder / ".." / "data", folder / WORDTALLY_DATA_DIR_FROM_BIN_DIR}) {
    folders.push_back(candidate.lexically_normal().string());
  }
  return folders;
}

std::string FindCommonWordsFile(const std::string& programFolder, std::string_view fileName) {
  for (const std::string& folder : CommonWordsFolders(programFolder)) {
    const std::string path = (std::filesystem::path(folder) / fileName).string();
    if (FileExists(path)) return path;
  }
  return {};
}

}  // namespace wordtally
