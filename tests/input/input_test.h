#pragma once
// The input tests' fixture: each test works in a fresh temporary folder, its current directory,
// so that files are named as the messages name them. Also: tables of texts checked against what
// a routine makes of them.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "support/ansi_text.h"
#include "support/file_utils.h"

namespace wordtally::testing {

class InputTest : public ::testing::Test {
 protected:
  InputTest() { std::filesystem::current_path(folder_.Path()); }
  ~InputTest() override { std::filesystem::current_path(saved_); }

  // Writes bytes to a file of that name and returns the name.
  static std::string Write(const std::string& name, std::string_view bytes) {
    std::ofstream(name, std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return name;
  }
  // The file made unreadable, or "" when the superuser, who may read any file, runs the tests.
  static std::string Locked(const std::string& name) {
    std::filesystem::permissions(name, std::filesystem::perms::none);
    return ::geteuid() == 0 ? "" : name;
  }

 private:
  const std::filesystem::path saved_ = std::filesystem::current_path();
  TemporaryFolder folder_;
};

// Checks what change makes of each text of the table: {text, expected}.
template <typename Change>
void ExpectEach(Change change, std::initializer_list<std::pair<AnsiString, AnsiString>> table) {
  for (const auto& [text, expected] : table) EXPECT_EQ(change(text), expected) << "of " << text;
}

}  // namespace wordtally::testing
