#include "analysis/keywords_csv.h"

#include <cstdio>
#include <fstream>

#include "support/csv_text.h"

namespace wordtally {
namespace {

std::string TwoDecimals(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

}  // namespace

std::string KeywordsCsvText(const std::vector<Keyword>& keywords) {
  std::string text(kUtf8ByteOrderMark);
  text += CsvRecord({"Rank", "Word", "Frequency", "Reference frequency", "Log-likelihood",
                     "Log ratio"});
  int64_t rank = 0;
  for (const Keyword& k : keywords) {
    text += CsvRecord({std::to_string(++rank), AnsiToUtf8(k.word), std::to_string(k.frequency),
                       std::to_string(k.referenceFrequency), TwoDecimals(k.logLikelihood),
                       TwoDecimals(k.logRatio)});
  }
  return text;
}

bool WriteKeywordsCsv(const std::string& path, const std::vector<Keyword>& keywords,
                      std::string& error) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << KeywordsCsvText(keywords);
  file.close();
  if (file) return true;
  error = "The keywords file " + path + " could not be written.";
  return false;
}

}  // namespace wordtally
