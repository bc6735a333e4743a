#pragma once
// Runs bash scripts that start the built wordtally program ($WORDTALLY) in a fresh folder, for
// the end-to-end tests that need the shell: pipes, resource limits, special files.
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "support/file_utils.h"

namespace wordtally::testing {

struct ShellOutcome {
  int exitStatus = -1;  // -1 when the script did not exit normally
  std::string out, err;
};

class ShellRunTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }

  ShellOutcome RunScript(const std::string& script) const {
    std::ofstream(Path("run.sh")) << "cd '" << folder_.Path() << "' || exit 99\n"
                                  << "WORDTALLY='" << WORDTALLY_EXE << "'\n"
                                  << script << '\n';
    const std::string command = "bash '" + Path("run.sh") + "' >'" + Path("out") + "' 2>'" +
                                Path("err") + "' </dev/null";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read("out"), Read("err")};
  }

 private:
  std::string Read(const std::string& name) const {
    std::ifstream in(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  TemporaryFolder folder_;
};

// AddressSanitizer reserves terabytes of address space: a limit on it cannot be tested there.
inline bool UnderAddressSanitizer() {
#if defined(__SANITIZE_ADDRESS__)
  return true;
#elif defined(__has_feature)
  return __has_feature(address_sanitizer);
#else
  return false;
#endif
}

}  // namespace wordtally::testing
