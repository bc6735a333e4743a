#pragma once
// Lists the ranked words into the output textbox, into the output file when one is given, and to
// an optional line callback (the command line's standard output), by frequency or alphabetically.
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "support/ansi_text.h"
#include "support/host.h"

namespace wordtally {

// The textbox never holds more characters than this; the listing stops adding to it there.
inline constexpr size_t lngMaxTextboxLength = 65000;

struct ListingOptions {
  int cboWordOrder = 0;       // 0 "by frequency", 1 "alphabetical"
  int cboDisplayFormat = 0;   // DisplayFormat, 0..9
  int chkOutputWithCommas = 0;
  int chkWarnOnOverwrite = 0;
  int chkDisableOutputToFile = 0;
  AnsiString strOutputFile;   // txbFile element 1; empty: no output file
  int chkIgnoreInfrequentWords = 0;
  int32_t intThresholdFrequency = 2;
  int16_t intMinWidth = 6;
  const bool* blnStop = nullptr;  // the run's stop flag, tested after each word
  // Receives every line of the listing in full, without its line break: the header, then one
  // line per word (format 9: all the words on one line), never cut at the textbox's limit.
  std::function<void(std::string_view)> onLine;
};

enum class ListingEnd {
  Completed,
  Stopped,      // the user stopped the listing; the file, if any, is incomplete
  TextboxFull,  // the textbox shows the first part only; the file and onLine got everything
};

struct ListingOutcome {
  ListingEnd end = ListingEnd::Completed;
  // With TextboxFull, the procedure to name in error -6: "ListWordsByFrequency A" or
  // "ListWordsAlphabetically A".
  AnsiString strProcedure;
  // The listing went to a file and every byte of it was written (also when stopped).
  bool blnFileWritten = false;
  AnsiString strOutputFile;  // the file, as confirmed or edited in the overwrite box
  // An output file was named but did not receive the whole listing: refused (its extension, or
  // Cancel in the overwrite box) or a write failed (a full disk).
  bool blnFileMissed = false;
};

// Lists the included words of WordList (element 0 unused) after the ordering steps: the header
// line first, replacing whatever the textbox held, then one line per word in the chosen order and
// format. With nothing to list, the textbox gets the "No words ..." text instead.
// Throws RunError 70 when the output file cannot be opened for writing.
ListingOutcome ListWords(std::span<const WordListEntry> WordList, const ListStatistics& stats,
                         Host& host, const ListingOptions& options);

}  // namespace wordtally
