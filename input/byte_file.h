#pragma once
// A file opened for reading as raw bytes, closed again when the object goes away, so that no
// path out of a routine can leave it open. Errors are kept as the operating system's error number.
#include <cstddef>
#include <cstdint>
#include <string>

namespace wordtally {

// What tells one state of a file from another: which file it is, and its size and its times of
// last modification and last change, which every write moves on.
struct FileIdentity {
  uint64_t device = 0;
  uint64_t inode = 0;
  int64_t size = 0;
  int64_t modifiedNs = 0;
  int64_t changedNs = 0;
  bool operator==(const FileIdentity&) const = default;
};

class ByteFile {
 public:
  ByteFile() = default;
  ~ByteFile() { Close(); }
  ByteFile(const ByteFile&) = delete;
  ByteFile& operator=(const ByteFile&) = delete;

  // Opens a regular file for reading: 0 on success, else the error number (EISDIR for a folder).
  int Open(const std::string& path);
  // Takes over an open descriptor (standard input, a pipe); closes it like a file it opened.
  // Size() is 0 unless it is a regular file.
  void Attach(int descriptor);
  void Close();
  bool IsOpen() const { return fd_ >= 0; }
  int64_t Size() const { return size_; }
  // The identity of the file as it was opened (all zero for an attached descriptor).
  const FileIdentity& Identity() const { return identity_; }
  // Moves to byte offset of the file: 0 on success, else the error number.
  int Seek(int64_t offset);

  // Reads until size bytes are in or the file ends: the count read, or -1 on an error
  // (then LastError() holds its error number).
  std::ptrdiff_t Read(char* data, std::size_t size);
  // The same from byte offset on, without moving the file's position: several threads may read
  // one file at once this way. Returns the count read, or -1 on an error.
  std::ptrdiff_t ReadAt(char* data, std::size_t size, int64_t offset) const;
  int LastError() const { return lastError_; }

 private:
  int fd_ = -1;
  int64_t size_ = 0;
  FileIdentity identity_;
  int lastError_ = 0;
};

// The block to read a file of fileSize bytes in: the whole file and one byte more (so that one
// read meets its end), at least 4 KB and at most largest. A corpus of many small files would
// otherwise spend its time clearing a large block for each.
std::size_t BlockSizeFor(int64_t fileSize, std::size_t largest);

// The run-error number of an operating-system error: 70 permission denied, 53 file not found,
// 75 path/file access error for everything else; and the description that goes with it.
int RunErrorNumberOf(int osError);
std::string RunErrorDescription(int runErrorNumber);

}  // namespace wordtally
