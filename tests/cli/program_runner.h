#pragma once
// Runs the built wordtally program as a user would, and collects what it printed.
#include <string>
#include <vector>

namespace wordtally::testing {

struct ProgramOutcome {
  int exitStatus = -1;  // -1 when the program did not exit normally
  std::string out;      // standard output
  std::string err;      // standard error
};

// Runs wordtally with args; its standard input comes from stdinFile.
ProgramOutcome RunWordtally(const std::vector<std::string>& args,
                            const std::string& stdinFile = "/dev/null");

}  // namespace wordtally::testing
