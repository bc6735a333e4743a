#include "tests/input/test_files.h"

#include <fstream>

namespace wordtally::testing {

std::string TestFiles::Write(const std::string& name, std::string_view bytes) const {
  std::string path = Path(name);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}

std::string TestDataPath(const std::string& name) {
  return std::string(WORDTALLY_TEST_DATA) + "/" + name;
}

}  // namespace wordtally::testing
