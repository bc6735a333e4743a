#include "support/file_utils.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace wordtally {

bool FileExists(const std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::is_regular_file(path, ec);
}

bool FolderExists(const std::string& path) {
  std::error_code ec;
  return !path.empty() && fs::is_directory(path, ec);
}

int64_t FileSize(const std::string& path) {
  std::error_code ec;
  if (!FileExists(path)) return -1;
  const auto size = fs::file_size(path, ec);
  return ec ? -1 : static_cast<int64_t>(size);
}

std::string LowerExtension(const std::string& path) {
  std::string ext = fs::path(path).extension().string();
  if (!ext.empty()) ext.erase(0, 1);
  for (char& c : ext) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return ext;
}

std::string FolderPart(const std::string& path) { return fs::path(path).parent_path().string(); }

bool SameFile(const std::string& a, const std::string& b) {
  std::error_code ea, eb;
  const fs::path ca = fs::weakly_canonical(fs::absolute(a), ea);
  const fs::path cb = fs::weakly_canonical(fs::absolute(b), eb);
  return !ea && !eb && ca == cb;
}

TemporaryFolder::TemporaryFolder() {
  std::error_code ec;
  std::string pattern = (fs::temp_directory_path(ec) / "wordtally-XXXXXX").string();
  if (!ec && ::mkdtemp(pattern.data()) != nullptr) path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ec;
  if (!path_.empty()) fs::remove_all(path_, ec);
}

}  // namespace wordtally
