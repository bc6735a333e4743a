// From a line to the word store: the line walk, the exclusion step, the echo of new words and
// the loading of common-words files.
#include "engine/word_counting.h"
#include "engine/word_filters.h"
#include "tests/engine/engine_fixture.h"

namespace wordtally::testing {
namespace {

TEST_F(EngineTest, LineWalkCountsTheWordsTheSettingsAllow) {
  ctx.run.blnStartUpCompleted = false;  // no event-loop turns before start-up has completed
  const std::string longest = Repeated("ab", 40);  // 80 characters, the longest word counted
  // The change from the default settings, the lines, the store afterwards as Stored shows it, the
  // run's total and ignored instances, and whether character entities may occur.
  struct Case { void (*change)(CountingSettings&); std::vector<std::string> lines;
                std::string counted; int32_t total, ignored = 0; bool entities = false; };
  const auto keep = [](CountingSettings&) {};
  const Case cases[] = {
      {keep, {"An apple of the I tree, and THE tree."}, "and apple the:2 tree:2", 6},
      {keep, {"well-known -known known- --- aaa XIV mix Livid \x8Cuvre"},
       "known:2 livid uvre well-known", 5},
      {keep, {longest + " " + longest + "c"}, longest, 1},
      // Words of up to 16 letters and longer ones, with another word character or at the end.
      {keep, {"abcdefghijklmnop abcdefghijklmnopq Abcdefghijklmnop x-ray zzz Zzz xiv XIV", "tail"},
       "abcdefghijklmnop:2 abcdefghijklmnopq tail x-ray", 5},
      // Tabs and no-break spaces are blanks; an HTML comment goes, also past the first 16 bytes.
      {keep, {"one<!-- two -->three\tfour\xA0" "five", "sixteen bytes on and then a comment <!-- hidden -->shown"},
       "and bytes comment five four onethree shown sixteen then", 9},
      {keep, {Repeated("word ", 300)}, "word:300", 300},
      {[](auto& s) { s.chkCaseSignificant = 1; }, {"The the THE"}, "THE The the", 3},
      {[](auto& s) { s.chkDropFinalS = 1; }, {"MICE Cities"}, "city mouse", 2},  // after folding
      // The typographic apostrophe, unlike "'", may begin a word.
      {[](auto& s) { s.chkAllowWordsWithApostrophes = 1; }, {"'tis don't \x91quote\x92"},
       "don't tis \x91quote", 3},
      {keep, {"don't abc123def"}, "abc def don", 3},
      {[](auto& s) { s.chkAllowWordsWithNumerals = 1; s.chkIgnoreNoVowel = 0; },
       {"123\xD7" "456 abc123def 7\xF7" "89"}, "123 456 abc123def", 3},
      {keep, {"alpha /* beta", "gamma */ delta // epsilon */ omega", "zeta/*eta*/theta", "/* x",
              "inside"},
       "alpha delta theta zeta", 4},
      {[](auto& s) { s.chkAllowCommentMarkers = 0; }, {"alpha /* beta */ gamma"},
       "alpha beta gamma", 3},
      {[](auto& s) { s.txbStartComment = {"", "{"}; s.txbEndComment = {"", "}"}; },
       {"alpha {beta} gamma /* delta */"}, "alpha delta gamma", 3},
      // A marker that begins with a blank is looked for just after a word, not after punctuation.
      {[](auto& s) { s.txbStartComment = {"", " x"}; s.txbEndComment = {"", ""}; },
       {"alpha x beta", "gamma, x delta"}, "alpha delta gamma", 3},
      {keep, {"caf&eacute; cr&egrave;me"}, "caf\xE9 cr\xE8me", 2, 0, true},
      // Excluded words still count in the total; words to ignore (whole words only) and 7-bit
      // refusals count as ignored, common words do not.
      {[](auto& s) { s.strWordsToIgnore = " a the "; }, {"the them The"}, "them", 3, 2},
      {[](auto& s) { s.chkOnly7bitASCII = 1; }, {"caf\xE9 cafe"}, "cafe", 2, 1},
      // Common words are excluded, whatever the letter case, only when the box is checked.
      {[](auto& s) { s.chkCaseSignificant = 1; }, {"The \xC9T\xC9 then"}, "The then \xC9T\xC9", 3},
      {[](auto& s) { s.chkCaseSignificant = s.chkIgnoreCommonWords = 1; }, {"The \xC9T\xC9 then"},
       "then", 3},
  };
  ctx.commonWords.words = {"and", "the", "\xE9t\xE9"};
  for (const Case& c : cases) {
    settings = {};
    c.change(settings);
    ctx.run.blnCharacterEntitiesPossible = c.entities;
    EXPECT_EQ(Walk(c.lines), c.counted);
    EXPECT_EQ(std::pair(ctx.run.lngTotalNumOccurrences, ctx.run.lngNumWordsIgnored),
              std::pair(c.total, c.ignored)) << c.lines[0];
  }
  EXPECT_EQ(host.processEventsCount, 0);
}

TEST_F(EngineTest, StoredWordsAreCountedOnlyWhenTheWalkAcceptsThem) {
  // Words merged from elsewhere (a count file) may be words that this run's tests reject.
  for (const char* w : {"xiv", "hmm", "couldn", "able"}) ctx.store.Count(w);
  LineWalker walker(ctx);
  for (int i = 0; i < 2; ++i) walker.WalkLine("xiv hmm couldn able Able");
  EXPECT_EQ(Stored(ctx.store), "able:5 couldn hmm xiv");
  EXPECT_EQ(ctx.run.lngTotalNumOccurrences, 4);
}

TEST_F(EngineTest, NewWordsAreEchoedOnceUntilTheTextboxIsFull) {
  host.output = "Now processing input file ...";
  for (const char* w : {"first", "second", "first", "third"}) AddWordToList(ctx, w);
  EXPECT_EQ(host.output, "first second third ");  // the first word replaces the textbox
  const std::string room(64900, 'x');  // as long as the textbox may be and still take a word
  host.output = room;
  for (const char* w : {"fourth", "fifth", "sixth"}) AddWordToList(ctx, w);
  // The notice is shown once, and the box not to display words is checked.
  EXPECT_EQ(host.output,
            room + "fourth \r\n\r\n[Suppressing display of words to avoid buffer overflow.]");
  EXPECT_EQ(std::pair(settings.chkSuppressWords, ctx.store.lngNumWords()), std::pair(1, 6));

  // While common words are read, the label is repainted at every tenth new word.
  ctx.store.Reset();
  ctx.run.blnReadingWords = true;
  for (int i = 0; i < 25; ++i) AddWordToList(ctx, NumberedWord(i));
  EXPECT_EQ(host.captionHistory[Control::NumberOfWords],
            (std::vector<AnsiString>{"Number of common words read so far: 10",
                                     "Number of common words read so far: 20"}));
}

TEST_F(EngineTest, CommonWordsFileGivesOneSortedListOfDistinctWords) {
  const auto load = [this](const std::string& path) {
    ctx.commonWords.strCommonWordsFile = path;
    return AttemptToReadCommonWords(ctx);
  };
  // The words go straight to the store: no plurals, fragments or words to ignore are dropped,
  // and the "C" comment markers apply whatever the settings.
  const std::string path =
      WriteFile("words.txt", "// common words\r\nThe of and\r\n/* not these:\r\nxyzzy */ the\r\n"
                             "THE and trees couldn\r\nzebra caf\xC3\xA9 // nor\r\n");
  settings.chkDropFinalS = 1;
  settings.chkAllowCommentMarkers = 0;
  settings.strWordsToIgnore = " trees ";
  ctx.run.blnStartUpCompleted = false;
  ASSERT_TRUE(load(path));
  EXPECT_EQ(ctx.commonWords.words,
            (std::vector<AnsiString>{"and", "caf\xE9", "couldn", "the", "trees", "zebra"}));
  EXPECT_EQ(std::tie(ctx.commonWords.blnCommonWordsLoaded, settings.chkIgnoreCommonWords,
                     settings.txbCommonWordsFile, ctx.run.blnReadingWords,
                     ctx.run.lngTotalNumOccurrences),
            std::tuple(true, 1, path, false, 0));
  EXPECT_THAT(host.messages, ElementsAre(Box("Common words loaded", "6 common words loaded from " +
                                             path, MessageButtons::Ok, MessageIcon::Information)));
  ExpectIdle();

  // One long line reads like one word per line; a word twice on its only line is one word.
  for (const char* text : {"those these them their\n", "those\nthese\nthem\ntheir\n"}) {
    ASSERT_TRUE(load(WriteFile("list.txt", text)));
    EXPECT_EQ(ctx.commonWords.words, (std::vector<AnsiString>{"their", "them", "these", "those"}));
  }
  ASSERT_TRUE(load(WriteFile("one.txt", "solitary solitary\n")));
  EXPECT_EQ(host.messages.back().text, "One common word loaded from " + PathOf("one.txt"));

  EXPECT_FALSE(load(PathOf("missing.txt")));
  EXPECT_THAT(host.messages.back(), Box("File not found", "File for common words not found."));
  EXPECT_EQ(std::tuple(settings.chkIgnoreCommonWords, ctx.commonWords.blnCommonWordsLoaded,
                       ctx.commonWords.words.size()),
            std::tuple(0, false, 0u));
}

}  // namespace
}  // namespace wordtally::testing
