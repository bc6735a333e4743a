#include "corpus/corpus_files.h"

#include <algorithm>
#include <filesystem>

#include "corpus/count_file.h"
#include "input/file_vetting.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

namespace fs = std::filesystem;

bool IsHidden(const fs::path& path) { return path.filename().string().starts_with('.'); }

// The extensions a folder contributes: the text and markup ones, "php", "docx" and "counts", the
// extension count files are saved under (what such a file is, its first line decides).
bool HasCountedExtension(const std::string& path) {
  const std::string extension = LowerExtension(path);
  return HasTextExtension(path) || extension == "php" || extension == "docx" ||
         extension == "counts";
}

// Every file below folder with a counted extension, hidden files and folders skipped, sorted.
std::vector<std::string> FilesBelow(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code ec;
  fs::recursive_directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec);
  for (; !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
    if (IsHidden(it->path())) {
      it.disable_recursion_pending();
      continue;
    }
    const std::string path = it->path().string();
    if (it->is_regular_file(ec) && HasCountedExtension(path)) files.push_back(path);
  }
  std::sort(files.begin(), files.end());
  return files;
}

// The leading components that a and b share.
fs::path CommonStart(const fs::path& a, const fs::path& b) {
  fs::path common;
  for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end() && *i == *j; ++i, ++j) {
    common /= *i;
  }
  return common;
}

}  // namespace

std::vector<CorpusInput> ExpandCorpusInputs(const std::vector<std::string>& inputs) {
  std::vector<CorpusInput> expanded;
  for (std::string& path : CorpusFilePaths(inputs)) {
    const bool isCountFile = IsCountFile(path);
    expanded.push_back({std::move(path), isCountFile});
  }
  return expanded;
}

std::vector<std::string> CorpusFilePaths(const std::vector<std::string>& inputs) {
  std::vector<std::string> paths;
  for (const std::string& input : inputs) {
    if (!FolderExists(input)) {
      paths.push_back(input);
      continue;
    }
    for (std::string& file : FilesBelow(input)) paths.push_back(std::move(file));
  }
  return paths;
}

bool IsCorpusRun(const std::vector<std::string>& inputs) {
  return inputs.size() > 1 ||
         (inputs.size() == 1 && (FolderExists(inputs[0]) || IsCountFile(inputs[0])));
}

std::vector<std::string> PathsBelowCommonFolder(const std::vector<std::string>& files) {
  std::vector<fs::path> absolute;
  for (const std::string& file : files) absolute.push_back(fs::absolute(file).lexically_normal());
  if (absolute.empty()) return {};
  fs::path common = absolute[0].parent_path();
  for (const fs::path& path : absolute) common = CommonStart(common, path.parent_path());
  std::vector<std::string> relative;
  for (const fs::path& path : absolute) relative.push_back(path.lexically_relative(common).string());
  return relative;
}

}  // namespace wordtally
