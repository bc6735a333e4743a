#include "support/file_utils.h"

#include <stdlib.h>

#include <chrono>
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
  // One status query: file_size fails for anything but an existing regular file.
  const auto size = fs::file_size(path, ec);
  return ec ? -1 : static_cast<int64_t>(size);
}

int64_t ModifiedSeconds(const std::string& path) {
  std::error_code ec;
  const auto time = fs::last_write_time(path, ec);
  if (ec) return 0;
  return std::chrono::duration_cast<std::chrono::seconds>(
             std::chrono::file_clock::to_sys(time).time_since_epoch())
      .count();
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
  std::error_code ec;
  return !a.empty() && !b.empty() && fs::equivalent(a, b, ec) && !ec;
}

PathKind KindOfPath(const std::string& path) {
  std::error_code ec;
  const fs::file_status status = fs::status(path, ec);
  switch (status.type()) {
    case fs::file_type::regular: return PathKind::RegularFile;
    case fs::file_type::directory: return PathKind::Folder;
    case fs::file_type::fifo: return PathKind::Pipe;
    case fs::file_type::character:
    case fs::file_type::block: return PathKind::Device;
    case fs::file_type::socket: return PathKind::Socket;
    default: break;
  }
  return fs::is_symlink(fs::symlink_status(path, ec)) ? PathKind::BrokenLink : PathKind::Missing;
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
