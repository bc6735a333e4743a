#pragma once
// Counting the reference of a keyword comparison: the reference is counted with the target's
// settings and common words, in an engine context of its own whose host shows nothing, so that
// both word lists pass the same filters.
#include <string>
#include <vector>

#include "analysis/word_frequencies.h"
#include "engine/engine_context.h"

namespace wordtally {

// Counts paths (files, folders, count files) as a corpus and returns the included words by rank. Nothing, with error set to the first
// message the run gave (or a sentence saying why), when no words were counted.
std::vector<WordFrequency> CountReference(const std::vector<std::string>& paths,
                                          const CountingSettings& settings,
                                          const CommonWordsList& commonWords, std::string& error);

}  // namespace wordtally
