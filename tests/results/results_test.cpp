// The results: ordering the word store, the listing lines, the listing walks and the output file.
#include <array>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "results/list_summary.h"
#include "results/listing.h"
#include "results/listing_line.h"
#include "results/sorting.h"
#include "support/file_utils.h"
#include "support/run_error.h"
#include "tests/common/scripted_host.h"

namespace wordtally::testing {
namespace {

namespace fs = std::filesystem;
using Ints = std::vector<int32_t>;

struct TestWord {
  TestWord(const char* w, int32_t f = 1) : word(w), frequency(f) {}
  AnsiString word;
  int32_t frequency;
};

// apple (3), Zebra (3), banana (5): ranks apple 2, banana 1, Zebra 3; every width 6.
const std::vector<TestWord> kAppleZebraBanana = {{"Zebra", 3}, {"apple", 3}, {"banana", 5}};
const AnsiString kAppleZebraBananaByFrequency =
    "   Rank    Freq  Word (longest has 6 characters)\r\n"
    "      1       5  banana\r\n      2       3  apple\r\n      3       3  Zebra\r\n";

// The note at the head of an output file, naming "commas" or "spaces" as the delimiter.
std::string Note(const std::string& delimiter) {
  return "\"To open this file in Excel state that it is delimited by " + delimiter +
         ".\r\nSet File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n";
}

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

template <class Field>
auto InStoreOrder(const std::vector<WordListEntry>& store, Field field) {
  std::vector<std::decay_t<decltype(store[0].*field)>> values;
  for (size_t i = 1; i < store.size(); ++i) values.push_back(store[i].*field);
  return values;
}

// Also keeps the prompt of the last input box, which the scripted host does not record.
struct PromptHost : ScriptedHost {
  std::optional<AnsiString> InputBox(const AnsiString& title, const AnsiString& text,
                                     const AnsiString& path) override {
    prompt = text;
    return ScriptedHost::InputBox(title, text, path);
  }
  AnsiString prompt;
};

class ResultsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder.Valid());
    Rank(kAppleZebraBanana);
    options.onLine = [this](std::string_view line) { printed.append(line).append("\r\n"); };
  }

  // Element 0 unused. Ranks, links and Included hold stale values that the ordering steps must
  // replace.
  // The entries view their texts, which are kept here for the whole test program.
  static std::vector<WordListEntry> MakeStore(const std::vector<TestWord>& words) {
    static std::deque<AnsiString> texts;
    std::vector<WordListEntry> entries(1);
    for (const TestWord& w : words) {
      const AnsiString& word = texts.emplace_back(w.word);
      entries.push_back({word, texts.emplace_back(MakeSortKey(w.word)), w.frequency, -1, -1, false});
    }
    return entries;
  }

  // "w0000", "w0001" ... in store order, each counted once.
  static std::vector<TestWord> NumberedWords(int count) {
    std::vector<TestWord> words;
    char word[16];
    for (int i = 0; i < count; ++i) {
      std::snprintf(word, sizeof word, "w%04d", i);
      words.emplace_back(word);
    }
    return words;
  }

  // The four ordering steps in the run driver's order.
  void Rank(const std::vector<TestWord>& words, bool ignoreInfrequent = false,
            int32_t threshold = 2) {
    store = MakeStore(words);
    QuickSortWords(store, 1, static_cast<int32_t>(store.size() - 1), 1);
    MarkIncludedWords(store, ignoreInfrequent, threshold);
    CountIncludedWords(store, stats);
    BuildFrequencyOrder(store, stats, host);
  }

  ListingOutcome List() { return ListWords(store, stats, host, options); }
  std::string Path(const std::string& name) const { return folder.Path() + "/" + name; }

  TemporaryFolder folder;
  PromptHost host;
  std::vector<WordListEntry> store;
  ListStatistics stats;
  ListingOptions options;
  AnsiString printed;  // the lines the command line would print, each with CR LF
};

TEST_F(ResultsTest, QuickSortWordsOrdersByKeyAndLeavesEqualKeysWhereItsStepsPutThem) {
  const struct { std::vector<TestWord> words; int32_t lo, hi, intStartPos;
                 std::vector<std::string_view> sorted; } cases[] = {
      // Equal keys: neither scan moves, so the two are exchanged.
      {{"Word", "word"}, 1, 2, 1, {"word", "Word"}},
      // First and last are exchanged, the middle one meets itself.
      {{"AAA", "Aaa", "aaa"}, 1, 3, 1, {"aaa", "Aaa", "AAA"}},
      // Ärger and Aerger share the key aerger: pivot zorn exchanges Zorn and Ärger, then 1..2
      // with pivot aerger exchanges the pair.
      {{"Aerger", "Zorn", "\xC4rger"}, 1, 3, 1, {"\xC4rger", "Aerger", "Zorn"}},
      // Öl sorts as oel, after ode and before of.
      {{"ode", "of", "\xD6l"}, 1, 3, 1, {"ode", "\xD6l", "of"}},
      // Small thorn (U+00FE) before small oe (U+0153), although its byte is the larger.
      {{"\xFEorn", "\x9C" "uvre"}, 1, 2, 1, {"\xFEorn", "\x9C" "uvre"}},
      // From position 2 only "c", "", "a", "b" are compared.
      {{"xc", "y", "ya", "zb"}, 1, 4, 2, {"y", "ya", "zb", "xc"}},
      // Entries outside lo..hi stay put.
      {{"ddd", "ccc", "bbb", "aaa"}, 2, 4, 1, {"ddd", "aaa", "bbb", "ccc"}},
  };
  for (const auto& c : cases) {
    store = MakeStore(c.words);
    QuickSortWords(store, c.lo, c.hi, c.intStartPos);
    EXPECT_EQ(InStoreOrder(store, &WordListEntry::Word), c.sorted);
  }
}

TEST_F(ResultsTest, RanksFollowFallingFrequencyThenStoreOrder) {
  const std::vector<TestWord> fourWords = {{"aaa", 1}, {"bbb", 2}, {"caf\xE9s", 1}, {"ddd", 5}};
  // The statistics are: included, excluded, occurrences, highest frequency, longest word and
  // first by frequency; ranks and links are FreqOrder and NextByFreq in store order.
  const struct { std::vector<TestWord> words; bool ignoreInfrequent; int32_t threshold;
                 Ints statistics, ranks, links; } cases[] = {
      // banana -> apple -> Zebra
      {kAppleZebraBanana, false, 2, {3, 0, 11, 5, 6, 2}, {2, 1, 3}, {3, 1, 0}},
      {{{"solo", 4}}, false, 2, {1, 0, 4, 4, 4, 1}, {1}, {0}},
      // ddd -> bbb -> aaa -> cafés: aaa comes first among the words counted once.
      {fourWords, false, 2, {4, 0, 9, 5, 5, 4}, {3, 2, 4, 1}, {3, 1, 0, 2}},
      // The threshold excludes aaa and cafés: the longest word left has 3 characters.
      {fourWords, true, 2, {2, 2, 7, 5, 3, 4}, {0, 2, 0, 1}, {0, 0, 0, 2}},
      {fourWords, true, 6, {0, 4, 0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}},
      {{}, false, 2, {0, 0, 0, 0, 0, 0}, {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.statistics));
    Rank(c.words, c.ignoreInfrequent, c.threshold);
    EXPECT_EQ((Ints{stats.lngNumWordsIncluded, stats.lngNumWordsExcluded, stats.lngNumOccurrences,
                    stats.lngMaxFrequency, stats.intMaxWordLengthFound, stats.lngFirstFreq}),
              c.statistics);
    EXPECT_EQ(InStoreOrder(store, &WordListEntry::FreqOrder), c.ranks);
    EXPECT_EQ(InStoreOrder(store, &WordListEntry::NextByFreq), c.links);
  }
  // The longest word a 16-bit count holds is still counted; the occurrences overflow 32 bits.
  Rank({std::string(INT16_MAX, 'a').c_str()});
  EXPECT_EQ(stats.intMaxWordLengthFound, INT16_MAX);
  EXPECT_THAT([this] { Rank({{"aaa", INT32_MAX}, {"bbb", 1}}); },
              ::testing::Throws<RunError>(::testing::Property(&RunError::Number, kErrOverflow)));
}

TEST_F(ResultsTest, RankingMarksEveryThousandthLink) {
  for (const auto& [words, marks] : {std::pair{999, ""}, std::pair{1000, " ."},
                                     std::pair{1999, " ."}, std::pair{2000, " . ."}}) {
    host.output = "Ranking ...";
    Rank(NumberedWords(words));
    EXPECT_EQ(host.output, std::string("Ranking ...") + marks) << words;
  }
}

TEST_F(ResultsTest, ListingLinesInEveryFormatWithBlanksOrCommasAndWidestValues) {
  // Per format: header and apple (rank 2, frequency 3) with blanks, then with commas.
  const char* const longest = "Word (longest has 6 characters)";
  const std::array<const char*, 4> expected[kNumDisplayFormats] = {
      {"   Rank    Freq  Word (longest has 6 characters)", "      2       3  apple",
       "    Rank,    Freq,  Word (longest has 6 characters)", "       2,       3,  apple"},
      {"   Rank  Word      Freq", "      2  apple        3", "    Rank,  Word,   Freq",
       "       2,  apple,      3"},
      {"   Rank    Freq", "      2       3", "    Rank,    Freq", "       2,       3"},
      {"   Rank  Word (longest has 6 characters)", "      2  apple",
       "    Rank,  Word (longest has 6 characters)", "       2,  apple"},
      {"   Freq    Rank", "      3       2", "    Freq,    Rank", "       3,       2"},
      {"    Freq  Word (longest has 6 characters)", "       3  apple",
       "    Freq,  Word (longest has 6 characters)", "       3,  apple"},
      {"  Word     Rank", "  apple       2", "  Word,   Rank", "  apple,      2"},
      {"  Word     Freq", "  apple       3", "  Word,   Freq", "  apple,      3"},
      {longest, "apple", longest, "apple"},
      {longest, "apple", longest, "apple"},
  };
  for (int format = 0; format < kNumDisplayFormats; ++format) {
    for (const int commas : {0, 1}) {
      const ListingLayout layout = MakeListingLayout(stats, 6, format, commas == 1);
      ListingLineMaker lines(layout);
      for (const int index : {0, 1}) {
        EXPECT_EQ(lines.Line(store, index), expected[format][commas * 2 + index])
            << format << commas << index;
      }
    }
  }

  // A layout is plain unless made otherwise, so the word of format 1 is padded rather than
  // followed by ", "; a word wider than its column is not cut.
  ListingLineMaker narrow(ListingLayout{.cboDisplayFormat = kRankWordFrequency, .intWordWidth = 3});
  EXPECT_EQ(narrow.Line(store, 3), "      3  Zebra       3");
  EXPECT_EQ(narrow.Line(store, 0), "   Rank  Word    Freq");

  // Words included, highest frequency, longest word and least width give the header.
  const struct { int32_t words, frequency; int16_t longest, least; int format; const char* header; }
      cases[] = {
      {12, 345, 4, 6, kRankFrequencyWord, "   Rank    Freq  Word (longest has 4 characters)"},
      {1000000, 12345678, 9, 6, kRankWordFrequency, "    Rank  Word           Freq"},
  };
  for (const auto& c : cases) {
    const ListStatistics counts{.lngNumWordsIncluded = c.words, .lngMaxFrequency = c.frequency,
                                .intMaxWordLengthFound = c.longest};
    EXPECT_EQ(ListingLineMaker(MakeListingLayout(counts, c.least, c.format, false)).Line(store, 0),
              c.header);
  }
}

// Each listing first replaces the text before it. Comma mode needs an output file; the file holds
// the note and then what the textbox shows, ending in a line break.
TEST_F(ResultsTest, ListsTheIncludedWordsToTheTextboxAndTheFile) {
  const AnsiString none = "No words with more than 2 letters occur at least ";
  // The threshold 0 keeps infrequent words; a file "" is none; stopAfter is the number of words
  // listed before Stop, 0 for none.
  const struct { int32_t threshold; int order, format; const char* file; int stopAfter;
                 AnsiString shown; } cases[] = {
      {0, 0, kRankFrequencyWord, "", 0, kAppleZebraBananaByFrequency},
      {0, 1, kRankWord, "", 0,
       "   Rank  Word (longest has 6 characters)\r\n"
       "      2  apple\r\n      1  banana\r\n      3  Zebra\r\n"},
      // apple and Zebra, counted three times, are left out.
      {4, 1, kWordRank, "", 0, "  Word     Rank\r\n  banana      1\r\n"},
      {6, 0, kRankFrequencyWord, "", 0, none + "6 times."},
      {0, 0, kRankFrequency, "", 2,
       "   Rank    Freq\r\n      1       5\r\n      2       3\r\nListing stopped."},
      // The words line of format 9 has no line break of its own.
      {0, 0, kWordWithCommas, "", 2,
       "Word (longest has 6 characters)\r\nbanana, apple\r\nListing stopped."},
      {0, 1, kWordFrequency, "out.csv", 0,
       "  Word,   Freq\r\n  apple,      3\r\n  banana,      5\r\n  Zebra,      3\r\n"},
      {0, 0, kWordWithCommas, "out.csv", 0,
       "Word (longest has 6 characters)\r\nbanana, apple, Zebra"},
      // A stopped file ends with the notice too, so that it cannot pass for a whole listing.
      {0, 0, kWordFrequency, "out.csv", 1,
       "  Word,   Freq\r\n  banana,      5\r\nOutput to file was terminated."},
  };
  bool stop = false;
  options.blnStop = &stop;
  options.chkOutputWithCommas = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.shown);
    Rank(kAppleZebraBanana, c.threshold > 0, c.threshold);
    options.chkIgnoreInfrequentWords = c.threshold > 0;
    options.intThresholdFrequency = c.threshold;
    options.cboWordOrder = c.order;
    options.cboDisplayFormat = c.format;
    options.strOutputFile = *c.file ? Path(c.file) : "";
    host.output = "Ranking the words ... .";
    host.processEventsCount = 0;
    host.onProcessEvents = [&] { stop = host.processEventsCount == c.stopAfter; };
    const ListingOutcome outcome = List();
    EXPECT_EQ(outcome.end, c.stopAfter > 0 ? ListingEnd::Stopped : ListingEnd::Completed);
    EXPECT_EQ(outcome.blnFileWritten, *c.file != '\0');
    EXPECT_EQ(host.output, c.shown);
    if (*c.file) {
      EXPECT_EQ(ReadBytes(Path(c.file)),
                Note("commas") + c.shown + (c.shown.ends_with("\r\n") ? "" : "\r\n"));
    }
  }

  Rank({});
  List();
  EXPECT_EQ(host.output, "No words satisfying the conditions were found.");
  EXPECT_EQ(NothingToListText(3, false, 2), none + "once.");
  EXPECT_EQ(NothingToListText(3, true, 2), none + "twice.");
}

TEST_F(ResultsTest, StatisticsLabelsShowCaptionAndGroupedNumber) {
  ShowListStatistics(host, {.lngNumWordsIncluded = 1234, .lngNumWordsExcluded = 5,
                            .lngNumOccurrences = 98765}, 1234567, 12, true);
  EXPECT_EQ(host.Caption(Control::StatWordsInList), "Number of words in this list: 1,234");
  EXPECT_EQ(host.Caption(Control::StatWordsIgnored),
            "No. of words ignored (other than common words): 12");
  EXPECT_EQ(host.Caption(Control::StatWordsExcluded), "Number of words excluded: 5");
  EXPECT_EQ(host.Caption(Control::StatInstancesInList),
            "Number of instances of words in this list: 98,765");
  EXPECT_TRUE(host.Visible(Control::StatInstancesInList));
  EXPECT_EQ(host.Caption(Control::StatTotalInstances),
            "Total number of instances of words: 1,234,567");
  // No instances in the list: that label is hidden.
  ShowListStatistics(host, {}, 0, 0, false);
  EXPECT_EQ(host.Caption(Control::StatWordsIgnored), "Number of words ignored: 0");
  EXPECT_FALSE(host.Visible(Control::StatInstancesInList));
}

// Each named file exists and holds "keep" before the listing.
TEST_F(ResultsTest, OutputFileNeedsTxtOrCsvAndMayBeConfirmedOrEditedFirst) {
  // The answer is the path confirmed or edited in the overwrite box, nullptr for Cancel; a file
  // writtenTo "" is none.
  const struct { const char *name; int disabled, warn; const char* answer; AnsiString messages;
                 const char* writtenTo; } cases[] = {
      {"out.doc", 0, 0, nullptr,
       "Output file extension: The output file should have extension 'txt' or 'csv'.\n", ""},
      {"Out.TXT", 1, 0, nullptr, "", ""},
      {"Out.TXT", 0, 0, nullptr, "", "Out.TXT"},
      {"out.csv", 0, 1, nullptr, "", ""},
      {"out.csv", 0, 1, "missing/other.csv", "Output file: Folder does not exist.\n", ""},
      {"out.csv", 0, 1, "other.txt", "", "other.txt"},
      {"out.csv", 0, 1, "out.csv", "", "out.csv"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.name << " " << (c.answer ? c.answer : "Cancel"));
    const std::string path = Path(c.name);
    std::ofstream(path, std::ios::binary) << "keep";
    host = PromptHost();
    host.inputAnswers = {c.answer ? std::optional(Path(c.answer)) : std::nullopt};
    options.strOutputFile = path;
    options.chkDisableOutputToFile = c.disabled;
    options.chkWarnOnOverwrite = c.warn;
    const ListingOutcome outcome = List();
    ASSERT_EQ(host.inputBoxes.size(), size_t(c.warn));
    if (c.warn == 1) {
      EXPECT_EQ(host.inputBoxes[0],
                (std::pair<AnsiString, AnsiString>("The output file exists.", path)));
      EXPECT_EQ(host.prompt,
                "To overwrite the current output file click on 'OK'.\r\n"
                "To write to a different file edit the filepath below.\r\n"
                "To disable output to file click on 'Cancel'.\r\n"
                "(This 'warn on overwrite' can be disabled\r\n"
                "in the 'Settings' window.)");
    }
    AnsiString messages;
    for (const MessageBoxRequest& m : host.messages) messages += m.title + ": " + m.text + "\n";
    EXPECT_EQ(messages, c.messages);
    EXPECT_EQ(outcome.blnFileWritten ? outcome.strOutputFile : "",
              *c.writtenTo ? Path(c.writtenTo) : "");
    EXPECT_EQ(ReadBytes(path) == "keep", std::string_view(c.writtenTo) != c.name);
  }
}

// A file that cannot be opened is error 70; a failed write ends output to the file only.
TEST_F(ResultsTest, FileErrors) {
  fs::create_directory(Path("folder.txt"));
  options.strOutputFile = Path("folder.txt");
  EXPECT_THAT([this] { List(); }, ::testing::Throws<RunError>(::testing::Property(
                                      &RunError::Number, kErrPermissionDenied)));

  std::error_code error;
  fs::create_symlink("/dev/full", Path("full.txt"), error);
  if (error) GTEST_SKIP() << "no /dev/full";
  options.strOutputFile = Path("full.txt");
  const ListingOutcome outcome = List();
  EXPECT_FALSE(outcome.blnFileWritten);
  EXPECT_EQ(outcome.end, ListingEnd::Completed);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(host.output, kAppleZebraBananaByFrequency);
}

// Format 8 with words of five characters: the header has 31 characters, and with CR LF the
// header and 9281 words take 33 + 7 x 9281 = 65000 characters, all that the textbox holds. With
// one word more the textbox keeps the 464 blocks of 20 words moved before (64993 characters).
TEST_F(ResultsTest, TextboxHolds65000CharactersWhileFileAndPrintedLinesGetAll) {
  options.cboDisplayFormat = kWordOnly;
  options.strOutputFile = Path("all.txt");
  const struct { int words, order; ListingEnd end; size_t shown; const char* procedure; }
      cases[] = {
      {9281, 0, ListingEnd::Completed, 65000, ""},
      {9282, 0, ListingEnd::TextboxFull, 64993, "ListWordsByFrequency A"},
      {9282, 1, ListingEnd::TextboxFull, 64993, "ListWordsAlphabetically A"},
  };
  for (const auto& c : cases) {
    Rank(NumberedWords(c.words));
    options.cboWordOrder = c.order;
    printed.clear();
    const ListingOutcome outcome = List();
    EXPECT_EQ(outcome.end, c.end);
    EXPECT_EQ(outcome.strProcedure, c.procedure);
    EXPECT_TRUE(outcome.blnFileWritten);
    ASSERT_EQ(printed.size(), 33u + 7u * c.words);
    EXPECT_EQ(host.output, printed.substr(0, c.shown));
    EXPECT_EQ(ReadBytes(Path("all.txt")), Note("spaces") + printed);
  }
}

}  // namespace
}  // namespace wordtally::testing
