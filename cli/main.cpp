// wordtally: the command-line front end. Counts the words of a file (or of standard input), or of
// a corpus of files, folders and count files, with the same engine as the desktop program and
// prints the listing.
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <new>

#include "cli/command_line.h"
#include "cli/console_host.h"
#include "cli/corpus_outputs.h"
#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/run_driver.h"
#include "settings/settings_file.h"
#include "support/run_error.h"

namespace {

std::string ProgramFolder() {
  std::error_code ec;
  return std::filesystem::read_symlink("/proc/self/exe", ec).parent_path().string();
}

wordtally::EncodingChoice EncodingOf(const wordtally::CommandLineOptions& options) {
  using wordtally::EncodingChoice;
  return options.utf8 ? EncodingChoice::Utf8
                      : options.ansi ? EncodingChoice::Ansi : EncodingChoice::FollowFile;
}

int Run(int argc, char** argv) {
  using namespace wordtally;
  int exitStatus = 0;
  const auto options = ParseCommandLine(argc, argv, exitStatus);
  if (!options) return exitStatus;

  CountingSettings settings;
  AnsiString error;
  if (!options->settingsFile.empty() && !LoadSettingsFile(options->settingsFile, settings, error)) {
    std::cerr << ToTerminalText(error) << '\n';
    return 2;
  }
  std::string applyError;
  if (!ApplyCommandLine(*options, ProgramFolder(), settings, applyError)) {
    std::cerr << applyError << '\n';
    return 1;
  }

  const bool corpus = WantsCorpusRun(*options);
  if (corpus && !CorpusOutputsSpareInputs(*options, applyError)) {
    std::cerr << applyError << '\n';
    return 1;
  }

  ConsoleHost host(EncodingOf(*options), options->verbose, isatty(STDERR_FILENO) == 1);
  EngineContext ctx(host, settings);
  CorpusRun corpusRun(options->inputs);
  if (corpus) corpusRun.Attach(ctx);
  // Standard input is counted as it streams in, so that memory does not grow with it.
  LineReader standardInput;
  if (!settings.optInFile) {
    standardInput.OpenUtf8Stream(STDIN_FILENO);
    ctx.clipboardStream = &standardInput;
  }
  ctx.skipLineEndingChecks = true;
  std::string listing;
  ctx.onListingLine = [&listing](std::string_view line) {
    listing += ToTerminalText(line);
    listing += '\n';
  };
  txbWordsToIgnore_LostFocus(settings, host);

  DoIt(ctx);
  host.EndProgressLine();
  if (!ctx.run.blnWordsGot || host.ErrorReports() > 0) return 1;
  std::cout << (listing.empty() ? ToTerminalText(host.OutputText()) + "\n" : listing);
  if (options->stats) std::cout << host.StatisticsText();
  // The listing is printed all the same; the messages have told what did not get into it, or
  // why the output file did not get it.
  bool incomplete = ctx.run.blnOutputFileMissed;
  if (corpus) {
    incomplete = !WriteCorpusOutputs(*options, ctx, corpusRun) || incomplete ||
                 !corpusRun.Skipped().empty() || !corpusRun.ReadInPart().empty();
  }
  return incomplete ? 1 : 0;
}

// What the error report says about an error that no run procedure caught.
void ReportUncaught(int number, std::string_view description) {
  using namespace wordtally;
  std::cerr << texts::kErrorReportTitle << ": "
            << ToTerminalText(ErrorReportText(number, description, texts::kErrorReportPrefix,
                                              "main"))
            << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::bad_alloc&) {
    ReportUncaught(wordtally::kErrOutOfMemory, "Out of memory");
  } catch (const std::exception& e) {
    ReportUncaught(wordtally::kErrInternal, e.what());
  }
  return 1;
}
