#pragma once
// Small files written by the input tests into a temporary folder.
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "support/file_utils.h"

namespace wordtally::testing {

class TestFiles {
 public:
  // Writes bytes to a file of that name in the folder and returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return Path(name);
  }
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

 private:
  TemporaryFolder folder_;
};

inline std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A path of a file kept in tests/data.
inline std::string TestDataPath(const std::string& name) {
  return std::string(WORDTALLY_TEST_DATA) + "/" + name;
}

}  // namespace wordtally::testing
