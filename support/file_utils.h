#pragma once
// Small file-system helpers.
#include <cstdint>
#include <string>

namespace wordtally {

bool FileExists(const std::string& path);    // an existing regular file
bool FolderExists(const std::string& path);  // an existing directory
int64_t FileSize(const std::string& path);   // -1 when there is no such file
// The last modification, in seconds since 1970-01-01 UTC; 0 when there is no such file.
int64_t ModifiedSeconds(const std::string& path);
std::string LowerExtension(const std::string& path);  // "Book.TXT" -> "txt"; "" when none
std::string FolderPart(const std::string& path);      // "/a/b.txt" -> "/a"; "" when none
// True when both names reach one existing file (same device and inode), whatever the path:
// relative or absolute, through symbolic links or hard links.
bool SameFile(const std::string& a, const std::string& b);

// What a path names, symbolic links followed; BrokenLink is a link whose target does not exist.
enum class PathKind { Missing, RegularFile, Folder, Pipe, Device, Socket, BrokenLink };
PathKind KindOfPath(const std::string& path);

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
