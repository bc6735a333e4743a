#include "tests/cli/program_runner.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <fstream>
#include <iterator>

#include "support/file_utils.h"

extern char** environ;

namespace wordtally::testing {
namespace {

std::string ReadWhole(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace

ProgramOutcome RunWordtally(const std::vector<std::string>& args, const std::string& stdinFile) {
  const TemporaryFolder folder;
  const std::string outFile = folder.Path() + "/stdout", errFile = folder.Path() + "/stderr";

  std::vector<std::string> argStrings{WORDTALLY_EXE};
  argStrings.insert(argStrings.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (auto& a : argStrings) argv.push_back(a.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, stdinFile.c_str(), O_RDONLY, 0);
  constexpr int kWriteFlags = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), kWriteFlags, 0644);
  posix_spawn_file_actions_addopen(&actions, 2, errFile.c_str(), kWriteFlags, 0644);
  pid_t pid = 0;
  const int spawned = posix_spawn(&pid, WORDTALLY_EXE, &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);

  ProgramOutcome outcome;
  int status = 0;
  if (spawned == 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status)) {
    outcome.exitStatus = WEXITSTATUS(status);
  }
  outcome.out = ReadWhole(outFile);
  outcome.err = ReadWhole(errFile);
  return outcome;
}

}  // namespace wordtally::testing
