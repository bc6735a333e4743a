#include "cli/command_run.h"

#include <unistd.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <new>

#include "cli/corpus_outputs.h"
#include "cli/keyword_report.h"
#include "cli/listing_spool.h"
#include "engine/engine_context.h"
#include "engine/program_texts.h"
#include "engine/run_driver.h"
#include "settings/settings_file.h"
#include "support/run_error.h"

namespace wordtally {
namespace {

std::string ProgramFolder() {
  std::error_code ec;
  return std::filesystem::read_symlink("/proc/self/exe", ec).parent_path().string();
}

// What the error report says about an error that no run procedure caught.
void ReportUncaught(int number, std::string_view description) {
  std::cerr << texts::kErrorReportTitle << ": "
            << ToTerminalText(ErrorReportText(number, description, texts::kErrorReportPrefix,
                                              "main"))
            << std::endl;
}

}  // namespace

EncodingChoice EncodingOf(const CommandLineOptions& options) {
  return options.utf8 ? EncodingChoice::Utf8
                      : options.ansi ? EncodingChoice::Ansi : EncodingChoice::FollowFile;
}

std::optional<CountingSettings> SettingsFromCommandLine(const CommandLineOptions& options,
                                                        std::string& error, int& exitStatus) {
  CountingSettings settings;
  AnsiString fileError;
  if (!options.settingsFile.empty() &&
      !LoadSettingsFile(options.settingsFile, settings, fileError)) {
    error = ToTerminalText(fileError);
    exitStatus = 2;
    return std::nullopt;
  }
  exitStatus = 1;
  if (!ApplyCommandLine(options, ProgramFolder(), settings, error)) return std::nullopt;
  if (WantsCorpusRun(options) && !CorpusOutputsSpareInputs(options, error)) return std::nullopt;
  return settings;
}

int RunCommandLine(const CommandLineOptions& options, CountingSettings& settings,
                   const RunPreparation& prepare) {
  const bool corpus = WantsCorpusRun(options);
  ConsoleHost host(EncodingOf(options), options.verbose, isatty(STDERR_FILENO) == 1);
  EngineContext ctx(host, settings);
  CorpusRun corpusRun(options.inputs);
  if (corpus) corpusRun.Attach(ctx);
  if (prepare) prepare(ctx, corpusRun);
  // Standard input is counted as it streams in, so that memory does not grow with it.
  LineReader standardInput;
  if (!settings.optInFile) {
    standardInput.OpenUtf8Stream(STDIN_FILENO);
    ctx.clipboardStream = &standardInput;
  }
  ctx.skipLineEndingChecks = true;
  ctx.threads = options.threads;
  ListingSpool listing;
  std::string terminalLine;  // reused: no allocation per line
  ctx.onListingLine = [&listing, &terminalLine](std::string_view line) {
    terminalLine.clear();
    AppendTerminalText(terminalLine, line);
    terminalLine += '\n';
    listing.Append(terminalLine);
  };
  txbWordsToIgnore_LostFocus(settings, host);

  DoIt(ctx);
  host.EndProgressLine();
  if (!ctx.run.blnWordsGot || host.ErrorReports() > 0) return 1;
  if (listing.Empty()) {
    std::cout << ToTerminalText(host.OutputText()) + "\n";
  } else {
    listing.WriteTo(std::cout);
  }
  if (options.stats) std::cout << host.StatisticsText();
  // The listing is printed all the same; the messages have told what did not get into it, or
  // why the output file did not get it.
  bool incomplete = ctx.run.blnOutputFileMissed;
  if (corpus) {
    incomplete = !WriteCorpusOutputs(options, ctx, corpusRun) || incomplete ||
                 !corpusRun.Skipped().empty() || !corpusRun.ReadInPart().empty();
  }
  if (!options.keywords.empty() && !WriteKeywordReport(options, ctx)) incomplete = true;
  return incomplete ? 1 : 0;
}

int ReportingUncaught(const std::function<int()>& run) {
  try {
    return run();
  } catch (const std::bad_alloc&) {
    ReportUncaught(kErrOutOfMemory, "Out of memory");
  } catch (const std::exception& e) {
    ReportUncaught(kErrInternal, e.what());
  }
  return 1;
}

}  // namespace wordtally
