#pragma once
// Small file-system helpers.
#include <cstdint>
#include <string>

namespace wordtally {

bool FileExists(const std::string& path);    // an existing regular file
bool FolderExists(const std::string& path);  // an existing directory
int64_t FileSize(const std::string& path);   // -1 when there is no such file
std::string LowerExtension(const std::string& path);  // "Book.TXT" -> "txt"; "" when none
std::string FolderPart(const std::string& path);      // "/a/b.txt" -> "/a"; "" when none
// Canonical form for comparing two names of one file (relative, absolute, symbolic links).
bool SameFile(const std::string& a, const std::string& b);

// A fresh folder under the system's temporary folder, removed with everything in it when the
// object goes away.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  bool Valid() const { return !path_.empty(); }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace wordtally
