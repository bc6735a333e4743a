// wordtally: the command-line front end. Counts the words of a file (or of standard input) with
// the same engine as the desktop program and prints the listing.
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <new>

#include "cli/command_line.h"
#include "cli/console_host.h"
#include "cli/listing_spool.h"
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

  ConsoleHost host(options->ansi ? Answer::No : Answer::Yes, options->verbose);
  EngineContext ctx(host, settings);
  // Standard input is counted as it streams in, so that memory does not grow with it.
  LineReader standardInput;
  if (!settings.optInFile) {
    standardInput.OpenUtf8Stream(STDIN_FILENO);
    ctx.clipboardStream = &standardInput;
  }
  ctx.skipLineEndingChecks = true;
  ListingSpool listing;
  ctx.onListingLine = [&listing](std::string_view line) {
    listing.Append(ToTerminalText(line));
    listing.Append("\n");
  };
  txbWordsToIgnore_LostFocus(settings, host);

  DoIt(ctx);
  if (!ctx.run.blnWordsGot || host.ErrorReports() > 0) return 1;
  if (listing.Empty()) {
    std::cout << ToTerminalText(host.OutputText()) + "\n";
  } else {
    listing.WriteTo(std::cout);
  }
  if (options->stats) std::cout << host.StatisticsText();
  // The listing is printed all the same; the message has told why the file did not get it.
  return ctx.run.blnOutputFileMissed ? 1 : 0;
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
