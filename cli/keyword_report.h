#pragma once
// The command line's keyword comparison: the run's included words against the reference.
#include "cli/command_line.h"
#include "engine/engine_context.h"

namespace wordtally {

// Counts the reference with the run's settings, compares and writes options.keywords. False, with
// the reason on standard error, when the reference has no words or the file cannot be written.
bool WriteKeywordReport(const CommandLineOptions& options, EngineContext& ctx);

}  // namespace wordtally
