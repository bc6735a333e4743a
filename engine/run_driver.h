#pragma once
// The counting run: from the count command to the listing.
#include <string_view>

#include "support/ansi_text.h"

namespace wordtally {

struct EngineContext;

// The count command: checks the settings, counts the chosen source (file or clipboard) and lists.
void DoIt(EngineContext& ctx);
// The source procedures; false when the run was abandoned (the message has been shown).
bool DoItFromFile(EngineContext& ctx);
bool DoItFromClipboard(EngineContext& ctx);

// Refuses, with a message naming it, an output file that is the common-words file in use.
bool OutputSparesCommonWordsFile(EngineContext& ctx);

// The settings check before a run ("Incompatible setting" ...); false refuses the run.
bool ValidateSettings(EngineContext& ctx);

// The error report's text: prefix, "At <procedure> error #<number>.", a line break and
// "Description: <description>".
AnsiString ErrorReportText(int number, std::string_view description, std::string_view prefix,
                           std::string_view procedure);
// The error report: stops the timer, then "At <procedure> error #<number>." and the description.
void ReportError(EngineContext& ctx, int number, std::string_view description,
                 std::string_view prefix, std::string_view procedure);

}  // namespace wordtally
