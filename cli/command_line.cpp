#include "cli/command_line.h"

#include <algorithm>

#include <CLI/CLI.hpp>

#include "corpus/corpus_files.h"
#include "engine/worker_pool.h"
#include "input/file_vetting.h"
#include "settings/common_words_choice.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

void AddOptions(CLI::App& app, CommandLineOptions& o) {
  app.add_option("INPUT", o.inputs,
                 "Input files (text, HTML/XML/PHP or docx), folders (every such file in them and "
                 "their subfolders, hidden ones skipped) and count files; several inputs are "
                 "counted as one corpus. \"-\" alone reads standard input as clipboard text "
                 "(UTF-8)")
      ->required();
  app.add_flag("--case-sensitive", o.caseSensitive, "Upper/lower case significant");
  app.add_flag("--no-hyphens", o.noHyphens, "Do not allow hyphens inside words");
  app.add_flag("--apostrophes", o.apostrophes, "Allow apostrophes inside words");
  app.add_flag("--numerals", o.numerals, "Allow the digits 0-9 in words");
  app.add_flag("--singular", o.singular, "Convert plural words in English to singular form");
  app.add_flag("--ascii-only", o.asciiOnly, "Allow only 7-bit ASCII characters");
  app.add_flag("--keep-no-vowel", o.keepNoVowel, "Keep words with no vowel or 'y'");
  app.add_flag("--no-comment-markers", o.noCommentMarkers,
               "Count the text between comment markers too");
  auto* file = app.add_option("--common-words", o.commonWordsFile,
                              "Ignore the common words listed in FILE")
                   ->check(CLI::ExistingFile);
  app.add_option("--language", o.language, "Ignore the common words of a language")
      ->check(CLI::IsMember({"en", "de", "es", "pt", "it", "fr", "all"}))
      ->excludes(file);
  app.add_option("--ignore", o.ignore, "Words to ignore, separated by blanks");
  app.add_option("--min-frequency", o.minFrequency,
                 "Ignore words with fewer than N occurrences (2..9)")
      ->check(CLI::Range(2, 9));
  app.add_option("--order", o.order, "Order of the listing (default alphabetical)")
      ->check(CLI::IsMember({"frequency", "alphabetical"}));
  app.add_option("--format", o.format,
                 "Listing format 0..9 (default 0): 0 rank frequency word, 1 rank word frequency, "
                 "2 rank frequency, 3 rank word, 4 frequency rank, 5 frequency word, "
                 "6 word rank, 7 word frequency, 8 word, 9 word (+ commas)")
      ->check(CLI::Range(0, 9));
  app.add_option("--output", o.output, "Also write the listing to FILE (txt or csv)");
  app.add_option("--corpus-table", o.corpusTable,
                 "Write the corpus table to FILE.csv: every listed word with its frequency, "
                 "range and count in each file");
  app.add_option("--save-counts", o.saveCounts,
                 "Save the counts to FILE, a count file that later runs take as an input");
  app.add_flag("--commas", o.commas, "Separate the fields of the output file by commas");
  auto* utf8 = app.add_flag("--utf8", o.utf8, "Scan the input as UTF-8");
  app.add_flag("--ansi", o.ansi, "Scan the input as ANSI (Windows-1252)")->excludes(utf8);
  app.add_flag("--modern-text", o.modernText,
               "Modern text handling: UTF-8 recognised without a mark, Unix line ends at any "
               "size, standard input refused only for real control characters");
  app.add_option("--settings", o.settingsFile, "Start from the settings saved in FILE.qzl")
      ->check(CLI::ExistingFile);
  app.add_option("--threads", o.threads,
                 "Count a large input file on N threads (default: one per core; 1: read it "
                 "line after line on one thread, with the same result)")
      ->check(CLI::PositiveNumber);
  app.add_flag("--stats", o.stats, "Print the statistics after the listing");
  app.add_flag("--verbose", o.verbose,
               "Also print the notices, and the questions answered without asking");
  auto* reference = app.add_option("--reference", o.reference,
                                   "Compare the run with these files, folders or count files")
                       ->check(CLI::ExistingPath);
  auto* keywords = app.add_option("--keywords", o.keywords,
                                  "Write the keywords against the reference to FILE.csv (UTF-8)")
                       ->needs(reference);
  reference->needs(keywords);
  app.add_option("--keyword-cutoff", o.keywordCutoff,
                 "Least log-likelihood of a keyword: 3.84 (p < 0.05, default), 6.63 (0.01), "
                 "10.83 (0.001) or 15.13 (0.0001)")
      ->check(CLI::IsMember({"3.84", "6.63", "10.83", "15.13"}));
  app.add_flag("--bonferroni", o.bonferroni,
               "Divide the keyword cut-off's p by the number of words compared");
  app.set_version_flag("--version", std::string("wordtally ") + WORDTALLY_VERSION);
}

}  // namespace

std::optional<CommandLineOptions> ParseCommandLine(int argc, char** argv, int& exitStatus) {
  CLI::App app{"Counts how often each different word occurs in a text and lists the words.",
               "wordtally"};
  CommandLineOptions options;
  AddOptions(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    exitStatus = app.exit(e);
    if (exitStatus != 0) exitStatus = 2;
    return std::nullopt;
  }
  return options;
}

bool WantsCorpusRun(const CommandLineOptions& options) {
  return IsCorpusRun(options.inputs) || !options.corpusTable.empty() ||
         !options.saveCounts.empty();
}

bool ApplyCommandLine(const CommandLineOptions& o, const std::string& programFolder,
                      CountingSettings& s, std::string& error) {
  const bool standardInput = std::find(o.inputs.begin(), o.inputs.end(), "-") != o.inputs.end();
  if (standardInput && WantsCorpusRun(o)) {
    error = "Standard input (\"-\") is counted alone, without other inputs, corpus table or "
            "count file.";
    return false;
  }
  auto setIf = [](bool flag, int& field, int value) {
    if (flag) field = value;
  };
  setIf(o.caseSensitive, s.chkCaseSignificant, 1);
  setIf(o.noHyphens, s.chkAllowWordsWithHyphens, 0);
  setIf(o.apostrophes, s.chkAllowWordsWithApostrophes, 1);
  setIf(o.numerals, s.chkAllowWordsWithNumerals, 1);
  setIf(o.singular, s.chkDropFinalS, 1);
  setIf(o.asciiOnly, s.chkOnly7bitASCII, 1);
  setIf(o.keepNoVowel, s.chkIgnoreNoVowel, 0);
  setIf(o.noCommentMarkers, s.chkAllowCommentMarkers, 0);
  setIf(o.commas, s.chkOutputWithCommas, 1);
  setIf(o.modernText, s.chkModernText, 1);
  if (o.ignore) s.txbWordsToIgnore = *o.ignore;
  if (o.minFrequency) {
    s.chkIgnoreInfrequentWords = 1;
    s.cboThresholdFrequency = *o.minFrequency - 2;
  }
  if (o.order) s.cboWordOrder = *o.order == "frequency" ? 0 : 1;
  if (o.format) s.cboDisplayFormat = *o.format;
  const std::string& input = o.inputs.front();
  s.optInFile = !standardInput;
  s.txbFile[0] = s.optInFile ? input : "";
  s.txbFile[1] = o.output;
  // As in the window once a text file is chosen, the UTF-8 box follows the file's detected
  // encoding, unless --utf8 or --ansi decides.
  const bool textFile = s.optInFile && LowerExtension(input) != "docx";
  s.chkUTF8 = o.utf8 || (!o.ansi && textFile &&
                         IsDetectedAsUtf8(input, TextRulesOf(s), ThreadsToUse(o.threads)))
                  ? 1
                  : 0;
  s.chkDisableOutputToFile = 0;
  s.chkSuppressWords = 1;  // nothing watches the words as they are found

  std::string commonWords = o.commonWordsFile;
  if (!o.language.empty()) {
    const CommonWordsLanguage* language = FindCommonWordsLanguage(o.language);
    commonWords = FindCommonWordsFile(programFolder, language->fileName);
    if (commonWords.empty()) {
      error = "The common-words file " + std::string(language->fileName) +
              " is in none of these folders:";
      for (const std::string& folder : CommonWordsFolders(programFolder)) error += " " + folder;
      return false;
    }
  }
  if (!commonWords.empty()) {
    s.txbCommonWordsFile = commonWords;
    s.chkIgnoreCommonWords = 1;
  }
  return true;
}

}  // namespace wordtally
