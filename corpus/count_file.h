#pragma once
// Count files: a run's counts saved to be merged or compared later. The format is described in
// docs/count-file-format.md; its first line identifies it whatever the file's name.
#include <string>
#include <string_view>

#include "corpus/corpus_counts.h"

namespace wordtally {

// True when the file's first line is a count file's first line (of any version).
bool IsCountFile(const std::string& path);

// Writes counts to path; false with error set (a sentence naming the file) when it fails.
bool WriteCountFile(const std::string& path, const CorpusCounts& counts, std::string& error);

// Reads a count file; false with error set (naming the file and the line) when it is not one,
// is of an unknown version or is damaged.
bool ReadCountFile(const std::string& path, CorpusCounts& counts, std::string& error);

// A count file's text in memory, as counts are sent between processes: the text WriteCountFile
// writes, and its reading, with source naming the text in error as path names the file.
std::string CountFileText(const CorpusCounts& counts);
bool ParseCountFileText(std::string_view text, const std::string& source, CorpusCounts& counts,
                        std::string& error);

}  // namespace wordtally
