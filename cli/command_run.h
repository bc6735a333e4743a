#pragma once
// The command line's run, from parsed options to the exit status: the settings, the console
// host, the count, the listing on standard output and the corpus outputs. Shared by wordtally
// and wordtally-mpi, so that both give the same bytes.
#include <functional>
#include <optional>
#include <string>

#include "cli/command_line.h"
#include "cli/console_host.h"
#include "corpus/corpus_run.h"
#include "engine/counting_settings.h"
#include "engine/engine_context.h"

namespace wordtally {

EncodingChoice EncodingOf(const CommandLineOptions& options);

// The settings the options ask for, over a settings file's when one is named, once the corpus
// outputs are known to spare the inputs. nullopt, with error set and the exit status to give,
// when they cannot be made.
std::optional<CountingSettings> SettingsFromCommandLine(const CommandLineOptions& options,
                                                        std::string& error, int& exitStatus);

// Applied to the run's context and corpus run (attached only when the options ask for a corpus
// run) before the count.
using RunPreparation = std::function<void(EngineContext&, CorpusRun&)>;

// Counts and lists as the options ask: the listing (and statistics) on standard output, the
// messages on standard error; returns the exit status.
int RunCommandLine(const CommandLineOptions& options, CountingSettings& settings,
                   const RunPreparation& prepare = {});

// Calls run; an exception nothing caught becomes the error report on standard error and the
// exit status 1.
int ReportingUncaught(const std::function<int()>& run);

}  // namespace wordtally
