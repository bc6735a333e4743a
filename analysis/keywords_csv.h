#pragma once
// The keywords as a CSV file (UTF-8 with a byte-order mark, RFC 4180): the header
// Rank,Word,Frequency,Reference frequency,Log-likelihood,Log ratio and one row per keyword in the
// order given, numbered from 1, G2 and log ratio with two decimals.
#include <string>
#include <vector>

#include "analysis/keyness.h"

namespace wordtally {

std::string KeywordsCsvText(const std::vector<Keyword>& keywords);

// False with error set (a sentence naming the file) when the file cannot be written.
bool WriteKeywordsCsv(const std::string& path, const std::vector<Keyword>& keywords,
                      std::string& error);

}  // namespace wordtally
