#pragma once
// Holds the listing lines until the run has ended (they are printed only when it succeeds): in
// memory up to a limit, beyond it in an unnamed temporary file, so that memory does not grow with
// the number of words listed.
#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace wordtally {

class ListingSpool {
 public:
  explicit ListingSpool(std::size_t memoryLimit = 4 << 20) : memoryLimit_(memoryLimit) {}

  void Append(std::string_view text);
  bool Empty() const { return empty_; }
  // Everything appended, in order.
  void WriteTo(std::ostream& out);

 private:
  struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  // Moves the buffer to the temporary file; keeps it in memory if there is no such file.
  void Spill();

  std::size_t memoryLimit_;
  std::string buffer_;
  std::unique_ptr<std::FILE, FileCloser> file_;
  std::size_t spilled_ = 0;  // bytes in the file
  bool noFile_ = false;
  bool empty_ = true;
};

}  // namespace wordtally
