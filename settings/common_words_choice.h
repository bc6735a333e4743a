#pragma once
// The common-words files by language, as the language-selection window offers them, and where
// the program finds them.
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wordtally {

struct CommonWordsLanguage {
  std::string_view code;         // "en"
  std::string_view displayName;  // "English"
  std::string_view fileName;     // "cwds_en.txt"
};

// English, German, Spanish, Portuguese, Italian, French, then all six languages in one file.
std::span<const CommonWordsLanguage> CommonWordsLanguages();

// The language with this code ("en" ... "fr", "all"); nullptr when there is none.
const CommonWordsLanguage* FindCommonWordsLanguage(std::string_view code);

// The language whose file a path names (by its file name alone); nullptr for any other file.
const CommonWordsLanguage* LanguageOfCommonWordsFile(std::string_view path);

// The folders that may hold the common-words files, in the order they are searched: beside the
// program in programFolder; a "data" folder one level above it (running from a build or source
// tree); the installed data folder, which the build places relative to the program's folder.
std::vector<std::string> CommonWordsFolders(const std::string& programFolder);

// The full path of a common-words file in the first of CommonWordsFolders that has it; empty when
// none has it.
std::string FindCommonWordsFile(const std::string& programFolder, std::string_view fileName);

}  // namespace wordtally
