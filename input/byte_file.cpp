#include "input/byte_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/run_error.h"

namespace wordtally {
namespace {

int64_t NanosecondsOf(const timespec& time) {
  return static_cast<int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

// Calls readSome(to, count, done) for the rest until size bytes are in or it meets the end (0):
// the count read, or -1 (with errno) on an error.
template <typename ReadSome>
std::ptrdiff_t ReadFully(char* data, std::size_t size, ReadSome readSome) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = readSome(data + done, size - done, done);
    if (got == 0) break;
    if (got < 0) {
      if (errno == EINTR) continue;
      return -1;
    }
    done += static_cast<std::size_t>(got);
  }
  return static_cast<std::ptrdiff_t>(done);
}

}  // namespace

int ByteFile::Open(const std::string& path) {
  Close();
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return lastError_ = errno;
  struct stat info {};
  if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
    lastError_ = S_ISDIR(info.st_mode) ? EISDIR : errno;
    ::close(fd);
    return lastError_;
  }
  fd_ = fd;
  size_ = info.st_size;
  identity_ = {static_cast<uint64_t>(info.st_dev), static_cast<uint64_t>(info.st_ino), size_,
               NanosecondsOf(info.st_mtim), NanosecondsOf(info.st_ctim)};
  lastError_ = 0;
  return 0;
}

void ByteFile::Attach(int descriptor) {
  Close();
  struct stat info {};
  fd_ = descriptor;
  size_ = ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode) ? info.st_size : 0;
  lastError_ = 0;
}

void ByteFile::Close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  size_ = 0;
  identity_ = {};
}

int ByteFile::Seek(int64_t offset) {
  if (::lseek(fd_, static_cast<off_t>(offset), SEEK_SET) < 0) return lastError_ = errno;
  return 0;
}

std::ptrdiff_t ByteFile::Read(char* data, std::size_t size) {
  const std::ptrdiff_t got = ReadFully(data, size, [this](char* to, std::size_t count, std::size_t) {
    return ::read(fd_, to, count);
  });
  if (got < 0) lastError_ = errno;
  return got;
}

std::ptrdiff_t ByteFile::ReadAt(char* data, std::size_t size, int64_t offset) const {
  return ReadFully(data, size, [this, offset](char* to, std::size_t count, std::size_t done) {
    return ::pread(fd_, to, count, static_cast<off_t>(offset) + static_cast<off_t>(done));
  });
}

std::size_t BlockSizeFor(int64_t fileSize, std::size_t largest) {
  constexpr int64_t kSmallestBlock = 4096;
  const int64_t wanted = std::max(fileSize, int64_t{0}) + 1;
  return std::min(largest, static_cast<std::size_t>(std::max(wanted, kSmallestBlock)));
}

int RunErrorNumberOf(int osError) {
  switch (osError) {
    case EACCES:
    case EPERM:
      return kErrPermissionDenied;
    case ENOENT:
      return kErrFileNotFound;
    default:
      return kErrPathFileAccess;
  }
}

std::string RunErrorDescription(int runErrorNumber) {
  switch (runErrorNumber) {
    case kErrPermissionDenied:
      return "Permission denied";
    case kErrFileNotFound:
      return "File not found";
    default:
      return "Path/File access error";
  }
}

}  // namespace wordtally
