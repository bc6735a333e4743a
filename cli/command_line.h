#pragma once
// The command line's options and how they map onto the counting settings.
#include <optional>
#include <string>
#include <vector>

#include "engine/counting_settings.h"

namespace wordtally {

struct CommandLineOptions {
  // Files, folders and count files; "-" alone: standard input, taken as clipboard text.
  std::vector<std::string> inputs;
  std::string corpusTable, saveCounts;  // the corpus run's CSV table and count file
  bool caseSensitive = false, noHyphens = false, apostrophes = false, numerals = false;
  bool singular = false, asciiOnly = false, keepNoVowel = false, noCommentMarkers = false;
  std::string commonWordsFile, language;
  std::optional<std::string> ignore;
  std::optional<int> minFrequency;
  std::optional<std::string> order;
  std::optional<int> format;
  std::string output;
  bool commas = false, utf8 = false, ansi = false, stats = false;
  bool modernText = false, verbose = false;
  int threads = 0;  // 0: one per core
  std::string settingsFile;
};

// Parses argv; on --help, --version or a usage error prints the text CLI11 gives and returns the
// exit status (0 or 2) in exitStatus, else returns the options.
std::optional<CommandLineOptions> ParseCommandLine(int argc, char** argv, int& exitStatus);

// True when the options ask for a corpus run: several inputs, a folder, a count file, or a
// corpus table or count file to write. A single file alone is counted as the classic run.
bool WantsCorpusRun(const CommandLineOptions& options);

// Applies the options over settings (defaults, or a loaded settings file). programFolder locates
// the bundled common-words files for --language. False, with error set, when a file is missing
// or standard input is combined with other inputs or with a corpus output.
bool ApplyCommandLine(const CommandLineOptions& options, const std::string& programFolder,
                      CountingSettings& settings, std::string& error);

}  // namespace wordtally
