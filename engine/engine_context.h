#pragma once
// Everything a counting run works on: the host, the settings, the run record, the word store and
// the common-words list. Owned by the front end (main window or command line); no globals.
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "engine/counting_settings.h"
#include "engine/file_tally.h"
#include "engine/run_state.h"
#include "engine/word_store.h"
#include "input/line_reader.h"
#include "support/host.h"

namespace wordtally {

class PartHelpers;

// The size of the pieces a large input file is cut into for the worker threads.
inline constexpr int64_t kDefaultPieceBytes = int64_t{4} << 20;

struct CommonWordsList {
  std::vector<AnsiString> words;  // ascending code-unit order, lower case, distinct
  AnsiString strCommonWordsFile;
  bool blnCommonWordsLoaded = false;
  int32_t Count() const { return static_cast<int32_t>(words.size()); }
};

struct EngineContext {
  EngineContext(Host& h, CountingSettings& s) : host(h), settings(s) {}

  Host& host;
  CountingSettings& settings;
  RunState run;
  WordStore store;
  CommonWordsList commonWords;
  bool blnMacNoticeShown = false;  // the Mac-style line-ending notice is shown once per program run

  // Front-end choices. The command line reads files through the engine's second file-reading
  // path, which skips the line-ending checks, and receives every listing line in full.
  bool skipLineEndingChecks = false;
  std::function<void(std::string_view)> onListingLine;
  // When set, a clipboard run reads its text from this stream (the command line's standard
  // input, UTF-8) as it arrives instead of asking the host for the clipboard's text.
  LineReader* clipboardStream = nullptr;

  // A corpus run (many files, folders or count files) counts through countCorpus instead of
  // reading the one input file; it returns false when the run was abandoned. While it reads a
  // file, fileTally, when set, also counts every stored occurrence for that file.
  std::function<bool(EngineContext&)> countCorpus;
  FileTally* fileTally = nullptr;

  // A large input file is counted in pieces of about pieceBytes on this many worker threads
  // (0: one per core; 1: the file is read on this thread alone, line after line).
  int threads = 0;
  int64_t pieceBytes = kDefaultPieceBytes;
  // When set, a large input file is also shared with other processes (the ranks of an MPI job).
  PartHelpers* partHelpers = nullptr;

  // Gives the event loop a turn once start-up has completed. Cheap: the host is asked only every
  // kTurnStride calls, and it decides by its clock whether a real turn is due.
  void GiveEventLoopATurn() {
    if (run.blnStartUpCompleted && ++turnCounter_ >= kTurnStride) {
      turnCounter_ = 0;
      host.ProcessEvents();
    }
  }

 private:
  static constexpr int kTurnStride = 256;
  int turnCounter_ = 0;
};

}  // namespace wordtally
