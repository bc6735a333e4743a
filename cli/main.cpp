// wordtally: the command-line front end. Counts the words of a file (or of standard input), or of
// a corpus of files, folders and count files, with the same engine as the desktop program and
// prints the listing.
#include <iostream>

#include "cli/command_run.h"

int main(int argc, char** argv) {
  using namespace wordtally;
  return ReportingUncaught([&] {
    int exitStatus = 0;
    const auto options = ParseCommandLine(argc, argv, exitStatus);
    if (!options) return exitStatus;
    std::string error;
    auto settings = SettingsFromCommandLine(*options, error, exitStatus);
    if (!settings) {
      std::cerr << error << '\n';
      return exitStatus;
    }
    return RunCommandLine(*options, *settings);
  });
}
