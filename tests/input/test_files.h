#pragma once
// Small files written by the input tests into a temporary folder.
#include <string>
#include <string_view>

#include "support/file_utils.h"

namespace wordtally::testing {

class TestFiles {
 public:
  // Writes bytes to a file of that name in the folder and returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const;
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

 private:
  TemporaryFolder folder_;
};

// A path of a file kept in tests/data.
std::string TestDataPath(const std::string& name);

}  // namespace wordtally::testing
