// The word rules on their own: settings helpers, normalisation, the word shape tests, the binary
// search and the word store.
#include "engine/normalisation.h"
#include "engine/word_filters.h"
#include "support/run_error.h"
#include "tests/engine/engine_fixture.h"

namespace wordtally {
namespace {

using testing::NumberedWord;
using testing::Stored;
using Words = std::initializer_list<const char*>;

// test holds for every word of holds and for none of fails.
template <typename Test>
void ExpectSplit(Test test, Words holds, Words fails) {
  for (const char* word : holds) EXPECT_TRUE(test(word)) << word;
  for (const char* word : fails) EXPECT_FALSE(test(word)) << word;
}

// edit turns the first text of each pair, in place, into the second.
template <typename Edit>
void ExpectChanged(Edit edit, std::initializer_list<std::pair<const char*, const char*>> pairs) {
  for (const auto& [before, after] : pairs) {
    AnsiString text = before;
    edit(text);
    EXPECT_EQ(text, after) << before;
  }
}

TEST(CountingSettings, DefaultsThresholdsAndExtraChars) {
  CountingSettings s;
  s.chkIgnoreNoVowel = s.chkAllowCommentMarkers = s.chkAllowWordsWithHyphens = 0;
  s.txbStartComment = {"{", "["};
  s.cboThresholdFrequency = 5;
  const auto derived = [&s] {
    return std::tuple(NumCommentMarkers(s), ThresholdFrequency(s), SetAllowedExtraChars(s));
  };
  EXPECT_EQ(derived(), std::tuple(0, 7, ""));
  SetDefaultValues(s);
  EXPECT_EQ(std::tie(s.chkIgnoreNoVowel, s.txbStartComment[0]), std::tuple(1, "/*"));
  EXPECT_EQ(derived(), std::tuple(2, 2, "-"));
  EXPECT_EQ(ThresholdItems(), (std::vector<AnsiString>{"2", "3", "4", "5", "6", "7", "8", "9"}));
  s.chkAllowWordsWithApostrophes = s.chkAllowWordsWithNumerals = 1;
  EXPECT_EQ(SetAllowedExtraChars(s), "-'\x91" "0123456789");
}

TEST(CountingSettings, WordsToIgnoreAreTidiedAndTheirCharactersChecked) {
  testing::ScriptedHost host;
  CountingSettings s;
  // The text box and the padded list after typing, and the text of the last message box.
  const auto typed = [&](const char* text) {
    s.txbWordsToIgnore = text;
    txbWordsToIgnore_LostFocus(s, host);
    return std::tuple(s.txbWordsToIgnore, s.strWordsToIgnore,
                      host.messages.empty() ? "" : host.messages.back().text);
  };
  EXPECT_EQ(typed("  The, of  AND "), std::tuple("and of the", " and of the ", ""));
  EXPECT_EQ(typed("   "), std::tuple("   ", "", ""));
  // Capitals with accents are lowered by the code page's table: ÉTÉ ŠÆŒÞZŸ.
  EXPECT_EQ(typed("\xC9T\xC9 \x8A\xC6\x8C\xDEZ\x9F"),
            std::tuple("\xE9t\xE9 \x9A\xE6\x9C\xFEz\xFF", " \xE9t\xE9 \x9A\xE6\x9C\xFEz\xFF ", ""));
  const AnsiString notSet = " occurs in some word to ignore\r\n"
                            "but is not currently set as a character allowed in a word.";
  EXPECT_EQ(typed("don't"), std::tuple("don't", " don't ", "The character '" + notSet));
  EXPECT_EQ(std::tie(host.messages[0].title, host.messages[0].icon),
            std::tuple("Character not allowed", MessageIcon::Exclamation));
  s.chkAllowWordsWithApostrophes = 1;
  EXPECT_TRUE(CheckAllowedExtraChars(s, host));
  EXPECT_EQ(std::get<2>(typed("semi;colon")), "The character ; occurs in some word to ignore\r\n"
                                              "but is not a character allowed in a word.");
}

TEST(Normalisation, EndingsCharacterClassesAndPlurals) {
  EXPECT_TRUE(EndsWith("es", "es", false) && !EndsWith("s", "es", false));
  ExpectSplit(IsContractionStem, {"couldn", "n", "en", "ren", "ldn", "uldn", "COULDN", "wasn"},
              {"don", "wouldnt", "wouldn couldn"});
  ExpectSplit(HasNoVowel, {"", "hmm", "\xE7"}, {"myth", "\xE7\xE0"});  // ç, çà
  ExpectSplit(IsAllUpperCase, {"", "\xC0\x42\x8C\x8A\x9F"}, {"Ab", "\xD7"});  // ÀBŒŠŸ, ×
  ExpectChanged([](AnsiString& word) { StripTrailingChars(word, "-\""); },
                {{"end--", "end"}, {"--end", "--end"}, {"\"-\"", ""}});

  ExpectChanged([](AnsiString& word) { EnglishPluralToSingular(word, false); },
                {{"cities", "city"}, {"ties", "tie"}, {"series", "sery"}, {"wishes", "wish"},
                 {"classes", "class"}, {"buzzes", "buzz"}, {"heroes", "hero"}, {"floes", "floe"},
                 {"shoes", "shoe"}, {"gas", "ga"}, {"horses", "horse"}, {"boxes", "boxe"},
                 {"trees", "tree"}, {"is", "is"}, {"us", "us"}, {"as", "as"}, {"glass", "glass"},
                 {"bus", "bus"}, {"physics", "physics"}, {"days", "day"}, {"analysis", "analysis"},
                 {"rights", "rights"}, {"SPECIES", "SPECIES"}, {"mice", "mouse"}, {"lice", "louse"},
                 {"Mice", "Mice"}, {"  cats ", "cat"}, {"plays", "play"}, {"bees", "bee"},
                 {"goes", "go"}, {"CITIES", "CITy"}});  // the ending matches in any case
  ExpectChanged([](AnsiString& word) { EnglishPluralToSingular(word, true); },
                {{"Mice", "MOUSE"}, {"mice", "mouse"}, {"LICE", "LOUSE"}, {"CITIES", "CITY"},
                 {"Cities", "City"}, {"HEROES", "HERO"}, {"shoes", "sho"}, {"FLOES", "FLOE"},
                 {"HORSES", "HORSE"}, {"Trees", "Tree"}, {"Rights", "Rights"}});
}

TEST(Normalisation, PipelineDropsFragmentsNoVowelWordsAndEntityTails) {
  const auto normalized = [](const NormalizationOptions& options) {
    return [options](AnsiString& word) { NormalizeWord(word, options); };
  };
  ExpectChanged(normalized({}), {{"t", ""}, {"s", ""}, {"T", ""}, {"couldn", ""}, {"n", ""},
                                 {"en", ""}, {"hmm", ""}, {"", ""}, {"don", "don"},
                                 {"known-", "known"}, {"trees", "trees"},
                                 {"caf&eacute", "caf&eacute"}});
  ExpectChanged(normalized({.dropFinalS = true}), {{"\"trees\"", "\"tree"}, {"Mice", "Mice"}});
  ExpectChanged(normalized({.dropFinalS = true, .caseSignificant = true}), {{"Mice", "MOUSE"}});
  ExpectChanged(normalized({.blnReadingWords = true, .dropFinalS = true}),
                {{"couldn", "couldn"}, {"trees", "trees"}});
  ExpectChanged(normalized({.allowApostrophes = true, .ignoreNoVowel = false}),
                {{"hmm", "hmm"}, {"couldn", "couldn"}});
  ExpectChanged(normalized({.blnCharacterEntitiesPossible = true}),  // "&#x;" names no character
                {{"caf&eacute", "caf"}, {"rue&#12", "rue"}, {"&amp", ""}, {"area&#x", "area&#x"}});
}

TEST(WordShape, WordCharactersRepeatsRomanNumeralsAndCleanLines) {
  // × ÷ Œ œ Š ¿ and the typographic quote are not letters; digits need allowDigits.
  ExpectSplit([](std::string_view c) { return IsWordChar(c[0], false, ""); },
              {"a", "Z", "\xC0", "\xD6", "\xD8", "\xF6", "\xF8", "\xFF"},
              {"\xD7", "\xF7", "\x8C", "\x9C", "\x8A", "\xBF", "\x91", "5", "-", " "});
  EXPECT_TRUE(IsWordChar('5', true, "") && IsWordChar('5', false, "0123456789") &&
              IsWordChar('\x91', false, "'\x91"));
  ExpectSplit(IsRepeatedChar, {"aaaa", "---", " zz "}, {"", "   ", "ab"});
  ExpectSplit([](std::string_view w) { return IsRomanNumeral(w, false); },
              {"II", "IV", "XIV", "MCM", "xiv", "mix", "civic"},
              {"I", "i", "DIM", "MID", "LIVID", "CIVIL", "vivid", "Dill", "cat"});
  ExpectChanged([](AnsiString& line) { CleanLine(line, false); },
                {{"a\bb\tc\rd\ne\ff\xA0g", "ab c d e f g"}});
  ExpectChanged([](AnsiString& line) { CleanLine(line, true); }, {{"a\tb\b", "a\tb"}});
  ExpectChanged(RemoveHtmlComments, {{"one<!-- two -->three <!--x--> four", "onethree  four"},
                                     {"open <!-- never closed", "open <!-- never closed"}});
}

TEST(WordShape, ScannerCountsTheRunAndDescribesItsEnd) {
  // Long runs of letters with other word characters, and ends, on either side of 8-byte steps.
  const std::string mixed = "abcdefghij-klmnop\xE9qrs tuv";  // 10 + 1 + 6 + 1 + 3 characters
  const std::string as(70000, 'a');
  // endsAt: the characters whose flags are set.
  struct Case { std::string text; int32_t start; const char* extra; int32_t length;
                std::string endsAt = ""; };
  for (const Case& c :
       {Case{"abc;def", 1, "", 3, ";"}, Case{"x abc.", 3, "", 3, "."}, Case{"ab\"", 1, "", 2, "\""},
        Case{"ab\t", 1, "", 2, "\t"}, Case{"ab'", 1, "", 2, "'"}, Case{"ab,", 1, "", 2, ","},
        Case{"ab'c", 1, "'", 4}, Case{" abc", 1, "", 0},
        Case{as, 1, "", 65000}, Case{as, 65001, "", 5000}, Case{mixed, 1, "-", 21},
        Case{mixed, 1, "", 10}, Case{mixed, 12, "", 10}, Case{"ABCDEFGH[abc", 1, "", 8},
        Case{"abcdefg@bc", 1, "", 7}, Case{"abcdefgh\xD7ijk", 1, "", 8},
        Case{"abcdefghijklmnop`", 1, "", 16}, Case{"abcdefghijklmnopq{", 1, "", 17}}) {
    const WordCharRun r = ScanWordChars(c.text, c.start, false, c.extra);
    const auto at = [&c](char end) { return c.endsAt == std::string(1, end); };
    EXPECT_EQ(std::tie(r.length, r.endsAtSemicolon, r.endsAtFullStop, r.endsAtDoubleQuote,
                       r.endsAtTab, r.endsAtApostrophe, r.endsAtComma),
              std::tuple(c.length, at(';'), at('.'), at('"'), at('\t'), at('\''), at(',')))
        << c.text.substr(0, 20);
  }
}

TEST(WordStore, BinarySearchGivesThePositionOrTheInsertionPoint) {
  const auto search = [](const std::vector<AnsiString>& list, std::string_view word, int32_t count,
                         int32_t startChar = 1) {
    int32_t position = 0;
    const bool found = BinarySearchStrings(word, list, count, position, startChar);
    return std::pair(found, position);
  };
  for (const auto& [word, count, found, at] :
       {std::tuple{"a", 3, false, -1}, {"b", 3, true, 1}, {"c", 3, false, -2}, {"d", 3, true, 2},
        {"e", 3, false, -3}, {"f", 3, true, 3}, {"g", 3, false, -4}, {"b", 0, false, -1},
        {"b", 1, true, 1}}) {
    EXPECT_EQ(search({"b", "d", "f"}, word, count), std::pair(found, at)) << word << count;
  }
  // Entries compared from their second character on; "Š" (U+0160) after "é" (U+00E9).
  EXPECT_EQ(search({"xb", "xd", "xf"}, "d", 3, 2), std::pair(true, 2));
  EXPECT_EQ(search({"a", "\xE9", "\x8A"}, "\x8A", 3), std::pair(true, 3));
}

TEST(WordStore, KeepsBinaryOrderWhateverTheArrivalOrder) {
  WordStore store;
  for (const char* w : {"pear", "apple", "Apple", "zebra", "apple", "\xE9t\xE9", "\x8A" "ar"}) {
    store.Count(w);
  }
  // Capitals before small letters; "é" (U+00E9) before "Š" (U+0160).
  EXPECT_EQ(Stored(store), "Apple apple:2 pear zebra \xE9t\xE9 \x8A" "ar");
  WordStore descending;  // each word arrives before all the words already there
  for (int i = 30; i >= 1; --i) descending.Count(NumberedWord(i));
  EXPECT_THAT(Stored(descending), testing::AllOf(testing::StartsWith("kaaab kaaac "),
                                                 testing::EndsWith(" kaabd kaabe")));
  // Words on either side of 15 characters, which the store keeps in two different ways.
  WordStore lengths;
  const std::string w15(15, 'm'), w16(16, 'm'), w14x = std::string(14, 'm') + "x";
  for (const std::string& w : {w16, w15, w14x, w16, w15, w16}) lengths.Count(w);
  EXPECT_EQ(Stored(lengths), w15 + ":2 " + w16 + ":3 " + w14x);
  ExpectChanged([](AnsiString& word) { word = MakeSortKey(word); },
                {{"Stra\xDF" "e", "strasse"}, {"STRASSE", "strasse"}, {"\xC9lan", "elan"},
                 {"\xC4rger", "aerger"}, {"\x8Cuvre \x9C", "oeuvre \x9C"},  // no rule for œ
                 {"\xD0\xF0\x8A\x9F\xDE", "d\xF0sy\xFE"}});
}

TEST(WordStore, FindsAShortWordByItsChunksAsCountWordStoredIt) {
  WordStore store;
  const std::vector<std::string> words{"abc", "abd", "abcdefgh", "abcdefghi", std::string(16, 'p')};
  for (const std::string& w : words) store.Count(w);
  const auto find = [&store](std::string_view w) {
    const ChunkPair chunks = ChunksOf(w.data(), w.size());
    return store.FindShortWord(chunks, static_cast<uint32_t>(w.size()), ShortWordHash(chunks, w.size()));
  };
  for (size_t id = 0; id < words.size(); ++id) EXPECT_EQ(find(words[id]), id) << words[id];
  // Prefixes and extensions of stored words are other words, also where the extra byte is 0.
  const std::string absent[] = {"ab", "abcd", "abcdefg", "abcdefghij", std::string("abcdefgh\0", 9),
                                std::string(15, 'p')};
  for (const std::string& w : absent) EXPECT_EQ(find(w), -1) << w;
}

TEST(WordStore, GrowsInStepsOf500AndCountsUpToTheLargestCount) {
  WordStore store;
  EXPECT_EQ(store.UpperBound(), 500);
  for (const auto& [words, upperBound] :
       {std::pair{500, 500}, {501, 1000}, {1000, 1000}, {1001, 1500}}) {
    while (store.lngNumWords() < words) store.Count(NumberedWord(store.lngNumWords()));
    store.Count(NumberedWord(0));  // a known word does not grow the store
    EXPECT_EQ(store.UpperBound(), upperBound) << words;
  }
  // The 1001st word is kabmm: 1000 = 1 * 676 + 12 * 26 + 12.
  EXPECT_THAT(Stored(store), testing::AllOf(testing::StartsWith("kaaaa:5 kaaab kaaac "),
                                            testing::EndsWith(" kabml kabmm")));
  // Counting goes on after the records were read, and after they were handed out: the words
  // counted before are found again, a new one takes its place.
  store.Count(NumberedWord(5));
  store.WordList();
  store.Count(NumberedWord(5));
  store.Count("zz");
  EXPECT_THAT(Stored(store), testing::AllOf(testing::StartsWith("kaaaa:5 kaaab kaaac kaaad "
                                                                "kaaae kaaaf:3 kaaag "),
                                            testing::EndsWith(" kabml kabmm zz")));
  store.Reset();
  store.Count("word");
  store.WordList()[1].Frequency = INT32_MAX - 1;  // counting goes on from the records as changed
  store.Count("word");
  EXPECT_EQ(store.WordList()[1].Frequency, INT32_MAX);
  EXPECT_THAT([&] { store.Count("word"); },
              ::testing::Throws<RunError>(::testing::Property(&RunError::Number, 6)));
  EXPECT_EQ(store.WordList()[1].Frequency, INT32_MAX);
}

}  // namespace
}  // namespace wordtally
