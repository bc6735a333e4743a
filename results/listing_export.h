#pragma once
// A chosen part of a listing written as the output file is written (the note for spreadsheet
// programs, the header line, one line per word in the display format): what the results table
// shows, saved in the classic format.
#include <cstdint>
#include <span>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "results/listing_line.h"
#include "support/ansi_text.h"

namespace wordtally {

// Writes the words at indexes (store indexes, in the order given) to path. The column widths are
// those of the whole listing (layout from MakeListingLayout over the run's statistics). False when
// the file cannot be opened or written completely.
bool WriteListingFile(const AnsiString& path, std::span<const WordListEntry> WordList,
                      std::span<const int32_t> indexes, const ListingLayout& layout);

}  // namespace wordtally
