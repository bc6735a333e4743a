#pragma once
// The input tests' fixture: small files written into a temporary folder, and tables of texts
// checked against what a routine makes of them.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "support/ansi_text.h"
#include "support/file_utils.h"

namespace wordtally::testing {

class InputTest : public ::testing::Test {
 protected:
  // Writes bytes to a file of that name in the test's folder and returns its path.
  std::string Write(const std::string& name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return Path(name);
  }
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

 private:
  TemporaryFolder folder_;
};

// Checks what change makes of each text of the table: {text, expected}.
template <typename Change>
void ExpectEach(Change change, std::initializer_list<std::pair<AnsiString, AnsiString>> table) {
  for (const auto& [text, expected] : table) EXPECT_EQ(change(text), expected) << "of " << text;
}

// A routine that changes a line in place, as one that returns the changed line.
inline auto InPlace(void (*change)(AnsiString&)) {
  return [change](AnsiString line) { return change(line), line; };
}

}  // namespace wordtally::testing
